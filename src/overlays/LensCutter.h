// SPDX-License-Identifier: MIT
#pragma once

#include <QBitmap>
#include <QPixmap>
#include <QRect>

namespace vexa {

/// A disc inside a cut-out piece of a picture, in the piece's pixels.
struct Disc {
    QRect square; // around the disc; may begin outside the piece
    double radius;
};

/// Cuts round pieces out of a picture. Keeps the last mask, as a moving lens nearly always asks for the same,
/// and the next one, too. GUI thread.
class LensCutter {
public:
    /// The one of all windows of a class: a first mask takes as long as cutting and enlarging together. Never
    /// destroyed, as its picture would be after the application.
    template<typename Window> static LensCutter &of() {
        static auto *const theOne = new LensCutter;
        return *theOne;
    }

    /// What lies in `source` of the picture, both in pixels, transparent outside the disc. Where `source`
    /// leaves the picture the piece is smaller, and begins where the picture does; null where nothing is
    /// left.
    QPixmap cut(const QPixmap &picture, const QRect &source, const Disc &disc);

private:
    const QBitmap &maskOf(const QSize &size, const Disc &disc);

    QBitmap m_mask;
    Disc m_disc{};
};

} // namespace vexa
