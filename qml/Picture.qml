// SPDX-License-Identifier: MIT
import QtQuick 2.15

// A picture, which is decoded only while it is in sight: most of them belong to views that are closed at the start.
// It has two or three times the pixels of its place, and is scaled with linear filtering and without mipmaps. At half
// its size each pixel on the screen is the mean of four of the picture's. At a third it is the middle one of nine, so
// pictures of three times the size are made such that this pixel is the mean of the nine.
Image {
    property string file
    property bool inSight: visible

    smooth: true
    source: inSight ? file : ""
}
