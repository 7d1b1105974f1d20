// SPDX-License-Identifier: MIT
import QtQuick 2.15

// Pictures have two or three times the pixels of their place. They are drawn for linear filtering without mipmaps:
// halved, it takes the mean of four pixels; at a third, one pixel, which holds the mean of its nine neighbours.
Image {
    smooth: true
}
