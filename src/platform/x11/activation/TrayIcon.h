// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>
#include <systemd/sd-bus.h>

namespace vexa::platform {

class TrayMenu;

/// The program's icon in the desktop's tray, with a menu; a click shows the panel. It is there as soon as the
/// desktop has a tray of either kind, on the bus or on the display. GUI thread.
class TrayIcon : public QObject, private QAbstractNativeEventFilter {
public:
    TrayIcon();
    ~TrayIcon() override;

    /// Shows the icon as soon as a tray is known on this bus. False when the connection takes no questions.
    bool awaitHostOn(sd_bus *bus);

private:
    bool nativeEventFilter(const QByteArray &eventType, void *message, long *result) override;
    void showSoon();
    void show();

    const unsigned m_manager;   ///< the atom of what a new owner of a selection announces itself by
    const unsigned m_selection; ///< the atom of the one that a tray on the display owns
    std::unique_ptr<TrayMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_icon; ///< null until there is a tray
};

} // namespace vexa::platform
