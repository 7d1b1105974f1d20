// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A size whose handle stands out from the track by its shadow.
SizeSet {
    id: root

    Effect {
        file: "ShadowEffect.qml"
        height: root.handle.height
        parent: root.slider
        plainFile: "PlainShadow.qml"
        properties: ({ color: Look.line, samples: 10, source: root.handle })
        width: root.handle.width
        x: root.handle.x
        y: root.handle.y
        z: -1
    }
}
