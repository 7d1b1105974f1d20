// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Templates 2.15
import "."

// A setting chosen with a slider. A value given from outside moves the slider; whatever moves the slider is reported,
// and so is a click that leaves it where it is. A value beyond an end moves the slider to that end; one that stands
// there already reports nothing, and curValue keeps what was given.
Rectangle {
    id: root

    property int curValue: 5
    property alias handle: slider.handle
    property bool loaded: false
    property int maxsize: 30
    property int minsize: 5
    property string name
    readonly property alias slider: slider
    property int tickFrequency: 1
    property alias track: slider.background

    signal qmlSignal

    // A value from the host.
    function take(value) {
        curValue = value
    }

    color: "#444444"
    height: 80
    width: 640

    Component.onCompleted: {
        slider.value = curValue
        loaded = true
    }
    onCurValueChanged: {
        if (loaded)
            slider.value = curValue
    }

    // The handle is taller than the track: all of it, and a little more, can be grabbed.
    QtObject {
        id: reach

        function contains(point: point): bool {
            return point.x >= -3 && point.x <= slider.width + 3 && Math.abs(point.y - slider.height / 2) <= 9
        }
    }

    Binding {
        property: "containmentMask"
        target: slider
        value: reach
    }

    MouseArea {
        anchors.fill: parent

        onClicked: root.qmlSignal()
    }

    Slider {
        id: slider

        // What the toolkit's bridge to screen readers calls the ends
        readonly property real maximumValue: to
        readonly property real minimumValue: from
        property bool moved: false

        anchors.verticalCenter: parent.verticalCenter
        from: root.minsize
        height: parent.height
        padding: 0
        snapMode: Slider.SnapAlways
        stepSize: root.tickFrequency
        to: root.maxsize
        value: 5
        width: parent.width

        Accessible.name: root.name

        handle: Rectangle {
            border.color: Look.accent
            border.width: slider.visualFocus ? 2 : 0
            color: slider.pressed ? "#E0E0E0" : "white"
            height: 12
            radius: 6
            width: 12
            x: slider.leftPadding + slider.visualPosition * (slider.availableWidth - width)
            y: (slider.height - height) / 2

            Halo {
                hovered: slider.hovered
                pressed: slider.pressed
                z: -1
            }
        }

        onPressedChanged: {
            if (pressed)
                moved = false
            else if (!moved)
                root.qmlSignal()
        }
        onValueChanged: {
            if (!root.loaded)
                return
            moved = true
            root.curValue = value
            root.qmlSignal()
        }
    }
}
