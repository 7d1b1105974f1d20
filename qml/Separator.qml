// SPDX-License-Identifier: MIT
import QtQuick 2.15
import "."

Rectangle {
    color: Look.line
    height: 1
    width: 206
}
