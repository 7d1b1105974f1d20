// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

Rectangle {
    id: root

    property string borderColor: Look.line
    property string fillColor: "transparent"
    property string showtext: "page up"

    border.color: borderColor
    border.width: 1
    color: fillColor
    height: 30
    radius: 5
    width: 207

    PanelText {
        color: Look.value
        height: parent.height
        text: root.showtext
        width: parent.width - 2 * x
        x: 10
    }
}
