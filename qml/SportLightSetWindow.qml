// SPDX-License-Identifier: MIT
import QtQuick 2.15

ToolSetWindow {
    id: root

    signal qmlSignal_spo(int id, int var1, int var2)

    firstCaption: qsTr("透明度")
    firstMessage: ViewMessage.SportLightTran
    firstSet: darknessSet
    secondCaption: qsTr("大小")
    secondMessage: ViewMessage.SportLightSize
    secondSet: sizeSet
    shownSize: 60
    sizeDivisor: 3.5

    onReported: (id, value) => root.qmlSignal_spo(id, value, 0)

    Rectangle {
        anchors.fill: root.preview
        color: "black"
        opacity: darknessSet.curValue / 255
        visible: !mask.plain
    }

    // The light: the same picture once more, unveiled, cut out as a circle. On whole pixels, or it would blur.
    Item {
        id: light

        height: width
        width: root.shownSize
        x: Math.round(root.preview.x + (root.preview.width - width) / 2)
        y: Math.round(root.preview.y + (root.preview.height - height) / 2)

        Item {
            id: unveiled

            anchors.fill: parent
            clip: true
            visible: false

            Picture {
                file: root.preview.file
                fillMode: Image.PreserveAspectCrop
                height: root.preview.height
                inSight: root.visible && !mask.plain // for the mask, which draws what is not visible itself
                width: root.preview.width
                x: root.preview.x - light.x
                y: root.preview.y - light.y
            }
        }

        Rectangle {
            id: circle

            anchors.fill: parent
            radius: width / 2
            visible: false
        }

        Effect {
            id: mask

            anchors.fill: parent
            file: "MaskEffect.qml"
            properties: ({ maskSource: circle, source: unveiled })
        }
    }

    // Without a mask the veil itself has the hole: it is the wide border of a ring.
    Item {
        anchors.fill: root.preview
        clip: true
        visible: mask.plain

        Rectangle {
            border.color: "black"
            border.width: root.preview.width
            color: "transparent"
            height: width
            opacity: darknessSet.curValue / 255
            radius: width / 2
            width: light.width + 2 * border.width
            x: light.x - parent.x - border.width
            y: light.y - parent.y - border.width
        }
    }

    LightLevelSet {
        id: darknessSet

        curValue: 80
        height: 6
        maxsize: 255
        minsize: 80
        name: root.firstCaption
        width: 175
        x: 16
        y: 176

        onQmlSignal: root.reportFirst()
    }

    LightLevelSet {
        id: sizeSet

        curValue: 50
        height: 6
        maxsize: 250
        minsize: 50
        name: root.secondCaption
        width: 175
        x: 16
        y: 228

        onQmlSignal: root.reportSecond()
    }
}
