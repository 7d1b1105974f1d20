// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>
#include <QSize>

#include <vector>

namespace vexa {

/// Collects changed pixels into squares, so that a thousand single pixels become a handful of rectangles.
/// Pixels in, points out. Any thread.
class DamageTiles {
public:
    explicit DamageTiles(const QSize &pixels);

    void add(int x, int y) {
        const int tile = (y >> shift) * m_columns + (x >> shift);
        const auto index = static_cast<std::size_t>(tile);
        if (m_damaged[index])
            return;
        m_damaged[index] = true;
        m_list.push_back(tile);
    }

    /// The squares since the last call, in points.
    QRegion take(qreal devicePixelRatio);

private:
    static constexpr int shift = 5;

    int m_columns;
    std::vector<bool> m_damaged;
    std::vector<int> m_list;
};

} // namespace vexa
