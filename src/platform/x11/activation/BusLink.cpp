// SPDX-License-Identifier: MIT
#include "platform/x11/activation/BusLink.h"

#include <algorithm>
#include <ctime>
#include <poll.h>
#include <utility>

namespace vexa::platform {

namespace {

constexpr std::chrono::seconds retryInterval{3};

/// From now until a moment of the monotonic clock in microseconds.
std::chrono::milliseconds timeUntil(std::uint64_t moment) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::int64_t passed = std::int64_t(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
    const std::int64_t left = static_cast<std::int64_t>(moment) - passed;
    return std::chrono::milliseconds(left > 0 ? left / 1000 + 1 : 0);
}

} // namespace

BusLink::BusLink(std::vector<Introduction> introductions) : m_introductions(std::move(introductions)) {
    m_due.setSingleShot(true);
    connect(&m_due, &QTimer::timeout, this, &BusLink::process);
    m_retry.setInterval(retryInterval);
    connect(&m_retry, &QTimer::timeout, this, &BusLink::connectToBus);
    connectToBus();
}

void BusLink::connectToBus() {
    m_bus = x11::openSessionBus();
    if (m_bus && introduce()) {
        m_retry.stop();
        process();
    } else {
        disconnectFromBus();
    }
}

void BusLink::disconnectFromBus() {
    m_due.stop();
    m_readable.reset();
    m_writable.reset();
    m_bus.reset();
    m_retry.start();
}

bool BusLink::introduce() const {
    return std::all_of(m_introductions.begin(), m_introductions.end(),
                       [this](const Introduction &introduction) { return introduction(m_bus.get()); });
}

/// One message per iteration of the event loop: a client that sends without end must not starve the pen's
/// events.
void BusLink::process() {
    const int progress = sd_bus_process(m_bus.get(), nullptr);
    if (progress < 0 || sd_bus_is_open(m_bus.get()) <= 0)
        disconnectFromBus();
    else if (progress > 0)
        m_due.start(0);
    else
        waitForMore();
}

void BusLink::waitForMore() {
    const int fd = sd_bus_get_fd(m_bus.get());
    if (!m_readable ||
        m_readable->socket() != fd) { // a bus of several addresses is tried at one after the other
        m_readable = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
        m_writable = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Write);
        connect(m_readable.get(), &QSocketNotifier::activated, this, &BusLink::process);
        connect(m_writable.get(), &QSocketNotifier::activated, this, &BusLink::process);
    }
    const int events = sd_bus_get_events(m_bus.get());
    m_readable->setEnabled((events & POLLIN) != 0);
    m_writable->setEnabled((events & POLLOUT) != 0);
    std::uint64_t moment = UINT64_MAX;
    if (sd_bus_get_timeout(m_bus.get(), &moment) >= 0 && moment != UINT64_MAX)
        m_due.start(timeUntil(moment));
    else
        m_due.stop();
}

} // namespace vexa::platform
