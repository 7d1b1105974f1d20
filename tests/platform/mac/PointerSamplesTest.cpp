// SPDX-License-Identifier: MIT
#include "platform/PointerSamples.h"

#include "annotation/EveryPointerSample.h"
#include "fakes/mac/AppKit.h"

#include <QTest>

class PointerSamplesTest : public QObject {
    Q_OBJECT

private slots:
    void everySampleCanBeHadAndGivenUpAgain() {
        fakes::AppKit kit;
        QVERIFY(kit.mouseCoalescing);
        QVERIFY(vexa::platform::setPointerSamplesMerged(false));
        QVERIFY(!kit.mouseCoalescing);
        QVERIFY(!vexa::platform::setPointerSamplesMerged(true));
        QVERIFY(kit.mouseCoalescing);
        QCOMPARE(kit.strays(), 0);
    }

    void theyAreMergedAsBeforeWhenTheLastDrawingEnds_data() {
        QTest::addColumn<bool>("before");
        QTest::newRow("merged") << true;
        QTest::newRow("not merged") << false;
    }
    void theyAreMergedAsBeforeWhenTheLastDrawingEnds() {
        QFETCH(bool, before);
        fakes::AppKit kit;
        kit.mouseCoalescing = before;
        {
            const vexa::EveryPointerSample first;
            { const vexa::EveryPointerSample second; }
            QVERIFY(!kit.mouseCoalescing);
        }
        QCOMPARE(kit.mouseCoalescing, before);
    }
};

QTEST_GUILESS_MAIN(PointerSamplesTest)
#include "PointerSamplesTest.moc"
