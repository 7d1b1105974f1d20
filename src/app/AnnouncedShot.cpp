// SPDX-License-Identifier: MIT
#include "app/AnnouncedShot.h"

#include "overlays/PromptCard.h"
#include "platform/ScreenCapture.h"

#include <utility>

namespace vexa {

namespace {

constexpr int lookInterval = 8; // milliseconds
constexpr int tileSize = 20;    // device pixels
/// One more than needed: a window may clear an area before it paints it.
constexpr int enoughClearLooks = 2;

QImage lookAt(const QRect &area) {
    return platform::captureScreenRect(area).toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

AnnouncedShot::AnnouncedShot(PromptCard &prompt, std::function<void()> shoot,
                             std::chrono::milliseconds longestWait)
    : m_prompt(prompt), m_shoot(std::move(shoot)), m_longestWait(longestWait) {}

AnnouncedShot::~AnnouncedShot() {
    if (m_looks.isActive())
        m_shoot();
}

void AnnouncedShot::take() {
    if (m_looks.isActive())
        return;
    const bool covers = m_prompt.isSeen();
    if (covers) {
        m_area = m_prompt.geometry();
        m_covered = lookAt(m_area);
    }
    m_prompt.holdBack();
    m_prompt.showWithTimer();
    if (!covers) {
        shootNow();
        return;
    }
    m_clearLooks = 0;
    m_deadline = QDeadlineTimer(m_longestWait);
    m_looks.start(lookInterval, Qt::PreciseTimer, this);
}

void AnnouncedShot::timerEvent(QTimerEvent * /*event*/) {
    m_clearLooks = uncovered() ? m_clearLooks + 1 : 0;
    if (m_clearLooks >= enoughClearLooks || m_deadline.hasExpired())
        shootNow();
}

void AnnouncedShot::shootNow() {
    m_looks.stop();
    m_shoot();
    m_prompt.letOut();
}

/// The windows below the prompt repaint when they get to it, and no event tells when all of them have. Where
/// one has not, the screen still shows the prompt: so every tile must differ from the picture with the
/// prompt.
bool AnnouncedShot::uncovered() const {
    const QImage now = lookAt(m_area);
    const QRect all = now.rect() & m_covered.rect();
    for (int y = 0; y < all.height(); y += tileSize)
        for (int x = 0; x < all.width(); x += tileSize) {
            const QRect tile = QRect(x, y, tileSize, tileSize) & all;
            if (now.copy(tile) == m_covered.copy(tile))
                return false;
        }
    return true;
}

} // namespace vexa
