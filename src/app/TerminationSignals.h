// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace vexa {

/// Delivers the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) to the GUI thread. A signal that
/// was ignored when the program started, as nohup arranges it, stays ignored. At most one at a time, made
/// after the application object. GUI thread.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    /// If the pipe cannot be made, the signals keep their earlier effect.
    TerminationSignals();
    /// Restores the earlier effect of the signals.
    ~TerminationSignals() override;

signals:
    void arrived();

private:
    void drain();

    int m_readEnd = -1;
};

} // namespace vexa
