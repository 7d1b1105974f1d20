// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <cstdlib>

namespace vexa {

/// Remembers that the program has been asked to end. A quit() during a dialog's own event loop ends only that
/// loop, and the application's loop, started later, would run for ever. GUI thread; at most one, made after
/// the application object.
class QuitRequest : public QObject {
public:
    QuitRequest();

    /// Ends the event loops that run now, and makes a later run() return at once.
    void request();
    /// The same, with the exit code of a failure.
    void fail();
    bool requested() const { return m_requested; }

    /// The exit code for a process that has been asked to end.
    int exitCode() const { return m_exitCode; }

    /// Runs the application's event loop, unless the program has been asked to end before. Returns its exit
    /// code.
    int run();

    /// Turns the desktop's request to quit (from a menu, the dock icon or at log-out) into request().
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_requested = false;
    int m_exitCode = EXIT_SUCCESS;
};

} // namespace vexa
