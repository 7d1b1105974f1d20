// SPDX-License-Identifier: MIT
#pragma once

#include "platform/OverlayWindow.h"

#include <QByteArray>
#include <QImage>
#include <QMap>
#include <QStringList>

namespace vexa {

/// A desktop that only writes down what it is asked for. Linked into a test, it takes the place of everything
/// in platform/OverlayWindow.h and platform/ScreenCapture.h. GUI thread only.
struct FakeDesktop {
    QMap<QByteArray, platform::Cover> covers; ///< of the overlays that were shown, by their class
    QStringList done;                         ///< with cards: "shown", "seen" and "unseen"
    QImage screen;                            ///< what a captured piece of the screen shows
    int looks = 0;                            ///< how many pieces were captured
    int openedPanes = 0;                      ///< how often the permission to record was asked for
};

/// The one of this process.
FakeDesktop &fakeDesktop();

} // namespace vexa
