// SPDX-License-Identifier: MIT
import QtGraphicalEffects 1.15
import QtQuick 2.15

LinearGradient {
    end: Qt.point(width, 0)
    start: Qt.point(0, 0)
}
