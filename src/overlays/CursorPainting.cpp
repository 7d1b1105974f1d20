// SPDX-License-Identifier: MIT
#include "overlays/CursorPainting.h"

namespace vexa {
namespace {

// Where the tip of the usual arrow lies within its picture.
constexpr QPoint arrowTip(4, 3);
constexpr QRgb opaqueBlack = 0xFF000000;

bool isPainted(QRgb word) {
    return word == opaqueBlack || (word & RGB_MASK) != 0;
}

} // namespace

void paintCursor(QImage &screen, const QRect &area, const QImage &cursor, const QSize &size,
                 const QPoint &pointer) {
    if (screen.isNull() || cursor.isNull())
        return;
    const QPoint offset = pointer - area.topLeft() - arrowTip;

    // The first column and row stay free, as the window test is strict.
    const QRect window = QRect(1, 1, area.width() - 1, area.height() - 1) & screen.rect();
    const QRect target = QRect(offset, size.boundedTo(cursor.size())) & window;
    for (int y = target.top(); y <= target.bottom(); ++y) {
        const auto *words = reinterpret_cast<const QRgb *>(cursor.constScanLine(y - offset.y()));
        for (int x = target.left(); x <= target.right(); ++x) {
            const QRgb word = words[x - offset.x()];
            if (isPainted(word))
                screen.setPixel(x, y, word);
        }
    }
}

} // namespace vexa
