// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// The light behind what is under the pointer or pressed, and a ring around it while it has the keyboard.
Rectangle {
    property ClickArea area: null
    property bool hovered: area && area.containsMouse
    property bool pressed: area && area.pressed

    anchors.centerIn: parent
    border.color: Look.accent
    border.width: area && area.activeFocus ? 1 : 0
    color: pressed ? Look.pressed : hovered ? Look.hovered : "transparent"
    height: parent.height + 6
    radius: height / 2
    width: parent.width + 6
}
