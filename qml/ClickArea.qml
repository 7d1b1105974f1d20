// SPDX-License-Identifier: MIT
import QtQuick 2.15

// What makes an item a button: a click anywhere on it, or space or return while it has the keyboard, and the looks
// that answer the pointer.
MouseArea {
    id: area

    signal triggered

    activeFocusOnTab: true
    anchors.fill: parent
    cursorShape: Qt.PointingHandCursor
    hoverEnabled: true

    Accessible.onPressAction: triggered()
    Keys.onEnterPressed: triggered()
    Keys.onReturnPressed: triggered()
    Keys.onSpacePressed: triggered()
    onClicked: triggered()
}
