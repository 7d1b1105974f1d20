// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/SharedSegment.h"

#include <QImage>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>

struct xcb_connection_t;

namespace vexa::platform {

/// Moves pictures from the X screen and onto its windows, band by band through a little memory that the
/// server shares with this process: while one side works on a band, the other works on the next. Quicker than
/// the socket, and than sharing the memory of a whole picture: fresh pages cost more than all the copying.
/// Sizes in device pixels. GUI thread; uses the toolkit's X connection.
class ScreenBands {
public:
    /// The application's own. Null where pictures cannot be moved like this: the display of another machine,
    /// no MIT-SHM, pixels of another form than the toolkit's.
    static ScreenBands *instance();

    /// What the root window shows there at one moment; the place has to be inside of it. Null when the server
    /// refuses, or there is no memory.
    QImage take(const QRect &place) const;

    /// Has the whole of a window painted, which must be on the screen. `paint` is called for each band: it
    /// fills the whole picture, which is as wide as the window, and is told the row of the window where the
    /// picture begins. That row is a multiple of `step`, and so is each band's height if the window's is.
    /// Bands of a lower rank come first. Waits for the server. Returns the sequence number of the first
    /// request; nothing, without a call of `paint`, when the window's pixels are of another form than the
    /// toolkit's, or too wide for a band.
    using Rank = std::function<int(int top, int rows)>;
    using Paint = std::function<void(QImage &band, int top)>;
    std::optional<quint32> show(quint32 window, const QSize &size, int step, const Rank &rank,
                                const Paint &paint) const;

private:
    ScreenBands(xcb_connection_t *connection, std::unique_ptr<SharedSegment> segment)
        : m_connection(connection), m_segment(std::move(segment)) {}

    static std::unique_ptr<ScreenBands> create();

    xcb_connection_t *const m_connection;
    const std::unique_ptr<SharedSegment> m_segment;
};

} // namespace vexa::platform
