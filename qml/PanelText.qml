// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// A line of the panel, elided where it is too long for its place. Its height is that of the Latin line, around whose
// middle every script is drawn: the fonts of other scripts have taller lines and would sit lower.
Text {
    property bool bold: false
    property int pixelSize: Look.caption
    property bool underline: false

    color: "white"
    elide: Text.ElideRight
    // Made anew with each translation: a new font takes the application's families, which follow the language. Hinted to
    // whole rows of pixels, where glyphs are drawn without OpenGL: blurred, grey text looks disabled.
    font: Qt.font({ family: "Arial", pixelSize: pixelSize, bold: bold, underline: underline,
                    hintingPreference: Font.PreferVerticalHinting })
    height: pixelSize + 2
    renderType: Text.QtRendering
    verticalAlignment: Text.AlignVCenter

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
