// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A view that opens over the panel. It is built when it is first opened, or in the background once the panel is on
// the screen, so that the panel does not wait for what nobody sees yet. Values that come earlier are kept for it.
Loader {
    id: root

    property var early: ({})
    property bool opened: false
    property bool panelShown: false
    property string view

    function setvalue(id1, var1, var2) {
        if (item)
            item.setvalue(id1, var1, var2)
        else
            early[id1] = [var1, var2]
    }

    active: opened || panelShown || item !== null
    asynchronous: !opened
    source: view
    visible: opened

    onLoaded: {
        for (const id1 in early)
            item.setvalue(Number(id1), early[id1][0], early[id1][1])
        early = {}
    }
}
