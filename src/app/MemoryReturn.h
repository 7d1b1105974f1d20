// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QObject>

namespace vexa {

/// Returns freed memory to the system, which the allocator would keep for later allocations. GUI thread only.
class MemoryReturn : public QObject {
    Q_OBJECT

public slots:
    /// To be called when much memory has been freed. Returns it three seconds after the last call, so that a
    /// burst of calls costs one return.
    void soon();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QBasicTimer m_timer;
};

} // namespace vexa
