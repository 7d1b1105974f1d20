// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1
import "."

// The panel: the pen between its four keys, what each key does, and a view to change it. The root is all that the host
// knows of the view.
Rectangle {
    id: root

    property bool changeBackgroundcolor: true
    property int key2Action: 1
    property int key3Action: 3
    property int key4Action: 4
    property int key4Tool: 0
    property string text1
    property string text2
    readonly property var actionTexts: [qsTr("无操作"), qsTr("PPT放映：开始/结束"), qsTr("播放器：暂停/播放"), qsTr("黑板"), qsTr("屏幕截屏")]
    readonly property var toolTexts: [qsTr("聚光灯"), qsTr("放大镜"), qsTr("数字激光点")]
    readonly property var viewsByMessage: ({
        [ViewMessage.SportLightTran]: key4Window,
        [ViewMessage.SportLightSize]: key4Window,
        [ViewMessage.MagnifierColor]: key4Window,
        [ViewMessage.MagnifierSize]: key4Window,
        [ViewMessage.LaserPenColor]: key4Window,
        [ViewMessage.LaserPenSize]: key4Window,
        [ViewMessage.PenColor0]: key1Window,
        [ViewMessage.PenColor1]: key1Window,
        [ViewMessage.PenColor2]: key1Window,
        [ViewMessage.PenThickness]: key1Window,
        [ViewMessage.Key2P]: key2Window,
        [ViewMessage.Key3P]: key3Window,
        [ViewMessage.Key4C]: key4Window,
        [ViewMessage.Key4P]: key4Window,
        [ViewMessage.Language]: setWindow,
        [ViewMessage.AutoStart]: setWindow
    })

    signal qmlSignal(int x, int y, int statrx, int starty)
    signal qmlSignal1(int id, int var1, int var2)

    // The host's one entry point: hands a value to the view that shows it, and to the summary.
    function setvalue(id1, var1, var2) {
        const view = viewsByMessage[id1]
        if (view)
            view.setvalue(id1, var1, var2)
        summarise(id1, var1)
        if (id1 === ViewMessage.ShowView)
            visible = var1
    }

    // A code without a text leaves the summary as it is.
    function summarise(id1, code) {
        if (id1 === ViewMessage.Key2P && code in actionTexts)
            key2Action = code
        else if (id1 === ViewMessage.Key3P && code in actionTexts)
            key3Action = code
        else if (id1 === ViewMessage.Key4C && code in actionTexts)
            key4Action = code
        else if (id1 === ViewMessage.Key4P && code in toolTexts)
            key4Tool = code
    }

    function setText1(String1, String2) {
        text1 = String1
        text2 = String2
    }

    color: Look.ground
    focus: true
    height: 650
    width: 999

    // A change made in any view shows everywhere at once, without a round trip through the host.
    onQmlSignal1: (id1, var1, var2) => setvalue(id1, var1, var2)

    Picture {
        anchors.fill: parent
        file: "qrc:/bg@3x.png"
    }

    DragArea {
        anchors.fill: parent

        onDragged: (dx, dy, startx, starty) => root.qmlSignal(dx, dy, startx, starty)
    }

    Shortcut {
        sequence: "Escape"

        onActivated: {
            if (viewGroup.current && viewGroup.current.checked)
                viewGroup.current.checked = false
            else
                root.qmlSignal1(ViewMessage.HidePanel, 0, 0)
        }
    }

    Controls1.ExclusiveGroup {
        id: viewGroup
    }

    KeySummary {
        clickCaption: qsTr("单击")
        clickPosition: Qt.point(608, 518)
        clickText: qsTr("切换画笔颜色")
        endAligned: true
        longPressCaption: qsTr("长按")
        longPressPosition: Qt.point(579, 556)
        longPressText: qsTr("开启/关闭批注")
        title: qsTr("Key 1")
        titlePosition: Qt.point(657, 491)
    }

    KeySummary {
        clickCaption: qsTr("单击")
        clickPosition: Qt.point(296, 518)
        clickText: qsTr("上一页")
        longPressCaption: qsTr("长按")
        longPressPosition: Qt.point(296, 556)
        longPressText: root.actionTexts[root.key2Action]
        title: qsTr("Key 2")
        titlePosition: Qt.point(296, 491)
    }

    KeySummary {
        clickCaption: qsTr("单击")
        clickPosition: Qt.point(608, 116)
        clickText: qsTr("下一页")
        endAligned: true
        longPressCaption: qsTr("长按")
        longPressPosition: Qt.point(506, 154)
        longPressText: root.actionTexts[root.key3Action]
        title: qsTr("Key 3")
        titlePosition: Qt.point(646, 89)
    }

    KeySummary {
        clickCaption: qsTr("单击")
        clickPosition: Qt.point(296, 116)
        clickText: root.actionTexts[root.key4Action]
        longPressCaption: qsTr("长按")
        longPressPosition: Qt.point(296, 154)
        longPressText: root.toolTexts[root.key4Tool]
        title: qsTr("Key 4")
        titlePosition: Qt.point(296, 89)
    }

    KeyButton {
        id: key1Button

        objectName: "key1Button"
        btnID: 1
        direction: 1
        exclusiveGroup: viewGroup
        name: qsTr("Key 1")
        view: key1Window
        x: 679
        y: 457
    }

    Key1Window {
        id: key1Window

        visible: false
        x: 712
        y: 87

        onQmlSignal1: (id, var1, var2) => root.qmlSignal1(id, var1, var2)
    }

    KeyButton {
        id: key2Button

        objectName: "key2Button"
        btnID: 2
        exclusiveGroup: viewGroup
        name: qsTr("Key 2")
        view: key2Window
        x: 296
        y: 457
    }

    Key2Window {
        id: key2Window

        visible: false
        x: 30
        y: 321

        onQmlSignal1: (id, var1, var2) => root.qmlSignal1(id, var1, var2)
    }

    KeyButton {
        id: key3Button

        objectName: "key3Button"
        btnID: 3
        direction: 1
        exclusiveGroup: viewGroup
        name: qsTr("Key 3")
        view: key3Window
        x: 679
        y: 196
    }

    Key3Window {
        id: key3Window

        visible: false
        x: 712
        y: 87

        onQmlSignal1: (id, var1, var2) => root.qmlSignal1(id, var1, var2)
    }

    KeyButton {
        id: key4Button

        objectName: "key4Button"
        btnID: 4
        exclusiveGroup: viewGroup
        name: qsTr("Key 4")
        view: key4Window
        x: 296
        y: 196
    }

    Key4Window {
        id: key4Window

        visible: false
        x: 30
        y: 87
    }

    KeyButton {
        id: setButton

        objectName: "setButton"
        exclusiveGroup: viewGroup
        height: 18
        name: qsTranslate("SetWindow", "设置")
        style: 1
        view: setWindow
        width: 18
        x: 951
        y: 598
    }

    SetWindow {
        id: setWindow

        height: 390
        visible: false
        width: 247
        x: 722
        y: 207

        onQmlSignal1: (id, var1, var2) => root.qmlSignal1(id, var1, var2)
    }

    TitleButton {
        icon: "qrc:/icon-minus.png"
        name: qsTr("最小化")
        x: 919
        y: 12

        onClicked: root.qmlSignal1(ViewMessage.HidePanel, 0, 0)
    }

    TitleButton {
        icon: "qrc:/icon-X.png"
        name: qsTr("关闭")
        x: 955
        y: 12

        onClicked: root.qmlSignal1(ViewMessage.HidePanel, 0, 0)
    }
}
