// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>

namespace vexa {

/// Gives the memory that was freed back to the system, some seconds after the last time that much was: the
/// allocator keeps some of it for what may come next. GUI thread only.
class MemoryReturn : public QObject {
    Q_OBJECT

public slots:
    void soon();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QBasicTimer m_timer;
};

} // namespace vexa
