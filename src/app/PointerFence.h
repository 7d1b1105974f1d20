// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>

#include <algorithm>

namespace vexa {

/// How far, in points, the pointer is kept from the edges of the screen while a held tool follows it: at the
/// very edge the system would stop reporting its moves.
constexpr int pointerMargin = 4;

/// The nearest place to the point that keeps the margin on a screen of this size.
inline QPoint withinMargin(const QPoint &point, const QSize &screen) {
    return {std::min(std::max(point.x(), pointerMargin), screen.width() - pointerMargin),
            std::min(std::max(point.y(), pointerMargin), screen.height() - pointerMargin)};
}

/// Decides whether the pointer is kept inside the primary screen, where the held tool is. A pointer that is
/// on another screen when the tool opens is left alone until the user moves it onto the primary screen; from
/// then on it is kept there. GUI thread only.
class PointerFence {
public:
    /// A held tool opens.
    void raise(bool pointerIsOnAnotherScreen) { m_holds = !pointerIsOnAnotherScreen; }

    /// The pointer has moved. True when it is to be kept inside.
    bool holds(bool pointerIsOnAnotherScreen) {
        m_holds = m_holds || !pointerIsOnAnotherScreen;
        return m_holds;
    }

private:
    bool m_holds = true;
};

} // namespace vexa
