// SPDX-License-Identifier: MIT
import QtGraphicalEffects 1.15
import QtQuick 2.15

// A size whose handle stands out from the track by its shadow.
SizeSet {
    id: root

    DropShadow {
        color: "#707070"
        height: source.height
        parent: root.slider
        samples: 10
        source: root.handle
        width: source.width
        x: source.x
        y: source.y
        z: -1
    }
}
