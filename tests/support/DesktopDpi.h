// SPDX-License-Identifier: MIT
#pragma once

/// The dots per inch that a desktop's settings (XSETTINGS) tell its programs. An application that takes its
/// scale from there follows each change.
namespace vexa::test {

class DesktopDpi {
public:
    /// Publishes `dpi` from now on. Before the application object: the toolkit looks for the settings once.
    explicit DesktopDpi(int dpi);
    ~DesktopDpi();
    DesktopDpi(const DesktopDpi &) = delete;
    DesktopDpi &operator=(const DesktopDpi &) = delete;

    /// Returns when the X server knows.
    void set(int dpi);

private:
    void *m_display = nullptr; ///< a connection of its own
    unsigned long m_window = 0;
    unsigned m_serial = 0;
};

} // namespace vexa::test
