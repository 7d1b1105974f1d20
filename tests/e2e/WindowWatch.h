// SPDX-License-Identifier: MIT
#pragma once

#include "e2e/Xcb.h"

#include <QHash>
#include <QSet>
#include <QtGlobal>

namespace e2e {

/// Remembers every window that is shown on the display from now on, however briefly: the server reports each
/// in order, while somebody who only looks now and then would miss some.
class WindowWatch {
public:
    WindowWatch();

    /// Whether the window has been shown since this object was made. A managed window counts with its frame.
    bool wasShown(quint32 window);

private:
    void readEvents();

    xcb::Connection m_connection;
    QSet<quint32> m_shown;
    QHash<quint32, quint32> m_frames; ///< the last frame of each window
};

} // namespace e2e
