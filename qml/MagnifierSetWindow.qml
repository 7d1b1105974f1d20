// SPDX-License-Identifier: MIT
import QtQuick 2.15

ToolSetWindow {
    id: root

    signal qmlSignal_magnifier(int id, int var1, int var2)

    function setvalue(id1, var1, var2) {
        if (id1 === 4) {
            colorSet.curValue = var1
            colorSet.showColor()
        } else if (id1 === 5) {
            sizeSet.curValue = var1
            showSize()
        } else if (id1 === 15) {
            visible = var2
        }
    }

    function showSize() {
        ring.width = sizeSet.slider.value / 4
    }

    firstCaption: qsTr("颜色")
    secondCaption: qsTr("大小")

    Rectangle {
        id: ring

        border.color: colorSet.curColor
        border.width: 2
        color: "transparent"
        height: width
        radius: width / 2
        width: 10
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

        onQmlSignal: root.qmlSignal_magnifier(4, curValue, 0)
    }

    SizeSet {
        id: sizeSet

        curValue: 50
        height: 6
        maxsize: 250
        minsize: 50
        name: root.secondCaption
        width: 175
        x: 16
        y: 228

        onQmlSignal: {
            root.showSize()
            root.qmlSignal_magnifier(5, curValue, 0)
        }
    }
}
