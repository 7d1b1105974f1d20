// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A size, chosen on a track that is filled up to the handle and glows under the pointer.
ValueSet {
    id: root

    track: Item {
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            color: "#5A5A5A"
            height: 4
            radius: 2
            width: parent.width
        }

        Effect {
            anchors.fill: filled
            file: "ShadowEffect.qml"
            plainFile: "PlainShadow.qml"
            properties: ({ color: Look.accent, samples: 8, source: filled })
            visible: root.slider.hovered || root.slider.pressed
        }

        Rectangle {
            id: filled

            anchors.verticalCenter: parent.verticalCenter
            color: Look.accent
            height: 4
            radius: 2
            width: root.handle.x + root.handle.width / 2
        }
    }
}
