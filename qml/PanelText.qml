// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A line of the panel, elided where it is too long for its place. Its height is that of the Latin line, around whose
// middle every script is drawn: the fonts of other scripts have taller lines and would sit lower.
Text {
    color: "white"
    elide: Text.ElideRight
    font.family: "Arial"
    font.pixelSize: 13
    height: font.pixelSize + 2
    renderType: Text.QtRendering
    verticalAlignment: Text.AlignVCenter

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
