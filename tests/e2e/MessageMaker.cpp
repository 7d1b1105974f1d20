// SPDX-License-Identifier: MIT
#include "e2e/MessageMaker.h"

#include <QtGlobal>

#include <array>
#include <chrono>
#include <cstring>
#include <unistd.h>

namespace e2e {

namespace {

constexpr char programName[] = "example.vexa.VexaOrbilo";
constexpr char busName[] = "org.freedesktop.DBus";
constexpr char busPath[] = "/org/freedesktop/DBus";
constexpr char basicTypes[] = "ybnqiuxtdsogh";

const std::vector<QByteArray> paths{
    "/example/vexa/VexaOrbilo",        "/example/vexa", "/",     "/StatusNotifierItem", "/MenuBar",
    "/org/a11y/atspi/accessible/root", busPath,         "/a/b/c"};
const std::vector<QByteArray> interfaces{"org.freedesktop.Application",
                                         "org.freedesktop.DBus.Properties",
                                         "org.freedesktop.DBus.Introspectable",
                                         "org.freedesktop.DBus.Peer",
                                         "org.freedesktop.DBus.ObjectManager",
                                         "org.kde.StatusNotifierWatcher",
                                         "com.canonical.dbusmenu",
                                         busName,
                                         "nobody.knows.it"};
const std::vector<QByteArray> members{"Activate",   "Open",         "ActivateAction",
                                      "Get",        "Set",          "GetAll",
                                      "Introspect", "Ping",         "GetMachineId",
                                      "NameLost",   "NameAcquired", "NameOwnerChanged",
                                      "Disconnect", "Event",        "StatusNotifierHostRegistered",
                                      "nonsense"};
/// Those that the members above take, so that some get as far as to the program.
const std::vector<QByteArray> rightTypes{"a{sv}", "asa{sv}", "sava{sv}", "ss", "ssv", "s", "sss", "", "isvu"};

/// The length of the first complete type.
int firstType(const QByteArray &types) {
    int levels = 0;
    for (int i = 0; i < types.size(); ++i) {
        levels += (types[i] == '(' || types[i] == '{') ? 1 : (types[i] == ')' || types[i] == '}') ? -1 : 0;
        if (levels == 0 && types[i] != 'a')
            return i + 1;
    }
    return int(types.size());
}

} // namespace

MessageMaker::MessageMaker(const QString &busAddress, qint64 pid) : m_address(busAddress.toLatin1()) {
    if (!connect())
        qFatal("cannot reach the bus");
    char **names = nullptr;
    sd_bus_list_names(m_bus.get(), &names, nullptr);
    for (char **name = names; name && *name; ++name) {
        sd_bus_message *answer = nullptr;
        std::uint32_t owner = 0;
        if (sd_bus_call_method(m_bus.get(), busName, busPath, busName, "GetConnectionUnixProcessID", nullptr,
                               &answer, "s", *name) >= 0 &&
            sd_bus_message_read(answer, "u", &owner) >= 0 && owner == pid)
            m_receivers.emplace_back(*name);
        sd_bus_message_unref(answer);
        std::free(*name);
    }
    std::free(names);
    if (m_receivers.empty())
        qFatal("the program is not on the bus");
}

/// The bus turns out whoever sends it what no bus should carry.
bool MessageMaker::connect() {
    sd_bus *bus = nullptr;
    const bool connected = sd_bus_new(&bus) >= 0 && sd_bus_set_address(bus, m_address) >= 0 &&
                           sd_bus_set_bus_client(bus, 1) >= 0 && sd_bus_start(bus) >= 0;
    m_bus.reset(bus);
    ++m_connections;
    return connected;
}

void MessageMaker::sendOne() {
    if (sd_bus_is_open(m_bus.get()) <= 0)
        connect();
    const Message message = makeEnvelope();
    QByteArray types = pick(rightTypes);
    if (below(2) == 0) {
        types.clear();
        for (unsigned left = below(5); left > 0; --left)
            types += makeType(below(20) == 0 ? 30 : 3);
    }
    if (!message || !fill(message.get(), types))
        return; // no message that a bus would carry
    if (sd_bus_send(m_bus.get(), message.get(), nullptr) >= 0)
        ++m_sent;
    while (sd_bus_process(m_bus.get(), nullptr) > 0) // nobody wants the answers
        ;
}

MessageMaker::Message MessageMaker::makeEnvelope() {
    sd_bus_message *message = nullptr;
    const QByteArray path = below(3) == 0 ? pick(paths) : paths[0];
    const QByteArray interface = below(3) == 0 ? pick(interfaces) : interfaces[0];
    const QByteArray member = pick(members);
    if (below(5) == 0) {
        if (sd_bus_message_new_signal(m_bus.get(), &message, path, interface, member) >= 0)
            sd_bus_message_set_destination(message, pick(m_receivers));
    } else {
        const bool named = below(8) != 0;
        if (sd_bus_message_new_method_call(m_bus.get(), &message, pick(m_receivers), path,
                                           named ? interface.constData() : nullptr, member) >= 0)
            sd_bus_message_set_expect_reply(message, int(below(2)));
    }
    return Message(message);
}

QByteArray MessageMaker::makeString() {
    static const std::vector<QByteArray> words{
        "",         "Settings", "quit",         "Quit ",   "org.freedesktop.Application", "/etc/passwd",
        "file:///", "%n%s",     "\xe4\xbd\xa0", "\x01\x7f"};
    return below(200) == 0 ? QByteArray(int(below(500000)), 'x') : pick(words);
}

QByteArray MessageMaker::makeType(int levels) {
    const QByteArray basic(1, basicTypes[below(sizeof basicTypes - 1)]);
    if (levels == 0)
        return basic;
    switch (below(8)) {
    case 0:
        return "a" + makeType(levels - 1);
    case 1:
        return "a{" + basic + makeType(levels - 1) + "}";
    case 2:
        return "(" + basic + makeType(levels - 1) + ")";
    case 3:
    case 4:
        return "v";
    default:
        return levels > 5 ? "(" + makeType(levels - 1) + ")" : basic;
    }
}

bool MessageMaker::fill(sd_bus_message *message, QByteArray types) {
    while (!types.isEmpty()) {
        const QByteArray type = types.left(firstType(types));
        types.remove(0, type.size());
        bool filled = false;
        if (type[0] == 'a') {
            const int opened = sd_bus_message_open_container(message, 'a', type.constData() + 1);
            filled = opened >= 0;
            for (unsigned left = below(4); filled && left > 0; --left)
                filled = fill(message, type.mid(1));
            filled = filled && sd_bus_message_close_container(message) >= 0;
        } else if (type[0] == '(' || type[0] == '{') {
            filled = fillContainer(message, type[0] == '(' ? 'r' : 'e', type.mid(1, type.size() - 2));
        } else if (type[0] == 'v') {
            filled = fillContainer(message, 'v', makeType(int(below(3))));
        } else {
            filled = fillBasic(message, type[0]);
        }
        if (!filled)
            return false;
    }
    return true;
}

bool MessageMaker::fillContainer(sd_bus_message *message, char kind, const QByteArray &contents) {
    return sd_bus_message_open_container(message, kind, contents) >= 0 && fill(message, contents) &&
           sd_bus_message_close_container(message) >= 0;
}

bool MessageMaker::fillBasic(sd_bus_message *message, char type) {
    if (std::strchr("sog", type)) {
        const QByteArray text = type == 's' ? makeString() : type == 'o' ? pick(paths) : makeType(2);
        m_bytes += text.size();
        return sd_bus_message_append_basic(message, type, text.constData()) >= 0;
    }
    std::uint64_t value = (std::uint64_t(m_random()) << 32U) | m_random();
    if (type == 'b')
        value &= 1U;
    if (type == 'h')
        value = STDERR_FILENO;
    return sd_bus_message_append_basic(message, type, &value) >= 0;
}

bool MessageMaker::isAnswered(int patience) {
    using std::chrono::microseconds;
    using std::chrono::milliseconds;
    const auto limit = std::uint64_t(microseconds(milliseconds(patience)).count());
    const auto ping = [&] {
        sd_bus_message *message = nullptr;
        sd_bus_message *answer = nullptr;
        const bool answered = sd_bus_message_new_method_call(m_bus.get(), &message, programName, paths[0],
                                                             "org.freedesktop.DBus.Peer", "Ping") >= 0 &&
                              sd_bus_call(m_bus.get(), message, limit, nullptr, &answer) >= 0;
        sd_bus_message_unref(answer);
        sd_bus_message_unref(message);
        return answered;
    };
    return ping() || (sd_bus_is_open(m_bus.get()) <= 0 && connect() && ping());
}

QString MessageMaker::report() const {
    return QStringLiteral("%1 messages over %2 connections to %3 names, %4 bytes of text")
        .arg(m_sent)
        .arg(m_connections)
        .arg(m_receivers.size())
        .arg(m_bytes);
}

} // namespace e2e
