// SPDX-License-Identifier: MIT
import QtQuick 2.15

// The view of key 4: the action of its single press, the tool that its long press holds, and that tool's settings.
Rectangle {
    id: root

    property string borderColor: "#707070"
    property int btnID: 0
    property bool checked: false
    property int tool: 0

    function setvalue(id1, var1, var2) {
        switch (id1) {
        case 2:
        case 3:
            spotlight.setvalue(id1, var1, var2)
            break
        case 4:
        case 5:
            magnifier.setvalue(id1, var1, var2)
            break
        case 6:
        case 7:
            laser.setvalue(id1, var1, var2)
            break
        case 14:
            clickList.currentIndex = var1
            break
        case 15:
            longPressList.currentIndex = var1
            showTool(var1)
            break
        }
    }

    function showTool(code) {
        const views = [spotlight, magnifier, laser]
        if (views[code] === undefined)
            return
        tool = code
        views.forEach((view, i) => view.setvalue(15, code, i === code))
    }

    color: "transparent"
    height: 500
    width: 257

    Picture {
        anchors.fill: parent
        fillMode: Image.PreserveAspectFit
        file: "qrc:/frame-key4.png"
    }

    PanelText {
        height: 12
        text: qsTr("单击")
        width: 72
        x: 20
        y: 22
    }

    ComboxControl {
        id: clickList

        name: qsTr("单击")
        texts: [qsTr("无操作"), qsTr("PPT放映：开始/结束"), qsTr("播放器：暂停/播放"), qsTr("黑板"), qsTr("屏幕截屏")]
        x: 20
        y: 42

        onActivated: index => qmlSignal1(14, index, 0)
    }

    Separator {
        x: 21
        y: 94
    }

    PanelText {
        height: 12
        text: qsTr("长按")
        width: 104
        x: 20
        y: 116
    }

    ComboxControl {
        id: longPressList

        name: qsTr("长按")
        texts: [qsTr("聚光灯"), qsTr("放大镜"), qsTr("数字激光点")]
        x: 20
        y: 136

        onActivated: index => {
            root.setvalue(15, index, true)
            qmlSignal1(15, index, 0)
        }
    }

    PanelText {
        height: 12
        text: [qsTr("聚光灯设置"), qsTr("放大镜设置"), qsTr("数字激光笔设置")][root.tool]
        width: 104
        x: 20
        y: 188
    }

    SportLightSetWindow {
        id: spotlight

        x: 20
        y: 208

        onQmlSignal_spo: (id1, var1, var2) => qmlSignal1(id1, var1, var2)
    }

    MagnifierSetWindow {
        id: magnifier

        visible: false
        x: 20
        y: 208

        onQmlSignal_magnifier: (id1, var1, var2) => qmlSignal1(id1, var1, var2)
    }

    LightpenSetWindow {
        id: laser

        visible: false
        x: 20
        y: 208

        onQmlSignal_lightpen: (id1, var1, var2) => qmlSignal1(id1, var1, var2)
    }
}
