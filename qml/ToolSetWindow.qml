// SPDX-License-Identifier: MIT
import QtQuick 2.15

// What the settings of the three tools share: the frame, the preview picture, and the captions of two sliders.
Rectangle {
    id: root

    property var borderColor: "#707070"
    property alias firstCaption: first.text
    property alias preview: picture
    property alias secondCaption: second.text

    border.color: borderColor
    border.width: 1
    color: "transparent"
    height: 272
    radius: 5
    width: 207

    Picture {
        id: picture

        height: 99
        file: "qrc:/toolbackground.png"
        width: 175
        x: 16
        y: 34
    }

    PanelText {
        id: first

        height: 12
        width: 71
        x: 16
        y: 155
    }

    PanelText {
        id: second

        height: 12
        width: 71
        x: 16
        y: 207
    }
}
