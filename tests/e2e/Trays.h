// SPDX-License-Identifier: MIT
#pragma once

#include "e2e/Bus.h"
#include "e2e/Xcb.h"

#include <QDBusContext>
#include <QObject>

namespace e2e {

/// A desktop's tray on the session bus: it knows who has registered an icon with it. Works while the test's
/// event loop runs.
class BusTray : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
    explicit BusTray(const QString &address);
    ~BusTray() override;

    bool hasIcon() const { return !m_item.isEmpty(); }
    /// Clicks the icon.
    void click() const;
    /// The texts of the icon's menu; empty until the program has answered.
    QStringList menuTexts();
    void choose(const QString &text) const;

    Q_SLOT void RegisterStatusNotifierItem(const QString &service);
    bool hasHost() const { return true; }

private:
    QDBusConnection m_bus;
    QString m_item; ///< the bus name of the icon
    QMap<QString, int> m_menu;
};

/// A tray on the display: it owns the selection that icons look for.
class DisplayTray {
public:
    DisplayTray();
    ~DisplayTray();

    /// Whether a window has asked to be taken in.
    bool hasIcon();

private:
    xcb::Connection m_connection;
    bool m_hasIcon = false;
};

} // namespace e2e
