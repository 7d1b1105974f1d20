// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// What a key of the pen does now: its title, and a caption with a value for the single press and for the long one.
// Left of the pen lines begin at their x; right of it they end with the key's arrow.
Item {
    id: root

    property string clickCaption
    property point clickPosition
    property string clickText
    property bool endAligned: false
    property string longPressCaption
    property point longPressPosition
    property string longPressText
    property string title
    property point titlePosition

    component Line: PanelText {
        property point place

        horizontalAlignment: root.endAligned ? Text.AlignRight : Text.AlignLeft
        width: (root.endAligned ? Look.rightEdge : 440) - x
        x: place.x
        y: place.y
    }
    component ValueLine: Line {
        color: Look.value
        y: place.y + 17
    }

    Line {
        pixelSize: Look.title
        place: root.titlePosition
        text: root.title
    }

    Line {
        place: root.clickPosition
        text: root.clickCaption
    }

    ValueLine {
        place: root.clickPosition
        text: root.clickText
    }

    Line {
        place: root.longPressPosition
        text: root.longPressCaption
    }

    ValueLine {
        place: root.longPressPosition
        text: root.longPressText
    }
}
