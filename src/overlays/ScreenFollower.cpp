// SPDX-License-Identifier: MIT
#include "overlays/ScreenFollower.h"

#include "platform/Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace vexa {

ScreenFollower::ScreenFollower(std::function<void()> changed) {
    look();
    m_changed = std::move(changed);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, [this] { look(); });
    // Later: a change of resolution moves one screen after the other.
    platform::whenScreensMove(this, [this] {
        QMetaObject::invokeMethod(
            this, [this] { look(); }, Qt::QueuedConnection);
    });
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
