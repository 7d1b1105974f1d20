// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// The view of key 4: the action of its single press, the tool that its long press holds, and that tool's settings. It
// emits the panel's own qmlSignal1, which it reaches by scope.
Rectangle {
    id: root

    property string borderColor: Look.line
    property int btnID: 0
    property bool checked: false
    property int tool: 0
    readonly property var toolViews: [spotlight, magnifier, laser]

    function setvalue(id1, var1, var2) {
        if (id1 === ViewMessage.Key4C) {
            clickList.currentIndex = var1
        } else if (id1 === ViewMessage.Key4P) {
            longPressList.currentIndex = var1
            showTool(var1)
        } else {
            for (const view of toolViews)
                view.setvalue(id1, var1, var2)
        }
    }

    function showTool(code) {
        if (!(code in toolViews))
            return
        tool = code
        toolViews.forEach((view, i) => view.setvalue(ViewMessage.Key4P, code, i === code))
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

        onActivated: index => qmlSignal1(ViewMessage.Key4C, index, 0)
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
            root.setvalue(ViewMessage.Key4P, index, true)
            qmlSignal1(ViewMessage.Key4P, index, 0)
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
