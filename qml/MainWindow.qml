// SPDX-License-Identifier: MIT
import QtQuick 2.15

Rectangle {
    id: root

    property bool changeBackgroundcolor: true
    property string text1
    property string text2

    signal qmlSignal(int x, int y, int statrx, int starty)
    signal qmlSignal1(int id, int var1, int var2)

    // The one entry point of the host: hands a value to the view that shows it.
    function setvalue(id1, var1, var2) {
        if (id1 === 1000)
            visible = var1
    }

    function setText1(String1, String2) {
        text1 = String1
        text2 = String2
    }

    width: 999
    height: 650
    color: "#333333"

    // A change made in any view shows everywhere at once, without waiting for the host.
    onQmlSignal1: setvalue(id, var1, var2)
}
