// SPDX-License-Identifier: MIT
#include "support/DesktopDpi.h"

#include <QByteArray>
#include <QtEndian>

#include <X11/Xlib.h>

namespace vexa::test {

namespace {

void append(QByteArray &bytes, quint16 value) {
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
}

void append(QByteArray &bytes, quint32 value) {
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char *>(&value), sizeof value);
}

/// One whole number, as the settings are laid out: byte order, serial, how many; then each one's kind, name
/// and value.
QByteArray settings(const QByteArray &name, quint32 value, quint32 serial) {
    QByteArray bytes(4, '\0'); // little endian
    append(bytes, serial);
    append(bytes, quint32{1});
    bytes.append(2, '\0'); // a whole number
    append(bytes, quint16(name.size()));
    bytes.append(name);
    bytes.append((4 - name.size() % 4) % 4, '\0');
    append(bytes, serial);
    append(bytes, value);
    return bytes;
}

Display *x(void *display) {
    return static_cast<Display *>(display);
}

} // namespace

DesktopDpi::DesktopDpi(int dpi) : m_display(XOpenDisplay(nullptr)) {
    if (!m_display)
        return;
    m_window = XCreateSimpleWindow(x(m_display), DefaultRootWindow(x(m_display)), 0, 0, 1, 1, 0, 0, 0);
    set(dpi);
    XSetSelectionOwner(x(m_display), XInternAtom(x(m_display), "_XSETTINGS_S0", False), m_window,
                       CurrentTime);
    XSync(x(m_display), False);
}

DesktopDpi::~DesktopDpi() {
    if (m_display)
        XCloseDisplay(x(m_display));
}

void DesktopDpi::set(int dpi) {
    if (!m_display)
        return;
    const QByteArray bytes = settings("Xft/DPI", quint32(dpi) * 1024, m_serial++);
    const Atom property = XInternAtom(x(m_display), "_XSETTINGS_SETTINGS", False);
    XChangeProperty(x(m_display), m_window, property, property, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(bytes.constData()), int(bytes.size()));
    XSync(x(m_display), False);
}

} // namespace vexa::test
