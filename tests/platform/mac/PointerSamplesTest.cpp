// SPDX-License-Identifier: MIT
#include "platform/PointerSamples.h"
#include "annotation/EveryPointerSample.h"
#include "fakes/mac/AppKit.h"

#include <QtTest>

class PointerSamplesTest : public QObject {
    Q_OBJECT

private slots:
    void everySampleCanBeHadAndGivenUpAgain() {
        fakes::AppKit kit;
        QVERIFY(kit.mouseCoalescing);
        vexa::platform::setPointerSamplesMerged(false);
        QVERIFY(!kit.mouseCoalescing);
        vexa::platform::setPointerSamplesMerged(true);
        QVERIFY(kit.mouseCoalescing);
        QCOMPARE(kit.strays(), 0);
    }

    void theyAreMergedAgainWhenTheLastDrawingEnds() {
        const fakes::AppKit kit;
        {
            const vexa::EveryPointerSample first;
            { const vexa::EveryPointerSample second; }
            QVERIFY(!kit.mouseCoalescing);
        }
        QVERIFY(kit.mouseCoalescing);
    }
};

QTEST_GUILESS_MAIN(PointerSamplesTest)
#include "PointerSamplesTest.moc"
