// SPDX-License-Identifier: MIT
import QtQuick 2.15

// The view of key 1: both of its presses are fixed; the colours and the width of the pen are chosen here.
Rectangle {
    id: root

    signal qmlSignal1(int id, int var1, int var2)

    function setvalue(id1, var1, var2) {
        pen.setvalue(id1, var1, var2)
    }

    color: "transparent"
    height: 500
    width: 257

    Picture {
        anchors.fill: parent
        fillMode: Image.PreserveAspectFit
        file: "qrc:/frame-key1.png"
    }

    PanelText {
        height: 12
        text: qsTr("单击")
        width: 207
        x: 30
        y: 22
    }

    MyTextBox {
        showtext: qsTr("切换画笔颜色")
        x: 30
        y: 42
    }

    PanelText {
        height: 12
        text: qsTr("颜色设置")
        width: 207
        x: 30
        y: 94
    }

    PizhuSetPenColor {
        id: pen

        x: 30
        y: 114

        onQmlSignal: (qmlid, var1, var2) => root.qmlSignal1(qmlid, var1, var2)
    }

    Separator {
        x: 31
        y: 408
    }

    PanelText {
        height: 12
        text: qsTr("长按")
        width: 207
        x: 30
        y: 430
    }

    MyTextBox {
        showtext: qsTr("开启/关闭批注")
        x: 30
        y: 450
    }
}
