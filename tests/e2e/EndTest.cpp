// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/XServer.h"
#include "support/Patience.h"
#include "support/PatternWindow.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QDir>

#include <csignal>

using namespace vexa::test;

namespace {

/// On the prompt that tells of a screenshot, below the one of the start.
const QPoint onThePrompt(960, 540 + 70);

} // namespace

/// The ways in which a system ends the program: each time with 0, everything destroyed in its order.
class EndTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QDir(QDir::homePath() + QStringLiteral("/Desktop")).removeRecursively(); }

    void aSignalEndsItWhileAToolIsOpen() {
        e2e::Program program({{"Key4P", 2}});
        QVERIFY(e2e::startAndSettle(program));
        const auto toolOpens = [&] {
            return e2e::visibleWindowOfSize(program.pid(), QSize(1920, 1080)).id != 0;
        };
        typeChord(PenKey::G);
        QTRY_VERIFY_WITH_TIMEOUT(toolOpens(), patience);
        program.signal(SIGTERM);
        QCOMPARE(program.waitForEnd().how, QByteArray("ended with 0"));
    }

    void aSignalWhileAScreenshotIsWrittenWaitsForTheFile() {
        e2e::Program program({{"Key4C", 4}});
        QVERIFY(e2e::startAndSettle(program));
        const QRgb before = e2e::pixelAt(onThePrompt);
        typeChord(PenKey::D);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::pixelAt(onThePrompt) != before, patience);
        program.signal(SIGTERM);
        QCOMPARE(program.waitForEnd().how, QByteArray("ended with 0"));

        const QStringList files = e2e::screenshots();
        QCOMPARE(files.size(), 1);
        const QImage picture(files.constFirst());
        QCOMPARE(picture.size(), QSize(1920, 1080));
        QCOMPARE(picture.pixel(onThePrompt), before);
    }

    void aServerThatGoesTakesItAlongWithoutACrash() {
        e2e::XServer server;
        QVERIFY(!server.display().isEmpty());
        e2e::Program program;
        program.setEnvironment(QStringLiteral("DISPLAY"), server.display());
        QVERIFY(program.start());
        // The view echoes the values it is shown, which saves them: from then on the main window is there.
        const QByteArray before = program.settingsFile();
        QTRY_VERIFY_WITH_TIMEOUT(program.settingsFile() != before, patience);
        server.kill();
        verifyThatTheDisplayWasLost(program);
    }

    void aServerThatHangsUpOnItDoesSoTooAndTheScreenshotIsWhole() {
        e2e::Program program({{"Key4C", 4}});
        QVERIFY(e2e::startAndSettle(program));
        PatternWindow takesLongToCompress;
        QVERIFY(takesLongToCompress.display());
        typeChord(PenKey::D);
        // The prompt is let out when the picture is taken.
        QTRY_VERIFY_WITH_TIMEOUT(e2e::pixelAt(onThePrompt) != patternAt(onThePrompt.x(), onThePrompt.y()),
                                 patience);
        e2e::disconnectOwner(e2e::windowsOf(program.pid()).constFirst());
        verifyThatTheDisplayWasLost(program);
        QCOMPARE(e2e::screenshots().size(), 1);
        QCOMPARE(QImage(e2e::screenshots().constFirst()).convertToFormat(QImage::Format_RGB32),
                 pattern({1920, 1080}));
        QVERIFY(e2e::startAndSettle(program)); // nothing of the first is in the way
    }

private:
    static void verifyThatTheDisplayWasLost(e2e::Program &program) {
        const auto end = program.waitForEnd();
        QCOMPARE(end.how, QByteArray("ended with 1"));
        // The toolkit has a word of its own, if it notices first.
        QVERIFY2(end.errors.endsWith("VexaOrbilo: the display has been lost\n"), end.errors.constData());
        QCOMPARE(end.errors.count("VexaOrbilo"), 1);
    }
};

VEXA_WIDGET_TEST_MAIN(EndTest)
#include "EndTest.moc"
