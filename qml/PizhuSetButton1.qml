// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1

// A colour to choose. The colour is kept as text: a colour value never equals the text of the same colour.
Rectangle {
    id: root

    property int btnID: 0
    property string btncolor: "#000000"
    property bool checked: false
    property Controls1.ExclusiveGroup exclusiveGroup: null
    property string name
    property bool showimage: true

    function takeFocus() {
        area.takeFocus()
    }

    border.color: "#FFCC0D"
    border.width: checked ? 1 : 0
    color: "transparent"
    height: 26
    radius: 13
    width: 26

    onExclusiveGroupChanged: {
        if (exclusiveGroup)
            exclusiveGroup.bindCheckable(root)
    }

    Halo {
        focused: area.activeFocus
        hovered: area.containsMouse
        pressed: area.pressed
    }

    Rectangle {
        color: root.btncolor
        height: 22
        radius: 11
        visible: root.showimage
        width: 22
        x: 2
        y: 2
    }

    ClickArea {
        id: area

        Accessible.checkable: true
        Accessible.checked: root.checked
        Accessible.name: root.name
        Accessible.role: Accessible.RadioButton
        onTriggered: root.checked = true
    }
}
