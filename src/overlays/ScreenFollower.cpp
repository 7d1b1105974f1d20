// SPDX-License-Identifier: MIT
#include "overlays/ScreenFollower.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace vexa {

ScreenFollower::ScreenFollower(std::function<void()> changed) {
    watch();
    look();
    m_changed = std::move(changed);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] {
        watch();
        look();
    });
}

void ScreenFollower::watch() {
    disconnect(m_watched);
    // Queued: a change of resolution moves one screen after the other.
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        m_watched = connect(
            screen, &QScreen::geometryChanged, this, [this] { look(); }, Qt::QueuedConnection);
}

void ScreenFollower::look() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen || (screen->geometry() == m_geometry && screen->devicePixelRatio() == m_ratio))
        return;
    m_geometry = screen->geometry();
    m_ratio = screen->devicePixelRatio();
    if (m_changed)
        m_changed();
}

} // namespace vexa
