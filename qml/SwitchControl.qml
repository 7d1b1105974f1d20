// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A switch that only shows a state: the handler of its click decides what it shows next.
Rectangle {
    id: root

    property bool myChecked: false
    property string name

    signal clicked

    border.color: area.activeFocus ? Look.accent : area.containsMouse ? "#909090" : Look.line
    border.width: 1
    color: myChecked ? "#2F2F2F" : "#4D4D4D"
    height: 20
    radius: 10
    width: 38

    Rectangle {
        color: root.myChecked ? Look.accent : "#999999"
        height: 18
        radius: 9
        width: 18
        x: root.myChecked ? root.width - width - 1 : 1
        y: 1
    }

    ClickArea {
        id: area

        Accessible.checkable: true
        Accessible.checked: root.myChecked
        Accessible.name: root.name
        Accessible.role: Accessible.CheckBox
        onTriggered: root.clicked()
    }
}
