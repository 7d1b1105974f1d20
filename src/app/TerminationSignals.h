// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace vexa {

/// Brings the signals by which a system ends a program (SIGTERM, SIGINT, SIGHUP) to the GUI thread. A signal
/// that the parent process has told this one to ignore stays ignored. At most one at a time, after the
/// application object.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// Should the system refuse the descriptors, the signals keep their usual effect.
    TerminationSignals();
    /// Gives the signals back their earlier effect.
    ~TerminationSignals() override;

signals:
    void arrived();

private:
    void drain();

    int m_readEnd = -1;
};

} // namespace vexa
