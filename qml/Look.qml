// SPDX-License-Identifier: MIT
pragma Singleton
import QtQuick 2.15

// The colours and measures that recur in the views.
QtObject {
    readonly property color accent: "#FFCC0D" // what is chosen or has the keyboard
    readonly property color ground: "#333333"
    readonly property color hovered: "#1CFFFFFF"
    readonly property color line: "#707070"
    readonly property color pressed: "#38FFFFFF"
    readonly property color value: "#7D7D7D"

    // Text sizes, in points
    readonly property int caption: 13
    readonly property int title: 16

    // Where the summaries right of the pen end: with the outer edge of their keys' arrows
    readonly property int rightEdge: 703
}
