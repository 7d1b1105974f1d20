// SPDX-License-Identifier: MIT
import QtQuick 2.15

KeyDetailWindow {
    actions: [qsTr("无操作"), qsTr("PPT放映：开始/结束"), qsTr("播放器：暂停/播放"), qsTr("黑板"), qsTr("屏幕截屏")]
    clickCaption: qsTr("单击")
    clickText: qsTr("下一页")
    frame: "qrc:/frame-key3.png"
    longPressCaption: qsTr("长按")
    messageId: ViewMessage.Key3P
}
