// SPDX-License-Identifier: MIT
#include "overlays/Grab.h"

#include "overlays/ScreenPicture.h"
#include "platform/OverlayWindow.h"
#include "platform/ScreenCapture.h"
#include "support/ScreenProbe.h"
#include "support/Table.h"
#include "support/TestMain.h"

using namespace vexa::test;

namespace {

constexpr int squarePointer = 16; // pixels wide and high, in one colour
const QColor pointerColour(238, 136, 17);

} // namespace

class GrabTest : public QObject {
    Q_OBJECT

    using Pointers = Table<QRect, QPoint>;

private slots:
    void initTestCase() {
        const QPixmap picture = screenWall();
        m_picture = picture.toImage();
        m_picture.setDevicePixelRatio(1);
        m_wall = new QWidget;
        QPalette palette;
        palette.setBrush(QPalette::Window, QBrush(picture));
        m_wall->setPalette(palette);
        vexa::platform::showOverPrimaryScreen(*m_wall);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), m_picture), 0, patience);
    }

    void init() { QCursor::setPos(300, 200); }

    void cleanupTestCase() { delete m_wall; }

    void aWindowsPictureIsTheRectangleOfTheScreen() {
        const QPixmap picture = Grab::grabWindow(m_wall->winId(), 0, 0, 100, 50);
        QCOMPARE(picture.size(), QSize(100, 50) * screenRatio());
        QCOMPARE(picture.devicePixelRatio(), screenRatio());
        QCOMPARE(differences(picture.toImage(), part({0, 0, 100, 50})), 0);
    }

    void whichWindowMakesNoDifference() {
        for (const WId window : {WId(0), WId(1), m_wall->winId(), WId(0xFFFFFF)})
            QCOMPARE(differences(Grab::grabWindow(window, 7, 9, 100, 50).toImage(), part({7, 9, 100, 50})),
                     0);
    }

    void aRectangleIsWhatTheScreenHasOfIt_data() {
        QTest::addColumn<QRect>("rect");
        const QSize screen = screenPoints();
        QTest::newRow("one point") << QRect(33, 44, 1, 1);
        QTest::newRow("middle") << QRect(101, 99, 57, 83);
        QTest::newRow("bottom right corner") << QRect(screen.width() - 20, screen.height() - 10, 20, 10);
        QTest::newRow("everything") << QRect(QPoint(), screen);
        QTest::newRow("over the right edge") << QRect(screen.width() - 20, 10, 100, 30);
        QTest::newRow("over the top left corner") << QRect(-15, -25, 60, 60);
        QTest::newRow("over every edge") << QRect(-10, -10, screen.width() + 20, screen.height() + 20);
        QTest::newRow("outside") << QRect(screen.width() + 5, 0, 50, 50);
        QTest::newRow("without area") << QRect(10, 10, 0, 0);
    }
    void aRectangleIsWhatTheScreenHasOfIt() {
        QFETCH(QRect, rect);
        const QPixmap picture = Grab::qt_mac_grabScreenRect_10_6(rect);
        const QRect inside = rect & QRect(QPoint(), screenPoints());
        QCOMPARE(picture.isNull(), inside.isEmpty());
        if (!inside.isEmpty())
            QCOMPARE(differences(picture.toImage(), part(inside)), 0);
    }

    void thePointerIsPaintedFourToTheLeftAndThreeUp_data() {
        Pointers::begin();
        const QRect rect(100, 100, 80, 60);
        const int side = squarePointer;
        QTest::newRow("inside") << rect << QPoint(150, 130);
        QTest::newRow("far away") << rect << QPoint(10, 10);
        QTest::newRow("over the left edge") << rect << QPoint(100 + 4 - 5, 130);
        QTest::newRow("last column seen") << rect << QPoint(100 + 80 + 3, 130);
        QTest::newRow("right of it") << rect << QPoint(100 + 80 + 4, 130);
        QTest::newRow("last row seen") << rect << QPoint(130, 100 + 60 + 2);
        QTest::newRow("below it") << rect << QPoint(130, 100 + 60 + 3);
        QTest::newRow("left of it, but for the shift") << rect << QPoint(100 + 4 - side + 1, 130);
        QTest::newRow("above it, but for the shift") << rect << QPoint(130, 100 + 3 - side + 1);
        QTest::newRow("in a rectangle that begins before the screen")
            << QRect(-15, -25, 80, 60) << QPoint(30, 20);
        QTest::newRow("in a rectangle that ends after the screen")
            << QRect(screenPoints().width() - 40, 100, 80, 60) << QPoint(screenPoints().width() - 30, 120);
    }
    void thePointerIsPaintedFourToTheLeftAndThreeUp() {
        const auto [rect, pointer] = Pointers::row();
        QPixmap square(squarePointer, squarePointer);
        square.fill(pointerColour);
        m_wall->setCursor(QCursor(square, 0, 0));
        QCursor::setPos(pointer);
        const auto isShown = [] {
            const QImage shown = vexa::platform::currentCursorPicture().image;
            return shown.width() >= squarePointer && shown.pixel(squarePointer - 1, 0) == pointerColour.rgb();
        };
        QTRY_VERIFY_WITH_TIMEOUT(isShown() && QCursor::pos() == pointer, patience);
        const QSize size = vexa::platform::currentCursorPicture().size;

        const QRect seen = rect & QRect(QPoint(), screenPoints());
        QImage expected = part(seen);
        for (int x = 0; x < size.width(); ++x) {
            for (int y = 0; y < size.height(); ++y) {
                const QPoint at = pointer + QPoint(x - 4, y - 3) - seen.topLeft();
                if (at.x() > 0 && at.y() > 0 && at.x() < seen.width() && at.y() < seen.height())
                    expected.setPixel(at, pointerColour.rgb());
            }
        }
        const QImage picture =
            Grab::getCursorPixmap(rect.x(), rect.y(), rect.width(), rect.height()).toImage();
        QCOMPARE(picture.size(), expected.size());
        QCOMPARE(differences(picture, expected), 0);
    }

    void thePictureOfTheScreenIsTheWholeScreen() {
        const QPixmap picture = vexa::pictureOfPrimaryScreen();
        QCOMPARE(picture.devicePixelRatio(), screenRatio());
        QCOMPARE(differences(picture.toImage(), m_picture), 0);
    }

    void thereIsNoPermissionToAskFor() {
        const QImage before = shownOnScreen();
        Grab::SetpTosysCamera();
        QCOMPARE(differences(shownOnScreen(), before), 0);
    }

private:
    QImage part(const QRect &points) const {
        const int ratio = int(screenRatio());
        return m_picture.copy(points.x() * ratio, points.y() * ratio, points.width() * ratio,
                              points.height() * ratio);
    }

    QWidget *m_wall = nullptr;
    QImage m_picture;
};

VEXA_WIDGET_TEST_MAIN(GrabTest)
#include "GrabTest.moc"
