// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A picture, which is decoded only while it is in sight: most of them belong to views that are closed at the start.
// It has two or three times the pixels of its place and is drawn for linear filtering without mipmaps: halved, a pixel
// is the mean of four; at a third, it is one of nine, which holds the mean of its neighbours.
Image {
    property string file
    property bool inSight: visible

    smooth: true
    source: inSight ? file : ""
}
