// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/ServerResources.h"
#include "e2e/ServerStrain.h"
#include "support/Patience.h"
#include "support/ProcessMeter.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QThread>

#include <csignal>
#include <thread>

using namespace vexa::test;

namespace {

const QRgb dotColour = qRgb(0, 255, 90); // what the slider's 600 stands for
const QPoint place(500, 400);

} // namespace

/// A server that is slow, stopped, kept by another client or flooded: the program waits, and is there again.
class StrainTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_program =
            std::make_unique<e2e::Program>(e2e::Program::Settings{{QStringLiteral("ShowPrivacyWindow"), 0},
                                                                  {QStringLiteral("Key3P"), 3},
                                                                  {QStringLiteral("Key4P"), 2},
                                                                  {QStringLiteral("LaserPenSize"), 20},
                                                                  {QStringLiteral("LaserPenColor"), 600}});
        QVERIFY(m_program->start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(m_program->pid()), patience);
        moveMouse(place);
        QVERIFY(e2e::pixelAt(place) != dotColour);
    }

    void cleanup() {
        QVERIFY(m_program->isRunning());
        m_program.reset();
    }

    void aChordTypedWhileAnotherClientKeepsTheServerIsAnswered() {
        e2e::grabServerWhileTyping(int(PenKey::G), 2000);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(place), dotColour, patience);
        QVERIFY(closeTools());
    }

    void aServerThatWasStoppedFindsTheProgramAlive() {
        QVERIFY(openLaser());
        const int server = e2e::serverPid();
        QVERIFY(server > 0);
        kill(server, SIGSTOP);
        QThread::sleep(5);
        kill(server, SIGCONT);
        QVERIFY(closeTools());
        QVERIFY(openLaser());
        QVERIFY(closeTools());
    }

    void aChordAfterAFloodOfMovesIsAnswered() {
        const int moves = e2e::floodWithMoves(50000, 3000);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(openLaser());
        qInfo("%d moves in three seconds, the chord after them answered within %lld ms", moves,
              timer.elapsed());
        QVERIFY(closeTools());
    }

    /// Keys are not lost among the moves of a mouse that reports faster than anybody reads.
    void chordsAmidAFloodOfMovesAreAnswered() {
        for (const bool shown : {true, false, true, false}) {
            std::thread flood([] { e2e::floodWithMoves(50000, 1000); });
            typeChord(shown ? PenKey::G : PenKey::S);
            flood.join();
            QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(mousePosition()) == dotColour, shown, patience);
        }
    }

    void manyOpeningsLeaveDescriptorsThreadsAndWindowsAsTheyWere() {
        const qint64 pid = m_program->pid();
        const auto openAndClose = [this, pid] {
            QVERIFY(openLaser());
            QVERIFY(closeTools());
            for (const PenKey key : {PenKey::I, PenKey::J}) {
                for (const bool shown : {true, false}) {
                    typeChord(PenKey::M);
                    typeChord(key);
                    QTRY_COMPARE_WITH_TIMEOUT(e2e::visibleWindowOfSize(pid, {1920, 1080}).id != 0, shown,
                                              patience);
                }
            }
        };
        const int windows = int(e2e::windowsOf(pid).size());
        // The toolkit keeps the last eight cursors that were pictures.
        for (int round = 0; round < 5; ++round)
            openAndClose();
        // A closed tool is out of sight at once, and destroyed a moment later.
        QTRY_COMPARE_WITH_TIMEOUT(int(e2e::windowsOf(pid).size()), windows, patience);
        const int descriptors = descriptorsOf(pid);
        const int threads = threadsOf(pid);
        const e2e::ServerResources inServer = e2e::serverResourcesOf(pid);
        QVERIFY(inServer.value("WINDOW") > 0);
        for (int round = 0; round < 10; ++round)
            openAndClose();
        QTRY_COMPARE_WITH_TIMEOUT(int(e2e::windowsOf(pid).size()), windows, patience);
        QTRY_VERIFY_WITH_TIMEOUT(noMore(descriptors, descriptorsOf(pid)), patience);
        QTRY_VERIFY_WITH_TIMEOUT(noMore(threads, threadsOf(pid)), patience);
        const auto grown = [&] { return e2e::grown(inServer, e2e::serverResourcesOf(pid)); };
        QVERIFY2(QTest::qWaitFor([&] { return grown().isEmpty(); }, patience), qPrintable(grown().join(';')));
    }

private:
    bool openLaser() {
        typeChord(PenKey::G);
        return QTest::qWaitFor([] { return e2e::pixelAt(mousePosition()) == dotColour; }, patience);
    }

    bool closeTools() {
        typeChord(PenKey::S);
        return QTest::qWaitFor([] { return e2e::pixelAt(mousePosition()) != dotColour; }, patience);
    }

    std::unique_ptr<e2e::Program> m_program;
};

VEXA_WIDGET_TEST_MAIN(StrainTest)
#include "StrainTest.moc"
