// SPDX-License-Identifier: MIT
#include "platform/x11/activation/ApplicationService.h"

#include "platform/x11/activation/UserRequests.h"

#include <QByteArray>
#include <ctime>
#include <poll.h>

namespace vexa::platform {

namespace {

constexpr char busName[] = "example.vexa.VexaOrbilo";
constexpr char objectPath[] = "/example/vexa/VexaOrbilo";
constexpr char interfaceName[] = "org.freedesktop.Application";
constexpr std::chrono::seconds retryInterval{3};

/// The program opens no files either: being asked to is being activated.
int activate(sd_bus_message *message, void * /*service*/, sd_bus_error * /*error*/) {
    showPanelForUser();
    return sd_bus_reply_method_return(message, nullptr);
}

/// The actions of the desktop entry; any other does nothing.
int activateAction(sd_bus_message *message, void * /*service*/, sd_bus_error * /*error*/) {
    const char *name = nullptr;
    if (const int failure = sd_bus_message_read(message, "s", &name); failure < 0)
        return failure;
    if (qstrcmp(name, "Settings") == 0)
        showPanelForUser();
    else if (qstrcmp(name, "Quit") == 0)
        quitForUser();
    return sd_bus_reply_method_return(message, nullptr);
}

const sd_bus_vtable methods[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Activate", "a{sv}", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("Open", "asa{sv}", "", activate, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("ActivateAction", "sava{sv}", "", activateAction, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

/// Somebody else may have the name for the time being: then it comes to this connection after him.
int nameAnswered(sd_bus_message * /*answer*/, void * /*service*/, sd_bus_error * /*error*/) {
    return 0;
}

/// From now until a moment of the monotonic clock in microseconds.
std::chrono::milliseconds timeUntil(std::uint64_t moment) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::int64_t passed = std::int64_t(now.tv_sec) * 1000000 + now.tv_nsec / 1000;
    const std::int64_t left = static_cast<std::int64_t>(moment) - passed;
    return std::chrono::milliseconds(left > 0 ? left / 1000 + 1 : 0);
}

} // namespace

ApplicationService::ApplicationService(QObject *parent) : QObject(parent) {
    m_due.setSingleShot(true);
    connect(&m_due, &QTimer::timeout, this, &ApplicationService::process);
    m_retry.setInterval(retryInterval);
    connect(&m_retry, &QTimer::timeout, this, &ApplicationService::connectToBus);
    connectToBus();
}

void ApplicationService::connectToBus() {
    m_bus = x11::openSessionBus();
    if (m_bus && publish()) {
        m_retry.stop();
        process();
    } else {
        disconnectFromBus();
    }
}

void ApplicationService::disconnectFromBus() {
    m_due.stop();
    m_readable.reset();
    m_writable.reset();
    m_bus.reset();
    m_retry.start();
}

/// First the object, then the name: whoever finds the name must find the object too.
bool ApplicationService::publish() {
    return sd_bus_add_object_vtable(m_bus.get(), nullptr, objectPath, interfaceName, methods, this) >= 0 &&
           sd_bus_request_name_async(m_bus.get(), nullptr, busName, SD_BUS_NAME_QUEUE, nameAnswered, this) >=
               0;
}

void ApplicationService::process() {
    int progress = 0;
    do
        progress = sd_bus_process(m_bus.get(), nullptr);
    while (progress > 0);
    if (progress < 0 || sd_bus_is_open(m_bus.get()) <= 0)
        disconnectFromBus();
    else
        waitForMore();
}

void ApplicationService::waitForMore() {
    const int fd = sd_bus_get_fd(m_bus.get());
    if (!m_readable ||
        m_readable->socket() != fd) { // a bus of several addresses is tried at one after the other
        m_readable = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
        m_writable = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Write);
        connect(m_readable.get(), &QSocketNotifier::activated, this, &ApplicationService::process);
        connect(m_writable.get(), &QSocketNotifier::activated, this, &ApplicationService::process);
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
