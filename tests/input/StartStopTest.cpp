// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardHandler.h"

#include <QTest>

namespace {

int openDescriptors() {
    return QDir(QStringLiteral("/proc/self/fd"))
        .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
        .size();
}

} // namespace

/// What a leak or a lost stop request would show at, sooner or later.
class StartStopTest : public QObject {
    Q_OBJECT

private slots:
    void twoThousandStartsAndStopsLeaveNothingBehind() {
        vexa::RecordingBackend backend;
        { CKeyboardHandler first; }
        const int before = openDescriptors();
        for (int i = 0; i < 2000; ++i) {
            CKeyboardHandler handler;
            if (i % 2)
                backend.feedKey(kVK_ANSI_G, true);
        }
        QCOMPARE(backend.openedSources(), 2001);
        QCOMPARE(backend.openSources(), 0);
        QCOMPARE(openDescriptors(), before);
    }

    void failedStartsInBetweenLeaveNothingBehind() {
        vexa::RecordingBackend backend;
        { CKeyboardHandler first; }
        const int before = openDescriptors();
        for (int i = 0; i < 100; ++i) {
            backend.refuse();
            QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);
            backend.refuse(false);
            CKeyboardHandler handler;
            QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);
        }
        QCOMPARE(backend.openSources(), 0);
        QCOMPARE(openDescriptors(), before);
    }
};

QTEST_GUILESS_MAIN(StartStopTest)
#include "StartStopTest.moc"
