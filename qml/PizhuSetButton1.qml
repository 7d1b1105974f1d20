// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A colour to choose. The colour is kept as text: a colour value never equals the text of the same colour.
GroupButton {
    id: root

    property string btncolor: "#000000"
    property bool showimage: true

    border.color: Look.accent
    border.width: checked ? 1 : 0
    height: 26
    radius: 13
    width: 26

    Rectangle {
        color: root.btncolor
        height: 22
        radius: 11
        visible: root.showimage
        width: 22
        x: 2
        y: 2
    }
}
