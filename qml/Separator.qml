// SPDX-License-Identifier: MIT
import QtQuick 2.15

Rectangle {
    color: "#707070"
    height: 1
    width: 206
}
