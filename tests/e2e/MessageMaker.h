// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <random>
#include <systemd/sd-bus.h>
#include <vector>

namespace e2e {

/// Sends a process made-up messages over a bus: calls and signals of known and unknown members, with values
/// of known and unknown types, nested and huge ones among them. The same ones in each run. It asks for all
/// but the end of the program.
class MessageMaker {
public:
    /// To all connections that the process has to the bus.
    MessageMaker(const QString &busAddress, qint64 pid);

    void sendOne();

    /// Whether the process answers a right call, behind all that was sent, within so many milliseconds.
    bool isAnswered(int patience);

    /// What was sent so far, in words.
    QString report() const;

private:
    struct Unref {
        void operator()(sd_bus *bus) const { sd_bus_flush_close_unref(bus); }
        void operator()(sd_bus_message *message) const { sd_bus_message_unref(message); }
    };
    using Message = std::unique_ptr<sd_bus_message, Unref>;

    unsigned below(unsigned end) { return unsigned(m_random() % end); }
    QByteArray pick(const std::vector<QByteArray> &words) { return words[below(unsigned(words.size()))]; }
    bool connect();
    Message makeEnvelope();
    QByteArray makeString();
    QByteArray makeType(int levels);
    bool fill(sd_bus_message *message, QByteArray types);
    bool fillContainer(sd_bus_message *message, char kind, const QByteArray &contents);
    bool fillBasic(sd_bus_message *message, char type);

    std::mt19937 m_random{1};
    const QByteArray m_address;
    std::unique_ptr<sd_bus, Unref> m_bus;
    int m_connections = 0;
    std::vector<QByteArray> m_receivers;
    qint64 m_sent = 0;
    qint64 m_bytes = 0;
};

} // namespace e2e
