// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// The settings of a tool: a preview picture and two captioned sliders, each with the message that carries its value.
// The second is the tool's size. What a tool shows in the preview is the tool's own.
Rectangle {
    id: root

    property var borderColor: Look.line
    property alias firstCaption: first.text
    property int firstMessage
    property ValueSet firstSet
    property alias preview: picture
    property alias secondCaption: second.text
    property int secondMessage
    property ValueSet secondSet
    property real shownSize: 10 // in the preview
    property real sizeDivisor: 1 // of the tool's size, for the preview

    signal reported(int id, int value)

    function setvalue(id1, var1, var2) {
        if (id1 === firstMessage) {
            firstSet.take(var1)
        } else if (id1 === secondMessage) {
            secondSet.take(var1)
            showSize()
        } else if (id1 === ViewMessage.Key4P) {
            visible = var2
        }
    }

    function showSize() {
        shownSize = secondSet.slider.value / sizeDivisor
    }

    function reportFirst() {
        reported(firstMessage, firstSet.curValue)
    }

    function reportSecond() {
        showSize()
        reported(secondMessage, secondSet.curValue)
    }

    border.color: borderColor
    border.width: 1
    color: "transparent"
    height: 272
    radius: 5
    width: 207

    Picture {
        id: picture

        file: "qrc:/toolbackground.png"
        height: 99
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
