// SPDX-License-Identifier: MIT
import QtQuick 2.15

// Moves the borderless window: reports how far the pointer is from where it was pressed. The window follows, so the
// distance that is left is always measured from where the window is now.
MouseArea {
    property point start

    signal dragged(int x, int y, int startx, int starty)

    onPositionChanged: mouse => dragged(mouse.x - start.x, mouse.y - start.y, start.x, start.y)
    onPressed: mouse => start = Qt.point(mouse.x, mouse.y)
}
