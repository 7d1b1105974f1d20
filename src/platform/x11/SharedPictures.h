// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/SegmentStore.h"

#include <QBasicTimer>
#include <QImage>
#include <QObject>
#include <QRect>

#include <chrono>
#include <memory>

namespace vexa::platform {

/// Takes pictures of the X screen which the server writes into shared memory: some ten times quicker than
/// through the socket. A picture is an ordinary image; it may be copied, passed to another thread and outlive
/// this object, and its memory serves the next picture when the last copy has gone. Memory that waits too
/// long for that goes back to the system. GUI thread; needs the toolkit's X connection.
class SharedPictures : public QObject {
public:
    /// Memory is given back when it has waited for one to two of these spans.
    SharedPictures(std::chrono::milliseconds patience, QObject *parent);

    /// What the root window shows there, in device pixels; nothing outside of it may be asked for. Null when
    /// the server cannot share memory or keeps its pixels in another form than the toolkit.
    QImage take(const QRect &pixels);

    /// How much memory waits for the next picture, in bytes.
    std::size_t keptBytes() const;

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    const std::chrono::milliseconds m_patience;
    const bool m_usable;
    const std::shared_ptr<SegmentStore> m_store; ///< shared with the pictures that are out
    QBasicTimer m_tidying;
};

} // namespace vexa::platform
