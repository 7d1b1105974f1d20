// SPDX-License-Identifier: MIT
#include "platform/x11/activation/ApplicationService.h"

#include "platform/x11/activation/UserRequests.h"

#include <QByteArray>

namespace vexa::platform {

namespace {

constexpr char busName[] = "example.vexa.VexaOrbilo";
constexpr char objectPath[] = "/example/vexa/VexaOrbilo";
constexpr char interfaceName[] = "org.freedesktop.Application";

/// The program opens no files either: being asked to is being activated.
int activate(sd_bus_message *message, void * /*none*/, sd_bus_error * /*error*/) {
    showPanelForUser();
    return sd_bus_reply_method_return(message, nullptr);
}

/// The actions of the desktop entry; any other does nothing.
int activateAction(sd_bus_message *message, void * /*none*/, sd_bus_error * /*error*/) {
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

/// Another connection may own the name now; this one is then queued for it.
int nameAnswered(sd_bus_message * /*answer*/, void * /*none*/, sd_bus_error * /*error*/) {
    return 0;
}

} // namespace

bool offerApplication(sd_bus *bus) {
    // First the object, then the name: a caller that finds the name must find the object too.
    return sd_bus_add_object_vtable(bus, nullptr, objectPath, interfaceName, methods, nullptr) >= 0 &&
           sd_bus_request_name_async(bus, nullptr, busName, SD_BUS_NAME_QUEUE, nameAnswered, nullptr) >= 0;
}

} // namespace vexa::platform
