// SPDX-License-Identifier: MIT
import QtQuick 2.15

Rectangle {
    id: root

    property string borderColor: "#707070"
    property string fillColor: "transparent"
    property string showtext: "page up"

    border.color: borderColor
    border.width: 1
    color: fillColor
    height: 30
    radius: 5
    width: 207

    PanelText {
        color: "#7D7D7D"
        height: parent.height
        text: root.showtext
        width: parent.width - 2 * x
        x: 10
    }
}
