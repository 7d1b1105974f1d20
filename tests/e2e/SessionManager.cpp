// SPDX-License-Identifier: MIT
#include "e2e/SessionManager.h"

#include <QSocketNotifier>

#include <array>
#include <cstdlib>

#include <X11/ICE/ICElib.h>
#include <X11/ICE/ICEutil.h>
#include <X11/SM/SMlib.h>

// In every libICE, though in none of its headers: keeps it off the network.
extern "C" void _IceTransNoListen(const char *protocol); // NOLINT(bugprone-reserved-identifier)

namespace e2e {

namespace {

/// The library knows one session manager for the whole process, and calls back without an object.
struct Session {
    int listenCount = 0;
    IceListenObj *listeners = nullptr;
    IceConn connection = nullptr;
    SmsConn client = nullptr;
    bool saved = false;
    bool loggingOut = false;
    bool refused = false;
} session;

int acceptAnyHost(char *) {
    return True;
}

Status registerClient(SmsConn connection, SmPointer, char *previousId) {
    session.client = connection;
    char *const id = SmsGenerateClientID(connection);
    SmsRegisterClientReply(connection, id);
    std::free(id);
    std::free(previousId);
    SmsSaveYourself(connection, SmSaveLocal, False, SmInteractStyleNone, False);
    return True;
}

void interactDone(SmsConn, SmPointer, Bool cancelShutdown) {
    session.refused = session.refused || cancelShutdown;
}

void saveYourselfDone(SmsConn connection, SmPointer, Bool) {
    session.saved = true;
    if (session.loggingOut && !session.refused)
        SmsDie(connection);
    else
        SmsSaveComplete(connection);
}

void closeConnection(SmsConn connection, SmPointer, int count, char **reasons) {
    SmFreeReasons(count, reasons);
    SmsCleanUp(connection);
    IceSetShutdownNegotiation(session.connection, False);
    IceCloseConnection(session.connection);
    session.connection = nullptr;
    session.client = nullptr;
}

void setProperties(SmsConn, SmPointer, int count, SmProp **properties) {
    for (int i = 0; i < count; ++i)
        SmFreeProperty(properties[i]);
    std::free(properties);
}

void deleteProperties(SmsConn, SmPointer, int count, char **names) {
    for (int i = 0; i < count; ++i)
        std::free(names[i]);
    std::free(names);
}

Status greetClient(SmsConn, SmPointer, unsigned long *mask, SmsCallbacks *callbacks, char **) {
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask | SmsSaveYourselfDoneProcMask |
            SmsCloseConnectionProcMask | SmsSetPropertiesProcMask | SmsDeletePropertiesProcMask |
            SmsGetPropertiesProcMask;
    *callbacks = {};
    callbacks->register_client.callback = registerClient;
    callbacks->interact_request.callback = [](SmsConn connection, SmPointer, int) {
        SmsInteract(connection);
    };
    callbacks->interact_done.callback = interactDone;
    callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {};
    callbacks->save_yourself_phase2_request.callback = [](SmsConn connection, SmPointer) {
        SmsSaveYourselfPhase2(connection);
    };
    callbacks->save_yourself_done.callback = saveYourselfDone;
    callbacks->close_connection.callback = closeConnection;
    callbacks->set_properties.callback = setProperties;
    callbacks->delete_properties.callback = deleteProperties;
    callbacks->get_properties.callback = [](SmsConn connection, SmPointer) {
        SmsReturnProperties(connection, 0, nullptr);
    };
    return True;
}

} // namespace

SessionManager::SessionManager() {
    session = {};
    _IceTransNoListen("tcp");
    std::array<char, 256> error{};
    const int length = static_cast<int>(error.size());
    if (!SmsInitialize("test", "1", greetClient, nullptr, acceptAnyHost, length, error.data()) ||
        !IceListenForConnections(&session.listenCount, &session.listeners, length, error.data()))
        qFatal("no session manager: %s", error.data());

    for (int i = 0; i < session.listenCount; ++i) {
        const IceListenObj listener = session.listeners[i];
        IceSetHostBasedAuthProc(listener, acceptAnyHost);
        watch(IceGetListenConnectionNumber(listener), [this, listener] {
            IceAcceptStatus status{};
            const IceConn connection = IceAcceptConnection(listener, &status);
            if (!connection)
                return;
            session.connection = connection;
            watch(IceConnectionNumber(connection), [connection] {
                if (session.connection == connection &&
                    IceProcessMessages(connection, nullptr, nullptr) == IceProcessMessagesIOError)
                    session.connection = nullptr;
            });
        });
    }
}

SessionManager::~SessionManager() {
    m_notifiers.clear();
    IceFreeListenObjs(session.listenCount, session.listeners);
}

void SessionManager::watch(int descriptor, const std::function<void()> &onData) {
    auto notifier = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [onData, raw = notifier.get()] {
        onData();
        if (session.listeners && !session.connection)
            raw->setEnabled(false);
    });
    m_notifiers.push_back(std::move(notifier));
}

QString SessionManager::address() const {
    char *const list = IceComposeNetworkIdList(session.listenCount, session.listeners);
    QString text = QString::fromLocal8Bit(list);
    std::free(list);
    return text;
}

bool SessionManager::hasClient() const {
    return session.client && session.saved;
}

void SessionManager::logOut() {
    session.loggingOut = true;
    SmsSaveYourself(session.client, SmSaveBoth, True, SmInteractStyleAny, False);
}

bool SessionManager::wasRefused() const {
    return session.refused;
}

} // namespace e2e
