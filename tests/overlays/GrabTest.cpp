// SPDX-License-Identifier: MIT
#include "overlays/Grab.h"

#include "overlays/ScreenPicture.h"
#include "overlays/ScreenProbe.h"
#include "platform/OverlayWindow.h"
#include "platform/ScreenCapture.h"
#include "support/TestMain.h"

using namespace vexa::test;

class GrabTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void aWindowsPictureIsTheRectangleOfTheScreen();
    void whichWindowMakesNoDifference();
    void aRectangleAnywhereIsThatOfTheScreen_data();
    void aRectangleAnywhereIsThatOfTheScreen();
    void beyondTheScreenThereIsNothing_data();
    void beyondTheScreenThereIsNothing();
    void withoutThePointerInsideThePictureIsPlain_data();
    void withoutThePointerInsideThePictureIsPlain();
    void thePointerIsPaintedWhereItStands();
    void thePictureOfTheScreenIsTheWholeScreen();
    void thereIsNoPermissionToAskFor();

private:
    QImage part(const QRect &points) const;

    QWidget *m_wall = nullptr;
    QImage m_picture;
};

void GrabTest::initTestCase() {
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

void GrabTest::init() {
    QCursor::setPos(300, 200);
}

void GrabTest::cleanupTestCase() {
    delete m_wall;
}

QImage GrabTest::part(const QRect &points) const {
    const int ratio = int(screenRatio());
    return m_picture.copy(points.x() * ratio, points.y() * ratio, points.width() * ratio,
                          points.height() * ratio);
}

void GrabTest::aWindowsPictureIsTheRectangleOfTheScreen() {
    const QPixmap picture = Grab::grabWindow(m_wall->winId(), 0, 0, 100, 50);
    QCOMPARE(picture.size(), QSize(100, 50) * screenRatio());
    QCOMPARE(picture.devicePixelRatio(), screenRatio());
    QCOMPARE(differences(picture.toImage(), part({0, 0, 100, 50})), 0);
}

void GrabTest::whichWindowMakesNoDifference() {
    for (const WId window : {WId(0), WId(1), m_wall->winId(), WId(0xFFFFFF)})
        QCOMPARE(differences(Grab::grabWindow(window, 7, 9, 100, 50).toImage(), part({7, 9, 100, 50})), 0);
}

void GrabTest::aRectangleAnywhereIsThatOfTheScreen_data() {
    QTest::addColumn<QRect>("rect");
    const QSize screen = screenPoints();
    QTest::newRow("one point") << QRect(33, 44, 1, 1);
    QTest::newRow("middle") << QRect(101, 99, 57, 83);
    QTest::newRow("bottom right corner") << QRect(screen.width() - 20, screen.height() - 10, 20, 10);
    QTest::newRow("everything") << QRect(QPoint(), screen);
}

void GrabTest::aRectangleAnywhereIsThatOfTheScreen() {
    QFETCH(QRect, rect);
    QCOMPARE(differences(Grab::qt_mac_grabScreenRect_10_6(rect).toImage(), part(rect)), 0);
}

void GrabTest::beyondTheScreenThereIsNothing_data() {
    QTest::addColumn<QRect>("rect");
    const QSize screen = screenPoints();
    QTest::newRow("over the right edge") << QRect(screen.width() - 20, 10, 100, 30);
    QTest::newRow("over the top left corner") << QRect(-15, -25, 60, 60);
    QTest::newRow("over every edge") << QRect(-10, -10, screen.width() + 20, screen.height() + 20);
    QTest::newRow("outside") << QRect(screen.width() + 5, 0, 50, 50);
    QTest::newRow("without area") << QRect(10, 10, 0, 0);
}

void GrabTest::beyondTheScreenThereIsNothing() {
    QFETCH(QRect, rect);
    const QPixmap picture = Grab::qt_mac_grabScreenRect_10_6(rect);
    const QRect inside = rect & QRect(QPoint(), screenPoints());
    QCOMPARE(picture.isNull(), inside.isEmpty());
    if (!inside.isEmpty())
        QCOMPARE(differences(picture.toImage(), part(inside)), 0);
}

void GrabTest::withoutThePointerInsideThePictureIsPlain_data() {
    QTest::addColumn<QPoint>("pointer");
    QTest::newRow("far away") << QPoint(10, 10);
    // The picture of the pointer moves 4 to the left and 3 up.
    QTest::newRow("right of it") << QPoint(100 + 80 + 4, 120);
    QTest::newRow("below it") << QPoint(120, 100 + 60 + 3);
}

void GrabTest::withoutThePointerInsideThePictureIsPlain() {
    QFETCH(QPoint, pointer);
    QCursor::setPos(pointer);
    const QImage picture = Grab::getCursorPixmap(100, 100, 80, 60).toImage();
    QCOMPARE(differences(picture, part({100, 100, 80, 60})), 0);
}

void GrabTest::thePointerIsPaintedWhereItStands() {
    m_wall->setCursor(Qt::ArrowCursor);
    const QPoint pointer(150, 130);
    QCursor::setPos(pointer);
    vexa::platform::CursorPicture cursor;
    QTRY_VERIFY_WITH_TIMEOUT(!(cursor = vexa::platform::currentCursorPicture()).image.isNull(), patience);
    QCOMPARE(cursor.size, cursor.image.size());

    const QImage picture = Grab::getCursorPixmap(100, 100, 80, 60).toImage();
    QImage expected = part({100, 100, 80, 60});
    int painted = 0;
    for (int j = 0; j < cursor.size.height(); ++j) {
        for (int i = 0; i < cursor.size.width(); ++i) {
            const QRgb word = reinterpret_cast<const QRgb *>(cursor.image.constScanLine(j))[i];
            const QPoint at(pointer.x() + i - 100 - 4, pointer.y() + j - 100 - 3);
            const bool black = (word & RGB_MASK) == 0;
            if ((black && word != 0xFF000000) || !expected.rect().contains(at) || at.x() == 0 || at.y() == 0)
                continue;
            expected.setPixel(at, word | 0xFF000000);
            ++painted;
        }
    }
    QVERIFY2(painted > 20, "the pointer has hardly any picture");
    QCOMPARE(differences(picture, expected), 0);
}

void GrabTest::thePictureOfTheScreenIsTheWholeScreen() {
    const QPixmap picture = vexa::pictureOfPrimaryScreen();
    QCOMPARE(picture.devicePixelRatio(), screenRatio());
    QCOMPARE(differences(picture.toImage(), m_picture), 0);
}

void GrabTest::thereIsNoPermissionToAskFor() {
    const QImage before = shownOnScreen();
    Grab::SetpTosysCamera();
    QCOMPARE(differences(shownOnScreen(), before), 0);
}

VEXA_WIDGET_TEST_MAIN(GrabTest)
#include "GrabTest.moc"
