// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

namespace vexa::platform {

/// A picture of which every byte is 0, in memory that is cheap when it is large: pages that are never written
/// are never allocated, and the others come as huge pages where the system has them. The memory goes back to
/// the system with the last copy of the picture. Size in device pixels; null when there is no memory. Any
/// thread.
QImage clearPicture(const QSize &pixels, QImage::Format format);

/// Gives back to the system what any part of the program has freed and the allocator still keeps. Takes
/// about a millisecond. Any thread.
void returnFreedMemory();

} // namespace vexa::platform
