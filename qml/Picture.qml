// SPDX-License-Identifier: MIT
import QtQuick 2.15

// Pictures are stored at three times their size: minified without mipmaps their fine lines would break up.
Image {
    mipmap: true
}
