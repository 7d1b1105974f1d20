// SPDX-License-Identifier: MIT
import QtQuick 2.15

// The view of a key whose single press is fixed and whose long press runs an action of choice.
Rectangle {
    id: root

    property var actions: []
    property int btnID: 0
    property bool checked: false
    property string clickCaption
    property string clickText
    property alias frame: picture.file
    property string longPressCaption
    property int messageId

    signal qmlSignal1(int id, int var1, int var2)

    function setvalue(id1, var1, var2) {
        if (id1 === messageId)
            list.currentIndex = var1
    }

    color: "transparent"
    height: 188
    width: 257

    Picture {
        id: picture

        anchors.fill: parent
        fillMode: Image.PreserveAspectFit
    }

    PanelText {
        height: 12
        text: root.clickCaption
        width: 72
        x: 20
        y: 22
    }

    MyTextBox {
        showtext: root.clickText
        x: 20
        y: 42
    }

    Separator {
        x: 21
        y: 94
    }

    PanelText {
        height: 12
        text: root.longPressCaption
        width: 104
        x: 20
        y: 116
    }

    ComboxControl {
        id: list

        name: root.longPressCaption
        texts: root.actions
        x: 20
        y: 136

        onActivated: index => root.qmlSignal1(root.messageId, index, 0)
    }
}
