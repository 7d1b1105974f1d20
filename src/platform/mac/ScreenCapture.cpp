// SPDX-License-Identifier: MIT
#include "platform/ScreenCapture.h"

#include "platform/mac/DisplayImage.h"

#include <QtMac>

#include <array>
#include <cstdint>

namespace vexa::platform {

QPixmap captureScreenRect(const QRect &rect) {
    const CGRect area = CGRectMake(rect.left(), rect.top(), rect.right() - rect.left() + 1.0,
                                   rect.bottom() - rect.top() + 1.0);
    std::array<CGDirectDisplayID, 128> displays{};
    std::uint32_t found = 0;
    CGGetDisplaysWithRect(area, static_cast<std::uint32_t>(displays.size()), displays.data(), &found);

    // The rectangle goes to the first display as it is, in global coordinates; on the main display, whose
    // origin is (0, 0), these are its own.
    [[maybe_unused]] const CGRect bounds = CGDisplayBounds(displays.front());
    const CGImageRef image = createDisplayImage(displays.front(), area);
    if (!image)
        return {};
    QPixmap pixmap = QtMac::fromCGImageRef(image);
    CGImageRelease(image);
    return pixmap;
}

} // namespace vexa::platform
