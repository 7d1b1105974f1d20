// SPDX-License-Identifier: MIT
import QtQuick 2.15

Rectangle {
    signal qmlSignal(int id, int var1)

    width: 494
    height: 300
    color: "transparent"
}
