// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "platform/GraphicsCard.h"
#include "platform/SessionInput.h"
#include "platform/x11/DescriptorLimit.h"
#include "platform/x11/DesktopScale.h"
#include "platform/x11/ThreadLimit.h"
#include "platform/x11/ToolkitEnvironment.h"
#include "platform/x11/activation/SessionBus.h"
#include "platform/x11/input/Connection.h"

#include <QAccessible>
#include <QByteArray>
#include <QGuiApplication>
#include <QOpenGLContext>
#include <QScreen>
#include <QX11Info>
#include <QtDebug>

#include <stdexcept>

#include <xcb/xcb.h>

namespace vexa::platform {

namespace {

constexpr std::chrono::seconds busPatience{2};

/// The pen is read from the X server, so the windows belong there too, whatever other session the toolkit
/// would choose. It aborts with a core dump where it is told to use a platform that it has no plug-in for.
void keepWindowsOnTheXServer() {
    const QByteArray usersChoice = qgetenv("QT_QPA_PLATFORM");
    if (usersChoice == "xcb" || usersChoice.startsWith("xcb:"))
        return;
    if (!usersChoice.isEmpty())
        qWarning("VexaOrbilo: uses the X server, where the pen is heard, and not QT_QPA_PLATFORM=%s",
                 usersChoice.constData());
    tellToolkit("QT_QPA_PLATFORM", "xcb");
}

/// The toolkit asks the bus for screen readers and trays while it starts, each time for as long as the bus
/// pleases. Where there is none it would even start one, and leave it behind when the program ends.
void keepToolkitFromWaitingForTheBus() {
    const x11::BusState bus = x11::askSessionBus(busPatience);
    if (bus == x11::BusState::Answers)
        return;
    if (bus == x11::BusState::Silent)
        qWarning(
            "VexaOrbilo: the session bus does not answer; no tray and no screen reader until the next start");
    tellToolkit("DBUS_SESSION_BUS_ADDRESS", "disabled:");
}

/// The toolkit prepares OpenGL for a window that might show it, and on the processor that is 90 MiB.
void keepToolkitFromOpenGlWithoutACard() {
    if (!graphicsCardDraws())
        tellToolkitUnlessUserDoes("QT_XCB_GL_INTEGRATION", "none");
}

/// With more the toolkit asks for windows that no server can have, and crashes; it takes nonsense for none.
bool userHasUsableScale() {
    constexpr double largest = 10;
    bool isNumber = false;
    const double scale = qgetenv("QT_SCALE_FACTOR").toDouble(&isNumber);
    return isNumber && scale > 0 && scale <= largest;
}

} // namespace

void prepareSession() {
    claimDescriptors();
    requireThreads();
    // Looked at first, since the toolkit aborts with a core dump where there is no display.
    if (const std::string obstacle = sessionInputObstacle(); !obstacle.empty())
        throw std::runtime_error(obstacle);

    if (penOutOfReach())
        qWarning("VexaOrbilo: this is a Wayland session, in which the pen cannot be heard; an X11 session is "
                 "needed");
    keepWindowsOnTheXServer();
    keepToolkitFromWaitingForTheBus();
    keepToolkitFromOpenGlWithoutACard();
    // The texts are sized in points of macOS, where a point is a pixel of the layout, also of a scaled one.
    // The toolkit then no longer sees the desktop's own resolution, by which it would enlarge everything.
    tellToolkit("QT_FONT_DPI", "72");
    tellToolkit("QT_DPI_ADJUSTMENT_POLICY", "AdjustDpi");
    if (!userHasUsableScale())
        tellToolkit("QT_SCALE_FACTOR", QByteArray::number(desktopScale()));
}

void releaseEnvironment() {
    // What the toolkit reads only when it is first needed, it is made to read now: how the resolution follows
    // the scale, which bus it finds screen readers on, and how it comes to OpenGL.
    [[maybe_unused]] const qreal resolution = QGuiApplication::primaryScreen()->logicalDotsPerInch();
    [[maybe_unused]] const bool read = QAccessible::isActive();
    [[maybe_unused]] const bool threaded = QOpenGLContext::supportsThreadedOpenGL();
    restoreUserEnvironment();
}

bool penOutOfReach() {
    return qgetenv("XDG_SESSION_TYPE") == "wayland" || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool displayIsLost() {
    if (!QX11Info::isPlatformX11())
        return false;
    // Of a server that has just gone, the toolkit's connection may not know yet.
    return xcb_connection_has_error(QX11Info::connection()) != 0 || !x11::Connection::open();
}

} // namespace vexa::platform
