// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A pen width to choose, shown as a dot of that width.
GroupButton {
    id: root

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

    height: 32
    width: 32

    Rectangle {
        anchors.fill: parent
        border.color: root.checked ? root.selBorderColor : root.normalBorderColor
        border.width: 1
        color: Look.ground
        radius: 16

        Rectangle {
            anchors.centerIn: parent
            color: "white"
            height: width
            radius: width / 2
            width: root.son2width
        }
    }
}
