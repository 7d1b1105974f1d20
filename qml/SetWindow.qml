// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// The settings that belong to no key: start at login and language; and who made this.
Rectangle {
    id: root

    readonly property string webSite: "https://www.vexa.example/"

    component SeparatorLine: Separator {
        width: 207
        x: 20
    }
    component SmallPrint: PanelText {
        color: Look.value
        pixelSize: 9
        horizontalAlignment: Text.AlignHCenter
        width: 210
        x: 19
    }

    signal qmlSignal1(int id, int var1, int var2)

    function setvalue(id1, var1, var2) {
        if (id1 === ViewMessage.Language)
            set_language_combox.currentIndex = var1
        else if (id1 === ViewMessage.AutoStart)
            rootswitch.myChecked = var1
    }

    color: "transparent"
    height: 188
    width: 257

    Picture {
        anchors.fill: parent
        file: "qrc:/frame-setting.png"
    }

    PanelText {
        bold: true
        pixelSize: Look.title
        text: qsTr("设置")
        width: 207
        x: 20
        y: 23
    }

    SeparatorLine {
        y: 54
    }

    PanelText {
        text: qsTr("开机自启动")
        width: 160
        x: 20
        y: 78
    }

    SwitchControl {
        id: rootswitch

        name: qsTr("开机自启动")
        x: 189
        y: 74

        onClicked: root.qmlSignal1(ViewMessage.AutoStart, !myChecked, 0)
    }

    SeparatorLine {
        y: 114
    }

    PanelText {
        text: qsTr("语言")
        width: 62
        x: 20
        y: 136
    }

    ComboxControl {
        id: set_language_combox

        property bool canChangeIndex: true
        property int oldIndex: 0

        font.pixelSize: 12
        name: qsTr("语言")
        texts: [qsTr("简体中文"), qsTr("繁体中文"), qsTr("英语")]
        width: 140
        x: 87
        y: 129

        // Changing the language rebuilds the texts, and a second change of the index may come with that: it is none
        // of the user's and must not be answered.
        onCurrentIndexChanged: {
            if (canChangeIndex) {
                canChangeIndex = false
                oldIndex = currentIndex
                root.qmlSignal1(ViewMessage.Language, currentIndex, 0)
                language_switch_timer.start()
            } else {
                currentIndex = oldIndex
            }
        }
    }

    Timer {
        id: language_switch_timer

        interval: 100
        repeat: false
        triggeredOnStart: true

        onTriggered: set_language_combox.canChangeIndex = true
    }

    SeparatorLine {
        y: 174
    }

    PanelText {
        text: qsTr("版本")
        width: 100
        x: 20
        y: 198
    }

    PanelText {
        color: Look.value
        horizontalAlignment: Text.AlignRight
        text: qsTr("2.0.0.0")
        width: 100
        x: 127
        y: 199
    }

    SeparatorLine {
        y: 234
    }

    SmallPrint {
        bold: true
        height: 12
        text: qsTr("请访问Vexa官网以获得更多支持")
        underline: true
        y: 326

        ClickArea {
            Accessible.name: parent.text
            Accessible.role: Accessible.Link
            onTriggered: Qt.openUrlExternally(root.webSite)
        }
    }

    SmallPrint {
        height: 21
        text: qsTr("版权所有 © 2019-2021 维克萨科技有限公司")
        wrapMode: Text.WordWrap
        y: 345
    }
}
