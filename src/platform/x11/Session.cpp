// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "platform/SessionInput.h"

#include <QByteArray>
#include <X11/Xlib.h>
#include <malloc.h>
#include <stdexcept>

namespace vexa::platform {

namespace {

constexpr double usualDpi = 96;

/// How much larger than usual the desktop wants everything, in whole steps; 1 where it does not say.
int desktopScale() {
    Display *const display = XOpenDisplay(nullptr);
    if (!display)
        return 1;
    const int scale = qRound(QByteArray(XGetDefault(display, "Xft", "dpi")).toDouble() / usualDpi);
    XCloseDisplay(display);
    return qMax(scale, 1);
}

/// Pictures of the screen come and go. Left to itself the allocator raises these limits to the size of the
/// first one that goes, and from then on a picture or two stay with the process, or not, as it happens. The
/// first limit is above a picture of a usual screen, which is then made in memory that is at hand: fresh
/// pages cost a third of the time from the key to the dot. Larger ones, and what is too much, go back to the
/// system.
void giveFreedPicturesBackToTheSystem() {
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, 16 << 20); // bytes
    mallopt(M_TRIM_THRESHOLD, 32 << 20);
#endif
}

void setUnlessTheUserHas(const char *name, const QByteArray &value) {
    if (!qEnvironmentVariableIsSet(name))
        qputenv(name, value);
}

} // namespace

void prepareSession() {
    // Looked at first, since the toolkit aborts with a core dump where there is no display.
    if (const std::string obstacle = sessionInputObstacle(); !obstacle.empty())
        throw std::runtime_error(obstacle);

    giveFreedPicturesBackToTheSystem();

    // The pen is heard through the X server, so the windows belong there too, also where a Wayland session
    // offers itself to the toolkit.
    setUnlessTheUserHas("QT_QPA_PLATFORM", "xcb");
    // The texts are sized in points of macOS, where a point is a pixel of the layout, also of a scaled one.
    // The toolkit then no longer sees the desktop's own resolution, by which it would enlarge everything.
    qputenv("QT_FONT_DPI", "72");
    qputenv("QT_DPI_ADJUSTMENT_POLICY", "AdjustDpi");
    setUnlessTheUserHas("QT_SCALE_FACTOR", QByteArray::number(desktopScale()));
}

} // namespace vexa::platform
