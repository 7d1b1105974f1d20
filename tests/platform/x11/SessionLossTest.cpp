// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"
#include "platform/x11/input/Connection.h"
#include "platform/x11/input/FakeInput.h"

#include <set>
#include <sys/socket.h>

using namespace vexa::test;
using vexa::InputEvent;

namespace {

/// The descriptors of this process that are sockets.
std::set<int> sockets() {
    std::set<int> found;
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    for (const QFileInfo &entry : descriptors.entryInfoList(QDir::AllEntries | QDir::System))
        if (entry.symLinkTarget().contains(QLatin1String("socket:")))
            found.insert(entry.fileName().toInt());
    return found;
}

} // namespace

/// A session whose server lives while our connections to it are ended.
class SessionLossTest : public QObject, private vexa::test::SessionFixture {
    Q_OBJECT

private slots:
    void initTestCase() {
        const std::set<int> before = sockets();
        openSession();
        closeSession();
        m_posting = openedSince(before);
        QVERIFY(!m_posting.empty());
    }

    void init() {
        openSession();
        m_source.reset();
        const std::set<int> before = sockets();
        m_source = vexa::inputBackend().open();
        m_connections = openedSince(before);
    }

    void cleanup() { closeSession(); }

    /// Somebody else may end any client's connection.
    void aLostConnectionIsMadeAgain() {
        QCOMPARE(hear([&] {
                     m_hand->press(control);
                     m_hand->press(shift);
                     m_hand->press(letterA);
                 }),
                 (All{changed(kVK_Control), changed(kVK_Shift), pressed(kVK_ANSI_A)}));
        breakConnections(m_connections); // before the keys go up, so that nobody tells of it
        m_hand->release(control);
        m_hand->release(letterA);
        QCOMPARE(tellNext(), changed(kVK_Control));
        QCOMPARE(tellNext(), released(kVK_ANSI_A));
        QCOMPARE(hear([&] { m_hand->release(shift); }), (All{changed(kVK_Shift)}));
    }

    void aConnectionLostForGoodIsTold() {
        const QByteArray display = qgetenv("DISPLAY");
        qputenv("DISPLAY", ":54321");
        breakConnections(m_connections);
        InputEvent event;
        QVERIFY_EXCEPTION_THROWN(takeNext(event), std::runtime_error);
        qputenv("DISPLAY", display);
    }

    /// What is posted over the new one lifts the modifiers and puts them back without being heard, as before.
    void aPostingConnectionThatIsLostAloneIsMadeAgain() {
        const All modifiers{changed(kVK_Control), changed(kVK_Shift), changed(kVK_Option)};
        QCOMPARE(hear([&] { pressModifiers(); }), modifiers);
        breakConnections(m_posting);
        for (int time = 0; time < 2; ++time)
            QCOMPARE(hear([] { QVERIFY(postKey(kVK_Return, kCGEventFlagMaskCommand)); }),
                     (All{pressed(kVK_F5), released(kVK_F5)}));
        QCOMPARE(hear([&] { releaseModifiers(); }), modifiers);
    }

    /// The connection that posts may break while a recording is being made.
    void aLostConnectionJoinsNoRecording() {
        const auto connection = vexa::x11::Connection::open();
        QVERIFY(connection);
        breakConnections({connection->fd()});
        QVERIFY(!connection->sync());
        vexa::x11::recordFakes(*connection, 1);
        QVERIFY(connection->isBroken());
    }

private:
    static std::vector<int> openedSince(const std::set<int> &before) {
        std::vector<int> opened;
        for (const int socket : sockets())
            if (before.count(socket) == 0)
                opened.push_back(socket);
        return opened;
    }

    static void breakConnections(const std::vector<int> &connections) {
        for (const int connection : connections)
            QCOMPARE(shutdown(connection, SHUT_RDWR), 0);
    }

    std::vector<int> m_connections; ///< descriptors of the source's
    std::vector<int> m_posting;     ///< and of what posts, which all tests share
};

QTEST_GUILESS_MAIN(SessionLossTest)
#include "SessionLossTest.moc"
