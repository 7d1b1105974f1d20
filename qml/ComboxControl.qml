// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Templates 2.15
import "."

// A list to choose from. Its rows are changed in place when the texts are given again in another language: a new
// model would put the choice back to the first row.
ComboBox {
    id: root

    property string borderColor: "#606060"
    property bool byKeyboard: false // whether the open list was last moved through with the keyboard
    property string fillColor: "#2F2F2F"
    property string icondown: "qrc:/icon-down@3x.png"
    property string iconup: "qrc:/icon-up@3x.png"
    property string name
    readonly property int rowHeight: 30
    property string selectFillColor: "#3D3D3D"
    property var texts: []

    component RowText: PanelText {
        Accessible.ignored: true
        color: Look.value
        height: root.rowHeight
        leftPadding: 10
        pixelSize: root.font.pixelSize
    }

    currentIndex: 0
    font.family: "Arial"
    font.pixelSize: Look.caption
    height: rowHeight
    leftPadding: 0
    padding: 0
    rightPadding: 0
    textRole: "label"
    width: 207

    // The toolkit gives screen readers no value of a list.
    Accessible.description: displayText
    Accessible.name: name

    background: Rectangle {
        border.color: root.visualFocus ? Look.accent : root.hovered ? Qt.lighter(root.borderColor, 1.3) : root.borderColor
        border.width: 1
        color: root.fillColor
        radius: 5
    }
    contentItem: RowText {
        rightPadding: 24
        text: root.displayText
    }
    delegate: ItemDelegate {
        id: row

        highlighted: root.highlightedIndex === index
        height: root.rowHeight
        padding: 0
        text: model.label
        width: root.width - 2

        background: Rectangle {
            border.color: Look.accent
            border.width: row.highlighted && root.byKeyboard ? 1 : 0
            color: row.hovered ? root.selectFillColor : root.fillColor
            radius: 4
        }
        contentItem: RowText {
            text: row.text
        }

        onHoveredChanged: {
            if (hovered)
                root.byKeyboard = false
        }
    }
    indicator: Picture {
        fillMode: Image.PreserveAspectFit
        file: root.popup.visible ? root.iconup : root.icondown
        width: 12
        x: root.width - 20
        y: (root.height - height) / 2
    }
    model: ListModel {
        id: rows
    }
    popup: Popup {
        height: root.count * root.rowHeight + 2
        padding: 1
        width: root.width
        y: root.height

        background: Rectangle {
            border.color: root.borderColor
            border.width: 1
            color: root.fillColor
            radius: 5
        }
        contentItem: ListView {
            currentIndex: root.highlightedIndex
            highlightMoveDuration: 0
            interactive: false // all rows are visible: there is nothing to flick
            model: root.delegateModel
        }
    }

    Keys.onPressed: byKeyboard = true
    onPressedChanged: {
        if (pressed)
            byKeyboard = false
    }
    onTextsChanged: {
        for (let i = 0; i < texts.length; ++i)
            rows.set(i, { "label": texts[i] })
    }
}
