// SPDX-License-Identifier: MIT
import QtQuick 2.15

ColorToolSetWindow {
    id: root

    signal qmlSignal_magnifier(int id, int var1, int var2)

    firstCaption: qsTr("颜色")
    firstMessage: ViewMessage.MagnifierColor
    maxsize: 250
    minsize: 50
    ring: true
    secondCaption: qsTr("大小")
    secondMessage: ViewMessage.MagnifierSize
    sizeDivisor: 4

    onReported: (id, value) => root.qmlSignal_magnifier(id, value, 0)
}
