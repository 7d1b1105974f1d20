// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A check box with its label: a click on either toggles it.
Item {
    id: root

    property bool checked: false
    property alias text: label.text

    height: 16
    width: label.x + label.implicitWidth

    Rectangle {
        border.color: area.activeFocus || root.checked ? Look.accent : area.containsMouse ? "#C0C0C0" : "#909090"
        border.width: 1
        color: root.checked ? Look.accent : "transparent"
        height: 16
        radius: 3
        width: 16

        // The tick
        Item {
            anchors.centerIn: parent
            height: 6
            rotation: -45
            visible: root.checked
            width: 10

            Rectangle {
                color: Look.ground
                height: 2
                width: 10
                y: 4
            }

            Rectangle {
                color: Look.ground
                height: 6
                width: 2
            }
        }
    }

    PanelText {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        x: 26
    }

    ClickArea {
        id: area

        Accessible.checkable: true
        Accessible.checked: root.checked
        Accessible.name: label.text
        Accessible.role: Accessible.CheckBox
        onTriggered: root.checked = !root.checked
    }
}
