// SPDX-License-Identifier: MIT
// What the panel's start is measured against: the panel's imports and nothing of the panel.
import QtGraphicalEffects 1.15
import QtQuick 2.15
import QtQuick.Controls 1.4 as Controls1
import QtQuick.Controls 2.15

Rectangle {
    color: "#333333"
    height: 650
    width: 999
}
