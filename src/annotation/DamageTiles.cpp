// SPDX-License-Identifier: MIT
#include "annotation/DamageTiles.h"

#include <algorithm>

namespace vexa {

DamageTiles::DamageTiles(const QSize &pixels)
    : m_columns((pixels.width() >> shift) + 1)
    , m_damaged(static_cast<std::size_t>(m_columns) *
                static_cast<std::size_t>((pixels.height() >> shift) + 1)) {}

QRegion DamageTiles::take(qreal devicePixelRatio) {
    constexpr int side = 1 << shift;
    // Sorted, neighbours in a row become one rectangle and the rectangles come in the order a region wants.
    std::sort(m_list.begin(), m_list.end());
    QRegion region;
    for (auto first = m_list.begin(); first != m_list.end();) {
        auto last = first;
        for (auto next = first + 1; next != m_list.end() && *next == *last + 1 && *next % m_columns != 0;
             ++next)
            last = next;
        const int row = *first / m_columns;
        const QRectF pixels((*first % m_columns) * side, row * side, (*last - *first + 1) * side, side);
        region +=
            QRectF(pixels.topLeft() / devicePixelRatio, pixels.size() / devicePixelRatio).toAlignedRect();
        first = last + 1;
    }
    for (const int tile : m_list)
        m_damaged[static_cast<std::size_t>(tile)] = false;
    m_list.clear();
    return region;
}

} // namespace vexa
