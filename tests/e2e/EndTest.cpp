// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/XServer.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QDirIterator>

#include <csignal>

using namespace vexa::test;

namespace {

const QSize guideSize(494, 300);

e2e::Program::Settings settings(int showGuide) {
    return {{QStringLiteral("ShowPrivacyWindow"), showGuide}, {QStringLiteral("Key4P"), 2}};
}

} // namespace

/// The ways in which a system ends the program: each time with 0, everything destroyed in its order.
class EndTest : public QObject {
    Q_OBJECT

private slots:
    void signalsEndItWithZero_data();
    void signalsEndItWithZero();
    void signalsEndItDuringTheGuide_data() { signalsEndItWithZero_data(); }
    void signalsEndItDuringTheGuide();
    void aSignalEndsItWhileAToolIsOpen();
    void aSignalWhileAScreenshotIsWrittenWaitsForTheFile();
    void aSignalRightAfterTheStartEndsIt();
    void aServerThatGoesTakesItAlongWithoutACrash();
};

void EndTest::signalsEndItWithZero_data() {
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void EndTest::signalsEndItWithZero() {
    QFETCH(int, number);
    e2e::Program program(settings(0));
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= 3, patience);
    program.signal(number);
    const auto end = program.waitForEnd();
    QVERIFY(end.normal);
    QCOMPARE(end.code, 0);
}

void EndTest::signalsEndItDuringTheGuide() {
    QFETCH(int, number);
    e2e::Program program(settings(1));
    const QByteArray before = program.settingsFile();
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), guideSize).id, patience);
    program.signal(number);
    const auto end = program.waitForEnd();
    QVERIFY(end.normal);
    QCOMPARE(end.code, 0);
    QCOMPARE(program.settingsFile(), before);
}

void EndTest::aSignalEndsItWhileAToolIsOpen() {
    e2e::Program program(settings(0));
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
    const auto toolOpens = [&] { return e2e::visibleWindowOfSize(program.pid(), QSize(1920, 1080)).id != 0; };
    typeChord(PenKey::G);
    QTRY_VERIFY_WITH_TIMEOUT(toolOpens(), patience);
    program.signal(SIGTERM);
    const auto end = program.waitForEnd();
    QVERIFY(end.normal);
    QCOMPARE(end.code, 0);
}

void EndTest::aSignalWhileAScreenshotIsWrittenWaitsForTheFile() {
    e2e::Program program({{QStringLiteral("ShowPrivacyWindow"), 0}, {QStringLiteral("Key4C"), 4}});
    QVERIFY(program.start());
    QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), patience);
    // On the prompt that tells of the screenshot, below the one of the start.
    const QPoint onThePrompt(960, 540 + 70);
    const QRgb before = e2e::pixelAt(onThePrompt);
    typeChord(PenKey::D);
    QTRY_VERIFY_WITH_TIMEOUT(e2e::pixelAt(onThePrompt) != before, patience);
    program.signal(SIGTERM);
    const auto end = program.waitForEnd();
    QVERIFY(end.normal);
    QCOMPARE(end.code, 0);

    QStringList files;
    QDirIterator found(QDir::homePath() + QStringLiteral("/Desktop"), QDir::Files | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (found.hasNext())
        files += found.next();
    QCOMPARE(files.size(), 1);
    const QImage picture(files.constFirst());
    QCOMPARE(picture.size(), QSize(1920, 1080));
    QCOMPARE(picture.pixel(onThePrompt), before);
}

void EndTest::aSignalRightAfterTheStartEndsIt() {
    // The signal may find the program before it watches for signals, and then simply ends it.
    for (int i = 0; i < 10; ++i) {
        e2e::Program program(settings(0));
        QVERIFY(program.start());
        QTest::qWait(i * 40);
        program.signal(SIGTERM);
        const auto end = program.waitForEnd();
        QVERIFY(end.normal ? end.code == 0 : end.code == SIGTERM);
    }
}

void EndTest::aServerThatGoesTakesItAlongWithoutACrash() {
    e2e::XServer server;
    QVERIFY(!server.display().isEmpty());
    e2e::Program program(settings(0));
    program.setEnvironment(QStringLiteral("DISPLAY"), server.display());
    QVERIFY(program.start());
    // The view echoes the values it is shown, which saves them: from then on the main window is there.
    const QByteArray before = program.settingsFile();
    QTRY_VERIFY_WITH_TIMEOUT(program.settingsFile() != before, patience);
    server.kill();
    QVERIFY(program.waitForEnd().normal);
}

VEXA_WIDGET_TEST_MAIN(EndTest)
#include "EndTest.moc"
