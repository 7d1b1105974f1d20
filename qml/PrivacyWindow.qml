// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

// The guide: which permissions of the system the program needs. The button says whether to show it again.
Rectangle {
    id: root

    signal qmlSignal(int id, int var1)

    component Permission: PanelText {
        pixelSize: 10
        width: 400
        x: 59
    }

    color: "transparent"
    height: 300
    width: 494

    Picture {
        anchors.fill: parent
        file: "qrc:/pri_bg@3x.png"
    }

    Picture {
        height: 54
        file: "qrc:/setting@3x.png"
        width: 54
        x: 17
        y: 25
    }

    PanelText {
        pixelSize: Look.title
        fontSizeMode: Text.Fit // the English sentence takes two lines
        minimumPixelSize: 9
        height: 33
        text: qsTr("由于系统隐私要求，请授权以下权限")
        width: 291
        wrapMode: Text.WordWrap
        x: 79
        y: 39
    }

    Picture {
        height: 122
        file: "qrc:/pri_frame@3x.png"
        width: 454
        x: 20
        y: 86
    }

    Permission {
        text: qsTr("辅助功能")
        y: 97
    }

    Permission {
        text: qsTr("输入监听")
        y: 127
    }

    Permission {
        text: qsTr("完全磁盘访问权限")
        y: 157
    }

    Permission {
        text: qsTr("屏幕录制")
        y: 187
    }

    PanelText {
        text: qsTr("重新安装需重新授权")
        width: 454
        x: 20
        y: 218
    }

    CheckLine {
        id: never

        text: qsTr("下次不再提示")
        x: 20
        y: 256
    }

    Item {
        height: 32
        width: 88
        x: 386
        y: 248

        Picture {
            anchors.fill: parent
            file: "qrc:/button@3x.png"
        }

        Rectangle {
            anchors.fill: parent
            border.color: "white"
            border.width: confirm.activeFocus ? 1 : 0
            color: confirm.pressed ? "#30000000" : confirm.containsMouse ? "#30FFFFFF" : "transparent"
            radius: 5
        }

        PanelText {
            id: confirmText

            anchors.fill: parent
            color: Look.ground
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("确定")
        }

        ClickArea {
            id: confirm

            Accessible.name: confirmText.text
            Accessible.role: Accessible.Button
            onTriggered: root.qmlSignal(never.checked ? 1 : 0, 0)
        }
    }
}
