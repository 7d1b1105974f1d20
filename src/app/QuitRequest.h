// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <cstdlib>

namespace vexa {

/// Remembers that the program has been asked to end. The event loop itself forgets a quit() that comes while
/// a dialog runs its own loop, and would then run on for ever. GUI thread; at most one, after the application
/// object.
class QuitRequest : public QObject {
public:
    QuitRequest();

    /// Ends the event loops that are running now, and those that run() would start.
    void request();
    /// The same, because the program cannot go on.
    void fail();
    bool requested() const { return m_requested; }

    /// What the process is to end with when it was asked to.
    int exitCode() const { return m_exitCode; }

    /// Runs the application's event loop, unless the program has been asked to end before. Returns its exit
    /// code.
    int run();

    /// Notices when the desktop asks the application to quit: by its menu, its dock icon or at log-out.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_requested = false;
    int m_exitCode = EXIT_SUCCESS;
};

} // namespace vexa
