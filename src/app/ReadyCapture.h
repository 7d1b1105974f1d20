// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>

namespace vexa {

/// Prepares the screen capture, so that the first tool opens as fast as all later ones. It works in steps of
/// a few milliseconds, one in each iteration of the event loop, and stops when all is prepared. GUI thread
/// only.
class ReadyCapture : public QObject {
    Q_OBJECT

public:
    ReadyCapture() { m_steps.start(0, this); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QBasicTimer m_steps;
};

} // namespace vexa
