// SPDX-License-Identifier: MIT
#include "app/PointerFence.h"

#include "platform/ScreenPlace.h"

#include <QTest>

using vexa::PointerFence;
using vexa::platform::Pixels;
using vexa::platform::ScreenPlace;

namespace {

constexpr Pixels pixels{1366, 768};

/// What the listener tells of a place: whole points, cut off towards zero.
QPoint told(const ScreenPlace &screen, Pixels place) {
    const auto points = screen.toPoints(place);
    return {int(points.x), int(points.y)};
}

} // namespace

class PointerFenceTest : public QObject {
    Q_OBJECT

private slots:
    /// Or each correction would call for the next one, for ever.
    void aPointerThatWasKeptInNeedsNoKeepingIn_data() {
        QTest::addColumn<double>("scale");
        for (int sixteenths = 8; sixteenths <= 48; ++sixteenths)
            QTest::addRow("%d/16", sixteenths) << sixteenths / 16.0;
        for (const double scale : {0.3, 0.9, 1.1, 1.3, 1.35, 1.6, 1.8, 2.3})
            QTest::addRow("%.2f", scale) << scale;
    }

    void aPointerThatWasKeptInNeedsNoKeepingIn() {
        QFETCH(double, scale);
        const ScreenPlace screen{{1920, -100}, pixels, scale};
        const QSize size(qRound(pixels.x / scale), qRound(pixels.y / scale)); // as the toolkit rounds it
        for (int x = -5; x < pixels.x + 5; ++x) {
            for (const int y : {-3, 0, 5, 400, pixels.y - 5, pixels.y - 1, pixels.y + 3}) {
                const QPoint pushedTo = told(screen, {1920 + x, -100 + y});
                const QPoint kept = vexa::withinMargin(pushedTo, size);
                const Pixels sentTo = screen.toPixels({double(kept.x()), double(kept.y())});
                const QPoint arrived = told(screen, sentTo);
                if (kept != pushedTo)
                    QCOMPARE(vexa::withinMargin(arrived, size), arrived);
                QVERIFY(screen.contains(sentTo));
            }
        }
    }

    void aPointerOnTheScreenIsHeldThere() {
        PointerFence fence;
        fence.raise(false);
        QVERIFY(fence.holds(true)); // it has left too fast for a place in between to be told
        QVERIFY(fence.holds(false));
    }

    void aPointerOnAnotherScreenIsFreeUntilItComesOver() {
        PointerFence fence;
        fence.raise(true);
        QVERIFY(!fence.holds(true));
        QVERIFY(!fence.holds(true));
        QVERIFY(fence.holds(false));
        QVERIFY(fence.holds(true));
        fence.raise(true);
        QVERIFY(!fence.holds(true));
    }
};

QTEST_APPLESS_MAIN(PointerFenceTest)
#include "PointerFenceTest.moc"
