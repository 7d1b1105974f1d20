// SPDX-License-Identifier: MIT
import QtQuick 2.15

// The settings of a tool that is a coloured disc or ring: its colour and its size.
ToolSetWindow {
    id: root

    property alias maxsize: sizeSet.maxsize
    property alias minsize: sizeSet.minsize
    property bool ring: false

    firstSet: colorSet
    secondSet: sizeSet

    Rectangle {
        border.color: colorSet.curColor
        border.width: root.ring ? 2 : 0
        color: root.ring ? "transparent" : colorSet.curColor
        height: width
        radius: width / 2
        width: root.shownSize
        x: root.preview.x + (root.preview.width - width) / 2
        y: root.preview.y + (root.preview.height - height) / 2
    }

    ColorSet {
        id: colorSet

        height: 6
        minsize: 0
        name: root.firstCaption
        width: 175
        x: 16
        y: 176

        onQmlSignal: root.reportFirst()
    }

    SizeSet {
        id: sizeSet

        curValue: minsize
        height: 6
        name: root.secondCaption
        width: 175
        x: 16
        y: 228

        onQmlSignal: root.reportSecond()
    }
}
