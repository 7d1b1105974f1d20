// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1

// A button of a group, in which at most one is checked. A click checks it; one that toggles is unchecked by the next.
Rectangle {
    id: root

    property int btnID: 0
    property bool checked: false
    property Controls1.ExclusiveGroup exclusiveGroup: null
    property string name
    property bool toggles: false

    function takeFocus() {
        area.takeFocus()
    }

    color: "transparent"

    onExclusiveGroupChanged: {
        if (exclusiveGroup)
            exclusiveGroup.bindCheckable(root)
    }

    Halo {
        area: area
    }

    ClickArea {
        id: area

        z: 1 // above what a button shows

        Accessible.checkable: true
        Accessible.checked: root.checked
        Accessible.name: root.name
        Accessible.role: root.toggles ? Accessible.Button : Accessible.RadioButton
        onTriggered: root.checked = !root.toggles || !root.checked
    }
}
