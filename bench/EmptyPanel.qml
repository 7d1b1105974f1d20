// SPDX-License-Identifier: MIT
// What the panel's start is measured against: the panel's imports and nothing of the panel.
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1
import QtQuick.Templates 2.15

Rectangle {
    color: "#333333"
    height: 650
    width: 999
}
