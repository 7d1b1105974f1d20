// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A line of the panel. One that is too long for its place shrinks a little and is elided only after that, so that
// every language fits. Its height is that of the Latin line, around whose middle every script is drawn: the fonts of
// other scripts have taller lines and would sit lower.
Text {
    color: "white"
    elide: Text.ElideRight
    font.family: "Arial"
    font.pixelSize: 13
    fontSizeMode: Text.HorizontalFit
    height: font.pixelSize + 2
    minimumPixelSize: 9
    renderType: Text.QtRendering
    verticalAlignment: Text.AlignVCenter

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
