// SPDX-License-Identifier: MIT
#include "platform/Activation.h"
#include "platform/x11/activation/ApplicationService.h"
#include "platform/x11/activation/BusLink.h"
#include "platform/x11/activation/DisplayOwnership.h"
#include "platform/x11/activation/LostWindows.h"
#include "platform/x11/activation/TrayIcon.h"
#include "platform/x11/activation/UserRequests.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QtDebug>

#include <stdexcept>
#include <utility>

namespace vexa::platform {

namespace {

using x11::DisplayOwnership;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{2};

/// The claim on the display, held here from the check at the start until the event loop watches it.
std::unique_ptr<DisplayOwnership> claimed;

/// Shows the panel when another instance asks for it, and keeps the display for as long as it lives.
class DisplayWatch : public QObject {
public:
    explicit DisplayWatch(std::unique_ptr<DisplayOwnership> display)
        : m_display(std::move(display)), m_readable(m_display->fd(), QSocketNotifier::Read) {
        connect(&m_readable, &QSocketNotifier::activated, this, &DisplayWatch::read);
        m_display->announceReady();
        read(); // requests that arrived during the start are already in the connection's queue
    }

private:
    void read();

    std::unique_ptr<DisplayOwnership> m_display;
    QSocketNotifier m_readable;
};

void DisplayWatch::read() {
    const DisplayOwnership::News news = m_display->read();
    if (m_display->isBroken()) {
        m_readable.setEnabled(false); // the server has gone; the toolkit ends the program
        return;
    }
    if (news.activated)
        showPanelForUser();
    if (news.lost && !m_display->claim()) {
        qWarning("VexaOrbilo: another instance has taken this display over");
        quitForUser();
    }
}

/// All by which the running program can be reached.
struct Reach {
    explicit Reach(std::unique_ptr<DisplayOwnership> display)
        : watch(std::move(display))
        , bus({offerApplication, [this](sd_bus *connection) { return tray.awaitHostOn(connection); }}) {}

    DisplayWatch watch;
    LostWindows lost;
    TrayIcon tray;
    BusLink bus;
};

std::unique_ptr<Reach> reach;

} // namespace

bool forwardActivation() {
    auto display = DisplayOwnership::open();
    if (!display)
        return false; // no display: prepareSession() reports that
    const auto end = Clock::now() + patience;
    while (!display->claim()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        switch (display->activateOther(left)) {
        case DisplayOwnership::Answer::Activated:
        case DisplayOwnership::Answer::Starting:
            return true;
        case DisplayOwnership::Answer::Gone:
            break;
        case DisplayOwnership::Answer::NoServer:
            return false; // as without a display
        case DisplayOwnership::Answer::Silent:
            throw std::runtime_error("runs on this display already, but does not answer");
        }
    }
    claimed = std::move(display);
    return false;
}

} // namespace vexa::platform

void setupDockClickHandler() {
    using namespace vexa::platform;
    if (!claimed)
        return;
    reach = std::make_unique<Reach>(std::move(claimed));
    qAddPostRoutine([] { reach.reset(); }); // its windows must be destroyed before the application object
}
