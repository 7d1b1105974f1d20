// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

namespace e2e {

/// The window manager or the compositing manager of the display, which can be killed and started again. Ends
/// with this object. For a display that has none by itself.
class Manager {
public:
    enum class Kind { OfWindows, Compositing };
    explicit Manager(Kind kind) : m_kind(kind) {}
    ~Manager() { kill(); }

    /// Returns when it is at work; false when it does not come.
    bool start();
    /// At once, as a crash does. Returns when the display has none any more.
    bool kill();

private:
    bool isAtWork() const;

    Kind m_kind;
    QProcess m_process;
};

} // namespace e2e
