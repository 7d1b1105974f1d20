// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/activation/SessionBus.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace vexa::platform {

/// The program's connection to the session bus, driven by the event loop: no call ever blocks on the bus.
/// When the bus is missing or goes away, connecting is retried until it answers. GUI thread.
class BusLink : public QObject {
public:
    /// Registers the program on a new connection, without blocking. False when it could not.
    using Introduction = std::function<bool(sd_bus *)>;

    /// Every connection gets all of these, in their order.
    explicit BusLink(std::vector<Introduction> introductions);

private:
    void connectToBus();
    bool introduce() const;
    void disconnectFromBus();
    void process();
    void waitForMore();

    const std::vector<Introduction> m_introductions;
    x11::SessionBus m_bus; ///< null while there is none
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    QTimer m_due;   ///< when the bus library wants to be called next
    QTimer m_retry; ///< runs while there is no bus
};

} // namespace vexa::platform
