// SPDX-License-Identifier: MIT
import QtQuick 2.15

ToolSetWindow {
    id: root

    signal qmlSignal_lightpen(int id, int var1, int var2)

    function setvalue(id1, var1, var2) {
        if (id1 === 6) {
            colorSet.curValue = var1
            colorSet.showColor()
        } else if (id1 === 7) {
            sizeSet.curValue = var1
            showSize()
        } else if (id1 === 15) {
            visible = var2
        }
    }

    function showSize() {
        dot.width = sizeSet.slider.value
    }

    firstCaption: qsTr("颜色")
    secondCaption: qsTr("大小")

    Rectangle {
        id: dot

        color: colorSet.curColor
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

        onQmlSignal: root.qmlSignal_lightpen(6, curValue, 0)
    }

    SizeSet {
        id: sizeSet

        height: 6
        maxsize: 25
        name: root.secondCaption
        width: 175
        x: 16
        y: 228

        onQmlSignal: {
            root.showSize()
            root.qmlSignal_lightpen(7, curValue, 0)
        }
    }
}
