// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A colour, chosen on a scale of 1275 steps. The preview colour is the one the tools draw with; the rainbow on the
// track is only a rough guide to it.
ValueSet {
    id: root

    property color curColor: "#00FF9B"
    readonly property Gradient rainbow: Rainbow {}

    component Rainbow: Gradient {
        GradientStop { color: "#FFFFFF"; position: 0.0 }
        GradientStop { color: "#FF0000"; position: 0.16 }
        GradientStop { color: "#FFFF00"; position: 0.33 }
        GradientStop { color: "#00FFFF"; position: 0.5 }
        GradientStop { color: "#0000FF"; position: 0.66 }
        GradientStop { color: "#FF00FF"; position: 0.83 }
        GradientStop { color: "#000000"; position: 1.0 }
    }

    function colorOf(value) {
        const rgb = (red, green, blue) => Qt.rgba(red / 255, green / 255, blue / 255, 1)
        if (value === 1275)
            return rgb(255, 255, 255)
        if (value < 1 || value > 1275)
            return rgb(0, 0, 0)
        if (value <= 255)
            return rgb(255, value, 0)
        if (value <= 510)
            return rgb(value - 255, 0, 0)
        if (value <= 765)
            return rgb(0, 255, value - 510)
        if (value <= 1020)
            return rgb(0, value - 765, 255)
        return rgb(value - 1020, 0, 255)
    }

    function take(value) {
        curValue = value
        showColor()
    }

    function showColor() {
        curColor = colorOf(curValue)
    }

    curValue: 0
    maxsize: 1275
    slider.height: 4

    track: Item {
        Rectangle {
            anchors.fill: parent
            visible: effect.plain

            gradient: Rainbow {
                orientation: Gradient.Horizontal
            }
        }

        Effect {
            id: effect

            anchors.fill: parent
            file: "RainbowEffect.qml"
            properties: ({ gradient: root.rainbow })
        }
    }

    onCurValueChanged: showColor()
}
