// SPDX-License-Identifier: MIT
import QtQuick 2.15

// What makes an item a button: a click anywhere on it, or space or return while it has the keyboard, and the looks
// that answer the pointer.
MouseArea {
    id: area

    property bool spaceHeld: false

    signal triggered

    function takeFocus() {
        forceActiveFocus(Qt.TabFocusReason)
    }

    activeFocusOnTab: true
    anchors.fill: parent
    cursorShape: Qt.PointingHandCursor
    hoverEnabled: true

    Accessible.onPressAction: triggered()
    Accessible.onToggleAction: triggered()
    Keys.onEnterPressed: triggered()
    Keys.onReturnPressed: triggered()
    // With the release, as buttons do: what is opened may take the focus, and the release with it.
    Keys.onReleased: event => {
        if (event.key !== Qt.Key_Space || event.isAutoRepeat || !spaceHeld)
            return
        spaceHeld = false
        event.accepted = true
        triggered()
    }
    Keys.onSpacePressed: spaceHeld = true
    onActiveFocusChanged: spaceHeld = false // its release goes elsewhere
    onClicked: triggered()
}
