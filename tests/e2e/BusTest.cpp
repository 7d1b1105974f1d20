// SPDX-License-Identifier: MIT
#include "e2e/Bus.h"

#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/XServer.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <csignal>
#include <optional>
#include <random>

using namespace vexa::test;

/// The program on a session bus that is not as it should be.
class BusTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_bus.emplace();
        m_program.emplace();
        m_program->setEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus->address());
    }

    void cleanup() {
        m_program.reset();
        m_bus.reset();
    }

    void aFrozenBusHoldsNeitherTheStartNorTheEnd() {
        QVERIFY(m_bus->start());
        m_bus->freeze();
        startProgram();
        QCOMPARE(endProgram(),
                 QByteArray("VexaOrbilo: the session bus does not answer; no tray and no screen reader "
                            "until the next start\n"));
    }

    void aBusThatThawsKnowsTheProgram() {
        QVERIFY(m_bus->start());
        m_bus->freeze();
        startProgram();
        m_bus->thaw();
        verifyThatActivationWorks();
    }

    void aBusThatComesLaterKnowsTheProgram() {
        startProgram();
        QVERIFY(m_bus->start());
        verifyThatActivationWorks();
        QCOMPARE(endProgram(), QByteArray());
    }

    void aBusThatWasRestartedKnowsTheProgramAgain() {
        QVERIFY(m_bus->start());
        startProgram();
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram(), patience);
        m_bus->kill();
        QVERIFY(m_bus->start());
        verifyThatActivationWorks();
    }

    void aThousandOddCallsAreOutlived() {
        QVERIFY(m_bus->start());
        startProgram();
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram(), patience);
        const QStringList methods{QStringLiteral("Activate"),       QStringLiteral("Open"),
                                  QStringLiteral("ActivateAction"), QStringLiteral("activate"),
                                  QStringLiteral("Quit"),           QStringLiteral("Get")};
        const QVariantList values{0,
                                  -1.5,
                                  true,
                                  QString(),
                                  QStringLiteral("Quit?"),
                                  QString(100000, QLatin1Char('x')),
                                  QByteArray(1000, '\0'),
                                  QStringList{QStringLiteral("/etc/passwd"), QStringLiteral("file:///")},
                                  QVariantList{1, QStringLiteral("two")},
                                  QVariantMap{{QStringLiteral("desktop-startup-id"), 3}}};
        std::mt19937 random(1);
        for (int call = 0; call < 1000; ++call) {
            QVariantList arguments;
            for (auto left = random() % 4; left > 0; --left)
                arguments += values[int(random() % unsigned(values.size()))];
            m_bus->call(methods[int(random() % unsigned(methods.size()))], arguments);
        }
        verifyThatActivationWorks(); // some of the calls have shown the panel, too
        e2e::askToClose(e2e::panelOf(m_program->pid()));
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(m_program->pid()).id, patience);
        verifyThatActivationWorks();
        QCOMPARE(endProgram(), QByteArray());
    }

    void aFloodOfCallsKeepsNoChordWaiting() {
        QVERIFY(m_bus->start());
        startProgram();
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram(), patience);
        // How many calls outlast a chord depends on the machine; where chords have to wait, none do.
        bool amidTheFlood = false;
        for (int calls = 3000; !amidTheFlood && calls < 100000; calls *= 3) {
            QDBusPendingCall last = QDBusPendingCall::fromError({});
            for (int call = 0; call < calls; ++call)
                last = m_bus->call(QStringLiteral("Activate"), {QVariantMap()}); // shows the panel anew
            typeChord(PenKey::G);
            QTRY_VERIFY_WITH_TIMEOUT(toolIsOpen(), patience);
            amidTheFlood = !last.isFinished();
            typeChord(PenKey::S);
            QTRY_VERIFY_WITH_TIMEOUT(!toolIsOpen(), patience);
        }
        QVERIFY(amidTheFlood);
        QCOMPARE(endProgram(), QByteArray());
    }

    void theActionsOfTheDesktopEntryWork() {
        QVERIFY(m_bus->start());
        startProgram();
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram(), patience);
        const auto run = [this](const char *action) {
            m_bus->call(QStringLiteral("ActivateAction"),
                        {QLatin1String(action), QVariantList(), QVariantMap()});
        };
        run("Settings");
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(m_program->pid()).id, patience);
        run("Quit");
        QCOMPARE(m_program->waitForEnd().how, QByteArray("ended with 0"));
    }

    void theNextInstanceInheritsTheName() {
        // Two displays on one bus: each has an instance of its own, and one of them has the name.
        QVERIFY(m_bus->start());
        startProgram();
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram(), patience);
        e2e::XServer server;
        e2e::Program elsewhere;
        elsewhere.setEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus->address());
        elsewhere.setEnvironment(QStringLiteral("DISPLAY"), server.display());
        QVERIFY(elsewhere.start());
        QTRY_VERIFY_WITH_TIMEOUT(server.hasWindowsOf("VexaOrbilo"), patience);
        QVERIFY(!e2e::panelOf(m_program->pid()).id);
        const QString first = m_bus->nameOwner();
        QVERIFY(!first.isEmpty());
        endProgram();
        // The bus may answer before it has noticed that the first one has gone.
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram() && m_bus->nameOwner() != first, patience);
        QVERIFY(elsewhere.isRunning());
    }

private:
    bool toolIsOpen() const { return e2e::visibleWindowOfSize(m_program->pid(), {1920, 1080}).id; }

    void startProgram() { QVERIFY(e2e::startAndSettle(*m_program)); }

    QByteArray endProgram() {
        m_program->signal(SIGTERM);
        const auto end = m_program->waitForEnd();
        return end.how == "ended with 0" ? end.errors : end.how;
    }

    void verifyThatActivationWorks() {
        QTRY_VERIFY_WITH_TIMEOUT(m_bus->knowsTheProgram(), patience);
        const auto call = m_bus->call(QStringLiteral("Activate"), {QVariantMap()});
        // Once this call is answered, no earlier one can show a panel again that the test closes next.
        QTRY_VERIFY_WITH_TIMEOUT(call.isFinished(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(m_program->pid()).id, patience);
    }

    std::optional<e2e::Bus> m_bus;
    std::optional<e2e::Program> m_program;
};

VEXA_WIDGET_TEST_MAIN(BusTest)
#include "BusTest.moc"
