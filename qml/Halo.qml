// SPDX-License-Identifier: MIT
import QtQuick 2.15

// The light behind a button that is under the pointer or pressed, and the ring around the one that has the keyboard.
Rectangle {
    property bool focused: false
    property bool hovered: false
    property bool pressed: false

    anchors.centerIn: parent
    border.color: "#FFCC0D"
    border.width: focused ? 1 : 0
    color: pressed ? "#38FFFFFF" : hovered ? "#1CFFFFFF" : "transparent"
    height: parent.height + 6
    radius: height / 2
    width: parent.width + 6
}
