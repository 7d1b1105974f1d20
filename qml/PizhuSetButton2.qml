// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1

// A pen width to choose, shown as a dot of that width.
Item {
    id: root

    property int btnID: 0
    property bool checked: false
    property Controls1.ExclusiveGroup exclusiveGroup: null
    property string name
    property string normalBorderColor: "white"
    property string selBorderColor: "#FFCD36"
    property int son2width: 2

    function setWidth(width) {
        son2width = width
    }

    function setBorderColor(color) {
        normalBorderColor = color
    }

    function setBtnID(id1) {
        btnID = id1
    }

    function getBtnID() {
        return btnID
    }

    function takeFocus() {
        area.takeFocus()
    }

    height: 32
    width: 32

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
        anchors.fill: parent
        border.color: root.checked ? root.selBorderColor : root.normalBorderColor
        border.width: 1
        color: "#333333"
        radius: 16

        Rectangle {
            anchors.centerIn: parent
            color: "white"
            height: width
            radius: width / 2
            width: root.son2width
        }
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
