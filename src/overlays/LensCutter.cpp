// SPDX-License-Identifier: MIT
#include "overlays/LensCutter.h"

#include <QPainter>

namespace vexa {

QPixmap LensCutter::cut(const QPixmap &picture, const QRect &source, const Disc &disc) {
    // To QPixmap::copy() a rectangle without area is the whole picture.
    const QRect inside = source & QRect(QPoint(), picture.size());
    if (source.isEmpty() || inside.isEmpty())
        return {};
    QPixmap piece = picture.copy(inside);
    piece.setMask(maskOf(piece.size(), disc));
    return piece;
}

const QBitmap &LensCutter::maskOf(const QSize &size, const Disc &disc) {
    if (m_mask.size() == size && m_disc.square == disc.square && m_disc.radius == disc.radius)
        return m_mask;
    m_mask = QBitmap(size);
    m_disc = disc;
    m_mask.fill(Qt::white);
    QPainter painter(&m_mask);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(disc.square, disc.radius, disc.radius, Qt::AbsoluteSize);
    return m_mask;
}

} // namespace vexa
