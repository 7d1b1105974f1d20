// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>

namespace vexa {

/// Has made ready what the first tool needs for its picture of the screen, so that it opens as fast as all
/// others: from the first iteration of the event loop on, a few milliseconds in each. GUI thread only.
class ReadyCapture : public QObject {
    Q_OBJECT

public:
    ReadyCapture() { m_turns.start(0, this); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QBasicTimer m_turns;
};

} // namespace vexa
