// SPDX-License-Identifier: MIT
import QtQuick 2.15

ColorToolSetWindow {
    id: root

    signal qmlSignal_lightpen(int id, int var1, int var2)

    firstCaption: qsTr("颜色")
    firstMessage: ViewMessage.LaserPenColor
    maxsize: 25
    minsize: 5
    secondCaption: qsTr("大小")
    secondMessage: ViewMessage.LaserPenSize

    onReported: (id, value) => root.qmlSignal_lightpen(id, value, 0)
}
