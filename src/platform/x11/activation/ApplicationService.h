// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/activation/SessionBus.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <memory>

namespace vexa::platform {

/// What launchers find of this program on the session bus: org.freedesktop.Application under the program's
/// name. Nothing ever waits for the bus; one that is not there, goes or freezes is asked again until it
/// answers. Of several instances on one bus, one for each display, the longest running has the name. GUI
/// thread.
class ApplicationService : public QObject {
public:
    explicit ApplicationService(QObject *parent);

private:
    void connectToBus();
    void disconnectFromBus();
    bool publish();
    void process();
    void waitForMore();

    x11::SessionBus m_bus; ///< null while there is none
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    QTimer m_due;   ///< the bus library has something to do then
    QTimer m_retry; ///< runs while there is no bus
};

} // namespace vexa::platform
