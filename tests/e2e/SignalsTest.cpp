// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/TestMain.h"

#include <csignal>

using namespace vexa::test;

/// The signals by which a system ends programs: each time with 0, whatever the program is at.
class SignalsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() {
        QTest::addColumn<int>("number");
        QTest::newRow("SIGTERM") << SIGTERM;
        QTest::newRow("SIGINT") << SIGINT;
        QTest::newRow("SIGHUP") << SIGHUP;
    }

    void endItDuringTheGuide() {
        QFETCH_GLOBAL(int, number);
        e2e::Program program({{"ShowPrivacyWindow", 1}});
        const QByteArray before = program.settingsFile();
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), QSize(494, 300)).id, patience);
        program.signal(number);
        QCOMPARE(program.waitForEnd().how, QByteArray("ended with 0"));
        QCOMPARE(program.settingsFile(), before);
    }

    void endItRightAfterTheStart_data() {
        QTest::addColumn<int>("windows");
        for (int windows = 0; windows < 4; ++windows)
            QTest::addRow("%d windows there", windows) << windows;
    }

    void endItRightAfterTheStart() {
        QFETCH(int, windows);
        QFETCH_GLOBAL(int, number);
        e2e::Program program;
        QVERIFY(program.start());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::windowsOf(program.pid()).size() >= windows, patience);
        program.signal(number);
        const QByteArray how = program.waitForEnd().how;
        // The signal may find the program before it watches for signals, and then simply ends it.
        QVERIFY2(how == "ended with 0" ||
                     (windows == 0 && how == "killed by signal " + QByteArray::number(number)),
                 how);
    }
};

VEXA_WIDGET_TEST_MAIN(SignalsTest)
#include "SignalsTest.moc"
