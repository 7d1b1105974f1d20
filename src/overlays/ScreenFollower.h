// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>

#include <functional>

namespace vexa {

/// Signals when the primary screen has become another one, or has another size, place or scale, after the
/// toolkit has handled the change of all screens. GUI thread only.
class ScreenFollower : public QObject {
public:
    explicit ScreenFollower(std::function<void()> changed);

private:
    void look();

    std::function<void()> m_changed;
    QRect m_geometry; // points
    qreal m_ratio = 0;
};

} // namespace vexa
