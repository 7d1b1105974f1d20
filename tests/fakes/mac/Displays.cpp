// SPDX-License-Identifier: MIT
#include "fakes/mac/Displays.h"

#include <QtMac>

#include <cstdlib>

struct CGImage {
    QImage picture;
};

namespace fakes {

namespace {
Displays *theDisplays = nullptr;
}

Displays::Displays() {
    theDisplays = this;
}
Displays::~Displays() {
    theDisplays = nullptr;
}

Displays &Displays::instance() {
    if (!theDisplays)
        std::abort();
    return *theDisplays;
}

static QRectF toQt(CGRect rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

static const Display *findDisplay(CGDirectDisplayID displayID) {
    for (const Display &display : Displays::instance().connected)
        if (display.id == displayID)
            return &display;
    return nullptr;
}

} // namespace fakes

using namespace fakes;

CGError CGGetDisplaysWithRect(CGRect rect, std::uint32_t maxDisplays, CGDirectDisplayID *displays,
                              std::uint32_t *matchingDisplayCount) {
    Displays &desktop = Displays::instance();
    desktop.searched.push_back(toQt(rect));
    desktop.roomOffered = maxDisplays;
    *matchingDisplayCount = 0;
    for (const Display &display : desktop.connected)
        if (display.bounds.intersects(toQt(rect)) && *matchingDisplayCount < maxDisplays)
            displays[(*matchingDisplayCount)++] = display.id;
    return kCGErrorSuccess;
}

CGRect CGDisplayBounds(CGDirectDisplayID displayID) {
    Displays::instance().boundsRead.push_back(displayID);
    const Display *const display = findDisplay(displayID);
    if (!display)
        return CGRectMake(0, 0, 0, 0);
    const QRectF &bounds = display->bounds;
    return CGRectMake(bounds.x(), bounds.y(), bounds.width(), bounds.height());
}

// Found by its name at run time only, so no header declares it.
extern "C" CGImageRef CGDisplayCreateImageForRect(CGDirectDisplayID displayID, CGRect rect);
CGImageRef CGDisplayCreateImageForRect(CGDirectDisplayID displayID, CGRect rect) {
    Displays &desktop = Displays::instance();
    desktop.captured.push_back({displayID, toQt(rect)});
    const Display *const display = findDisplay(displayID);
    if (!display)
        return nullptr;
    const double scale = display->picture.width() / display->bounds.width();
    const QRectF wanted(rect.origin.x * scale, rect.origin.y * scale, rect.size.width * scale,
                        rect.size.height * scale);
    const QRect visible = wanted.toRect() & display->picture.rect();
    if (visible.isEmpty())
        return nullptr;
    ++desktop.imagesAlive;
    return new CGImage{display->picture.copy(visible)};
}

void CGImageRelease(CGImageRef image) {
    if (!image)
        return;
    --Displays::instance().imagesAlive;
    delete image;
}

QPixmap QtMac::fromCGImageRef(CGImageRef image) {
    return QPixmap::fromImage(image->picture);
}
