// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A line of the panel. One that is too long for its place shrinks a little and is elided only after that, so that
// every language fits.
Text {
    color: "white"
    elide: Text.ElideRight
    font.family: "Arial"
    font.pixelSize: 13
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: 9
    renderType: Text.NativeRendering

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
