// SPDX-License-Identifier: MIT
//
// Each held tool, moved over the real screen, against the plain renderer: pixel by pixel, wherever it goes.
#include "overlays/HeldToolKinds.h"
#include "overlays/PlainRenderer.h"
#include "overlays/TickCounter.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QPainter>
#include <QPointer>

using namespace vexa::test;

namespace {

/// Corners, edges, the middle, places where a tool of radius 60 to 183 is cut, steps near and far.
QVector<QPoint> walk() {
    const int right = screenPoints().width() - 1;
    const int bottom = screenPoints().height() - 1;
    const QPoint middle(right / 2, bottom / 2);
    return {middle,
            middle + QPoint(1, 0),
            middle + QPoint(12, 7),
            {4, 4},
            {right - 4, 4},
            {right - 4, bottom - 4},
            {4, bottom - 4},
            {0, 0},
            {right, bottom},
            {middle.x(), 0},
            {right, middle.y()},
            {middle.x(), bottom},
            {0, middle.y()},
            {10, 10},
            {50, 50},
            {100, 99},
            {101, 100},
            {99, 101},
            {right - 50, bottom - 90},
            {right + 30, bottom + 30},
            {-30, 200},
            {5000, 5000},
            middle};
}

const QColor red(255, 0, 0);
const QColor blue(0, 129 - 4, 255); // slider value 890

/// What must be seen of a tool at its present settings.
QImage plain(const HeldToolKind &kind, const QPixmap &background, const QPoint &at) {
    if (kind.code == spotlight.code)
        return plainSpotlight(background, at, ZrToolXmlClass::SportLightSize, ZrToolXmlClass::SportLightTran);
    if (kind.code == magnifier.code)
        return plainMagnifier(background, at, ZrToolXmlClass::MagnifierSize, blue);
    return plainLaser(background, at, ZrToolXmlClass::LaserPenSize, red);
}

} // namespace

class HeldToolScreenTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        ZrToolXmlClass::LaserPenColor = 510;
        ZrToolXmlClass::MagnifierColor = 890;
        ZrToolXmlClass::SportLightTran = 132;
        setToolSizes(100);
        QCursor::setPos(pointer);
        QTRY_COMPARE_WITH_TIMEOUT(QCursor::pos(), pointer, patience);
    }

    void itIsAsIfDrawnAnewWhereverItGoes_data() {
        Walks::begin();
        for (const int size : {0, 1, 2, 13, 100})
            QTest::addRow("laser %d", size) << laser << size << 132;
        for (const int size : {0, 1, 2, 60, 100, 177, 2000})
            QTest::addRow("magnifier %d", size) << magnifier << size << 132;
        QTest::newRow("spotlight") << spotlight << 183 << 132;
        QTest::newRow("spotlight 100") << spotlight << 100 << 175;
        QTest::newRow("spotlight, one point") << spotlight << 1 << 255;
        QTest::newRow("spotlight, no disc") << spotlight << 0 << 132;
        QTest::newRow("spotlight, larger than the screen") << spotlight << 3000 << 132;
        QTest::newRow("spotlight, clear veil") << spotlight << 100 << 0;
        QTest::newRow("spotlight, no veil above 255") << spotlight << 100 << 256;
        QTest::newRow("spotlight, no veil below 0") << spotlight << 100 << -1;
        QTest::newRow("spotlight, opaque veil") << spotlight << 100 << 255;
    }
    void itIsAsIfDrawnAnewWhereverItGoes() {
        const auto [kind, size, alpha] = Walks::row();
        setToolSizes(size);
        ZrToolXmlClass::SportLightTran = alpha;
        QPixmap background = screenWall();
        const QPointer<QWidget> tool(kind.open(&background));
        for (const QPoint &at : walk()) {
            kind.move(tool, at);
            QTimerEvent anyTick(-2); // whatever is not the guard's is a frame's
            QCoreApplication::sendEvent(tool, &anyTick);
            QCoreApplication::processEvents();
            QVERIFY(screenBecomes(plain(kind, background, at)));
        }
        tool->close();
        QTRY_VERIFY_WITH_TIMEOUT(tool.isNull(), patience);
    }

    void standsAtThePointerBeforeTheFirstTick_data() { allHeldTools(); }
    void standsAtThePointerBeforeTheFirstTick() {
        QFETCH(HeldToolKind, kind);
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool(kind.make());
        tool->setAttribute(Qt::WA_DeleteOnClose, false);
        TickCounter ticks(tool.get());
        ticks.held = true;
        kind.setBackground(tool.get(), &background);
        kind.press(tool.get(), true);
        vexa::platform::showOverPrimaryScreen(*tool);
        QVERIFY(screenBecomes(plain(kind, background, pointer)));
    }

    void aPressPlacesItAtTheNearestPoint_data() { allHeldTools(); }
    void aPressPlacesItAtTheNearestPoint() {
        QFETCH(HeldToolKind, kind);
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool = opened(kind, background);
        QVERIFY(screenBecomes(plain(kind, background, pointer)));

        TickCounter ticks(tool.get());
        ticks.held = true;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(400.5, 180.4), Qt::LeftButton, Qt::LeftButton,
                          {});
        QCoreApplication::sendEvent(tool.get(), &press);
        const bool drawnByThePressItself = kind.code == laser.code;
        if (!drawnByThePressItself) {
            QCoreApplication::processEvents();
            QCOMPARE(differences(shownOnScreen(), plain(kind, background, pointer)), 0);
            ticks.held = false;
        }
        QVERIFY(screenBecomes(plain(kind, background, {401, 180})));
    }

    void theSpotlightIsOnlyDrawnWhilePressed() {
        QPixmap background = screenWall();
        const QImage bare = background.toImage().convertToFormat(QImage::Format_RGB32);
        const std::unique_ptr<QWidget> tool(spotlight.make());
        tool->setAttribute(Qt::WA_DeleteOnClose, false);
        spotlight.setBackground(tool.get(), &background);
        vexa::platform::showOverPrimaryScreen(*tool);
        for (const bool pressed : {false, true, false}) {
            spotlight.press(tool.get(), pressed);
            QVERIFY(screenBecomes(pressed ? plain(spotlight, background, pointer) : bare));
        }
    }

    void aPictureOneAndAHalfTimesAsWideIsCutAtItsWholeScale_data() { allHeldTools(); }
    void aPictureOneAndAHalfTimesAsWideIsCutAtItsWholeScale() {
        QFETCH(HeldToolKind, kind);
        QPixmap background = wall(screenPoints() * screenRatio() + screenPoints() / 2, screenRatio());
        const std::unique_ptr<QWidget> tool = opened(kind, background);
        for (const QPoint &at : {QPoint(300, 200), QPoint(30, 20), QPoint(600, 390)}) {
            kind.move(tool.get(), at);
            QVERIFY(screenBecomes(plain(kind, background, at)));
        }
    }

    void settingsThatChangeWhileOpenAreFollowed() {
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool = opened(spotlight, background);
        for (const auto &[size, alpha] :
             {std::pair(100, 132), {40, 132}, {120, 132}, {120, 20}, {0, 20}, {90, 256}, {90, 200}}) {
            ZrToolXmlClass::SportLightSize = size;
            ZrToolXmlClass::SportLightTran = alpha;
            QVERIFY(screenBecomes(plain(spotlight, background, pointer)));
        }
    }

    void aNewPictureWhileOpenIsFollowed() {
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool = opened(magnifier, background);
        QVERIFY(screenBecomes(plain(magnifier, background, pointer)));

        background.fill(QColor(10, 200, 30)); // the caller's picture is the caller's
        magnifier.move(tool.get(), {310, 200});
        QVERIFY(screenBecomes(plain(magnifier, screenWall(), {310, 200})));

        magnifier.setBackground(tool.get(), &background);
        QVERIFY(screenBecomes(plain(magnifier, background, {310, 200})));
    }

    void aPictureThatDoesNotSayItsDensityIsShownWhole() {
        QPixmap mute = wall(screenPoints() * 2, 1);
        QPixmap dense = mute;
        dense.setDevicePixelRatio(2);
        QImage whole(screenPoints() * screenRatio(), QImage::Format_RGB32);
        whole.setDevicePixelRatio(screenRatio());
        QPainter painter(&whole);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(0, 0, dense);
        painter.end();
        const std::unique_ptr<QWidget> tool = opened(spotlight, mute);
        const auto isLit = [&whole](const QPoint &fromPointer) {
            const QPoint pixel = (pointer + fromPointer) * screenRatio();
            return alike(shownOnScreen().pixel(pixel), whole.pixel(pixel), 24);
        };
        for (const QPoint &inside : {QPoint(0, 0), QPoint(-96, 0), QPoint(0, 96)})
            QTRY_VERIFY_WITH_TIMEOUT(isLit(inside), patience);
        for (const QPoint &outside : {QPoint(106, 0), QPoint(0, 106)})
            QTRY_VERIFY_WITH_TIMEOUT(!isLit(outside), patience);
    }

    void whatAnotherWindowCoveredComesBack() {
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool = opened(laser, background);
        const QImage expected = plain(laser, background, pointer);
        QVERIFY(screenBecomes(expected));
        {
            QWidget above(nullptr, Qt::FramelessWindowHint);
            above.setGeometry(250, 150, 400, 200);
            vexa::platform::showAboveAll(above);
            QTRY_VERIFY_WITH_TIMEOUT(differences(shownOnScreen(), expected) > 1000, patience);
        }
        QVERIFY(screenBecomes(expected));
    }

private:
    using Walks = Table<HeldToolKind, int, int>; // a tool, its size, the alpha of its veil

    static constexpr QPoint pointer{333, 222};

    /// An open tool that its owner deletes.
    static std::unique_ptr<QWidget> opened(const HeldToolKind &kind, QPixmap &background) {
        std::unique_ptr<QWidget> tool(kind.open(&background));
        tool->setAttribute(Qt::WA_DeleteOnClose, false);
        return tool;
    }
};

VEXA_WIDGET_TEST_MAIN(HeldToolScreenTest)
#include "HeldToolScreenTest.moc"
