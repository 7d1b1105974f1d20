// SPDX-License-Identifier: MIT
import QtQuick 2.15
import QtQuick.Window 2.15

// Opens and closes a view. The group it is given to keeps at most one view open.
GroupButton {
    id: root

    property int direction: 0 // 0 left, 1 right
    property string iconleftnormal: "qrc:/icon-left@3x.png"
    property string iconleftsel: "qrc:/icon-left-selected@3x.png"
    property string iconrightnormal: "qrc:/icon-right@3x.png"
    property string iconrightsel: "qrc:/icon-right-selected@3x.png"
    property string seticon: "qrc:/icon-setting@3x.png"
    property int style: 0 // 0 arrow, 1 gear
    property Item view: null // what it opens

    function isInside(ancestor, item) {
        while (item && item !== ancestor)
            item = item.parent
        return item === ancestor
    }

    function icon() {
        if (style === 1)
            return seticon
        if (direction === 0)
            return checked ? iconleftsel : iconleftnormal
        return checked ? iconrightsel : iconrightnormal
    }

    height: 24
    toggles: true
    width: 24

    // Opened with the keyboard, a view takes it; closed, it gives it back.
    onCheckedChanged: {
        if (!view)
            return
        const hadFocus = isInside(checked ? root : view, Window.activeFocusItem)
        view.visible = checked
        if (!hadFocus)
            return
        if (checked)
            view.nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
        else
            takeFocus()
    }

    Picture {
        fillMode: Image.Pad
        file: root.icon()
    }
}
