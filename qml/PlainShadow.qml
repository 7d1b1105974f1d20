// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A DropShadow of some ten samples without a shader: rings around the source that add up to its fall-off.
Item {
    id: root

    property color color
    property int samples
    property Rectangle source

    Repeater {
        model: [0.22, 0.13, 0.055, 0.03]

        Rectangle {
            anchors.fill: parent
            anchors.margins: -index - 1
            color: root.color
            opacity: modelData
            radius: root.source.radius + index + 1
        }
    }
}
