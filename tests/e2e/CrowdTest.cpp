// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>

using namespace vexa::test;

/// Much at once.
class CrowdTest : public QObject {
    Q_OBJECT

private slots:
    void twentyStartsAtOnceAreOneProgram() {
        std::vector<std::unique_ptr<e2e::Program>> starts(20);
        for (auto &start : starts)
            start = std::make_unique<e2e::Program>();
        for (const auto &start : starts)
            QVERIFY(start->start());
        const auto running = [&starts] {
            return std::count_if(starts.begin(), starts.end(),
                                 [](const auto &start) { return start->isRunning(); });
        };
        QTRY_COMPARE_WITH_TIMEOUT(running(), 1, patience);
        for (const auto &start : starts)
            if (!start->isRunning())
                QCOMPARE(start->waitForEnd().how, QByteArray("ended with 0"));

        // The others have asked it to show its panel, which it does in its own time.
        const auto left =
            std::find_if(starts.begin(), starts.end(), [](const auto &start) { return start->isRunning(); });
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn((*left)->pid()), patience);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf((*left)->pid()).id, patience);
        typeChord(PenKey::G);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize((*left)->pid(), {1920, 1080}).id, patience);
        QVERIFY((*left)->isRunning());
    }

    void aHundredScreenshotsInASecondLeaveWholePictures() {
        e2e::Program program({{"Key4C", 4}, {"Key4P", 2}});
        QVERIFY(e2e::startAndSettle(program));
        QElapsedTimer timer;
        timer.start();
        for (int shot = 0; shot < 100; ++shot)
            typeChord(PenKey::D);
        qInfo("a hundred screenshots asked for within %lld ms", timer.elapsed());
        typeChord(PenKey::G);
        QTRY_VERIFY_WITH_TIMEOUT(e2e::visibleWindowOfSize(program.pid(), {1920, 1080}).id, patience);
        qInfo("the tool behind them is open after %lld ms", timer.elapsed());
        QVERIFY(program.isRunning());

        // The end waits for what is still being written.
        program.signal(SIGTERM);
        QCOMPARE(program.waitForEnd().how, QByteArray("ended with 0"));
        const QStringList files = e2e::screenshots();
        QVERIFY(!files.isEmpty());
        for (const QString &file : files)
            QVERIFY2(QImage(file).size() == QSize(1920, 1080), qPrintable(file));
    }
};

VEXA_WIDGET_TEST_MAIN(CrowdTest)
#include "CrowdTest.moc"
