// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1

// The three colours the pen cycles through, the palette they are taken from, and the pen's width. One slot is edited
// at a time: the palette shows its colour, and choosing another reports it for that slot.
Rectangle {
    id: root

    property string borderColor: "#606060"
    readonly property var colorNames: [qsTr("黑色"), qsTr("白色"), qsTr("红色"), qsTr("蓝色"), qsTr("绿色"), qsTr("黄色"), qsTr("洋红色"), qsTr("紫色")]
    property int curpenColorID: 0
    property string normalBorderColor: "white"
    property string pencolor0: "#000000"
    property string pencolor1: "#000000"
    property string pencolor2: "#000000"
    property string pencolormenu0: "#000000"
    property string pencolormenu1: "#FFFFFF"
    property string pencolormenu2: "#FF0000"
    property string pencolormenu3: "#009EF8"
    property string pencolormenu4: "#82FF20"
    property string pencolormenu5: "#FFCC0D"
    property string pencolormenu6: "#ED18FF"
    property string pencolormenu7: "#9C1FFF"
    property string selBorderColor: "#FFCD36"

    signal qmlSignal(int qmlid, int var1, int var2)

    function setvalue(id1, var1, var2) {
        if (id1 === ViewMessage.PenThickness && var1 >= 0 && var1 < widths.count)
            widths.itemAt(var1).checked = true
        const slot = slots.itemAt(id1 - ViewMessage.PenColor0)
        const color = getColorString(var1)
        if (slot && color !== undefined)
            root["pencolor" + slot.btnID] = color
        if (id1 === ViewMessage.PenColor0)
            slot.checked = true
    }

    function getColorString(color) {
        return [pencolormenu0, pencolormenu1, pencolormenu2, pencolormenu3,
                pencolormenu4, pencolormenu5, pencolormenu6, pencolormenu7][color]
    }

    function setColorMenucheck(color) {
        for (let i = 0; i < palette.count; ++i) {
            if (palette.itemAt(i).btncolor === color)
                palette.itemAt(i).checked = true
        }
    }

    function editSlot(slot) {
        curpenColorID = slot.btnID
        setColorMenucheck(slot.btncolor)
    }

    function takeColor(swatch) {
        qmlSignal(ViewMessage.PenColor0 + curpenColorID, swatch.btnID, 0)
        root["pencolor" + curpenColorID] = swatch.btncolor
    }

    // The arrow keys choose within a group, as among radio buttons.
    function step(group, from, by) {
        const to = group.itemAt((from + by + group.count) % group.count)
        to.checked = true
        to.takeFocus()
    }

    border.color: borderColor
    border.width: 1
    color: "transparent"
    height: 272
    radius: 4
    width: 207

    Controls1.ExclusiveGroup {
        id: slotGroup
    }

    Controls1.ExclusiveGroup {
        id: paletteGroup
    }

    Controls1.ExclusiveGroup {
        id: widthGroup
    }

    PanelText {
        text: qsTr("颜色")
        width: 175
        x: 16
        y: 17
    }

    Repeater {
        model: 3

        Picture {
            height: 122
            file: "qrc:/frame-" + (index + 1) + ".png"
            visible: slots.count > index && slots.itemAt(index).checked
            width: 175
            x: 16
            y: 67
        }
    }

    Repeater {
        id: slots

        model: 3

        PizhuSetButton1 {
            btnID: index
            btncolor: [root.pencolor0, root.pencolor1, root.pencolor2][index]
            exclusiveGroup: slotGroup
            name: qsTr("颜色") + " " + (index + 1)
            x: 31 + 60 * index
            y: 40

            Keys.onLeftPressed: root.step(slots, index, -1)
            Keys.onRightPressed: root.step(slots, index, 1)
            onCheckedChanged: {
                if (checked)
                    root.editSlot(this)
            }
        }
    }

    Repeater {
        id: palette

        model: 8

        PizhuSetButton1 {
            btnID: index
            btncolor: root.getColorString(index)
            exclusiveGroup: paletteGroup
            name: root.colorNames[index]
            x: [33, 73, 111, 153, 33, 73, 113, 153][index]
            y: index < 4 ? 100 : 143

            Keys.onDownPressed: root.step(palette, index, 4)
            Keys.onLeftPressed: root.step(palette, index, -1)
            Keys.onRightPressed: root.step(palette, index, 1)
            Keys.onUpPressed: root.step(palette, index, -4)
            onCheckedChanged: {
                if (checked)
                    root.takeColor(this)
            }
        }
    }

    PanelText {
        text: qsTr("画笔粗细")
        width: 175
        x: 16
        y: 205
    }

    Repeater {
        id: widths

        model: 4

        PizhuSetButton2 {
            btnID: index
            exclusiveGroup: widthGroup
            height: 22
            name: qsTr("画笔粗细") + " " + (index + 1)
            normalBorderColor: root.normalBorderColor
            selBorderColor: root.selBorderColor
            son2width: 2 * (index + 1)
            width: 22
            x: [16, 67, 117, 167][index]
            y: 228

            Keys.onLeftPressed: root.step(widths, index, -1)
            Keys.onRightPressed: root.step(widths, index, 1)
            onCheckedChanged: {
                if (checked)
                    root.qmlSignal(ViewMessage.PenThickness, btnID, 0)
            }
        }
    }
}
