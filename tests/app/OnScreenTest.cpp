// SPDX-License-Identifier: MIT
#include "app/OnScreen.h"

#include "support/TestMain.h"

#include <QScreen>

using vexa::wholeOnAScreen;

/// Where a window goes that no screen shows whole.
class OnScreenTest : public QObject {
    Q_OBJECT

private slots:
    void aScreenShowsAllOfIt_data() {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<QPoint>("place");
        // Two screens beside each other, the second one smaller and lower: its panel takes the upper 30
        // points.
        QTest::newRow("whole already") << QRect(10, 20, 400, 300) << QPoint(10, 20);
        QTest::newRow("in the corner") << QRect(600, 500, 400, 300) << QPoint(600, 500);
        QTest::newRow("left of all") << QRect(-5000, 100, 400, 300) << QPoint(0, 100);
        QTest::newRow("above all") << QRect(100, -301, 400, 300) << QPoint(100, 0);
        QTest::newRow("below the first") << QRect(100, 700, 400, 300) << QPoint(100, 500);
        QTest::newRow("right of all") << QRect(9000, 300, 400, 300) << QPoint(1240, 300);
        QTest::newRow("under the panel of the second") << QRect(1100, 210, 400, 300) << QPoint(1100, 230);
        QTest::newRow("mostly on the first") << QRect(700, 300, 400, 300) << QPoint(600, 300);
        QTest::newRow("mostly on the second") << QRect(900, 300, 400, 300) << QPoint(1000, 300);
        QTest::newRow("too wide") << QRect(-50, 100, 1200, 300) << QPoint(-200, 100);
        QTest::newRow("too large for any") << QRect(1300, 300, 5000, 5000) << QPoint(-3360, 230);
    }

    void aScreenShowsAllOfIt() {
        QFETCH(QRect, window);
        QFETCH(QPoint, place);
        QCOMPARE(wholeOnAScreen(window, {QRect(0, 0, 1000, 800), QRect(1000, 230, 640, 480)}), place);
    }

    void withoutAScreenItStays() {
        QCOMPARE(wholeOnAScreen(QRect(-70, 9000, 400, 300), {}), QPoint(-70, 9000));
    }

    void aWindowIsPlacedWhenItIsShownAndStaysWhereItIsDragged() {
        QWidget window;
        window.setWindowFlags(Qt::FramelessWindowHint);
        new vexa::OnScreen(window);
        window.setGeometry(5000, -700, 400, 300);
        window.show();
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(screen.contains(window.geometry()));
        window.move(-300, 100);
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTRY_COMPARE(window.pos(), QPoint(-300, 100)); // the server tells of the place before it as well
        window.hide();
        window.show();
        QTRY_COMPARE(window.pos(), QPoint(0, 100));
    }
};

VEXA_WIDGET_TEST_MAIN(OnScreenTest)
#include "OnScreenTest.moc"
