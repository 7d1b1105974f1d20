// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A view that writes down what its host tells it.
Rectangle {
    property var calls: []
    property bool hostKnownWhenLoaded: true

    signal qmlSignal(int x, int y, int statrx, int starty)
    signal qmlSignal1(int id, int var1, int var2)

    function setvalue(id1, var1, var2) {
        calls.push([id1, var1, var2])
    }

    function forget() {
        calls = []
    }

    function hostTitle() {
        return mainwindow.windowTitle
    }

    Component.onCompleted: hostKnownWhenLoaded = typeof mainwindow !== "undefined"
}
