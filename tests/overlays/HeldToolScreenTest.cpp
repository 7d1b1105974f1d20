// SPDX-License-Identifier: MIT
//
// Each held tool, moved over the real screen, against the plain renderer: pixel by pixel, wherever it goes.
#include "overlays/HeldToolKinds.h"
#include "overlays/PlainRenderer.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
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

/// What must be seen of a tool of radius 100.
QImage plain(const HeldToolKind &kind, const QPixmap &background, const QPoint &at) {
    if (kind.code == 2)
        return plainSpotlight(background, at, 100, 132);
    if (kind.code == 3)
        return plainMagnifier(background, at, 100, blue);
    return plainLaser(background, at, 100, red);
}

/// Keeps a tool's timers from it while held.
class Standstill : public QObject {
public:
    explicit Standstill(QObject *tool) { tool->installEventFilter(this); }
    bool held = true;

    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        return held && event->type() == QEvent::Timer;
    }
};

} // namespace

class HeldToolScreenTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        ZrToolXmlClass::LaserPenColor = 510;
        ZrToolXmlClass::MagnifierColor = 890;
        ZrToolXmlClass::SportLightTran = 132;
        ZrToolXmlClass::LaserPenSize = 100;
        ZrToolXmlClass::SportLightSize = 100;
        ZrToolXmlClass::MagnifierSize = 100;
        QCursor::setPos(screenPoints().width() / 2, screenPoints().height() / 2);
    }

    void laser_data() {
        QTest::addColumn<int>("size");
        for (const int size : {0, 1, 2, 13, 100})
            QTest::addRow("%d", size) << size;
    }
    void laser() {
        QFETCH(int, size);
        ZrToolXmlClass::LaserPenSize = size;
        walkWith(new LightPen, [&](const QPixmap &background, const QPoint &at) {
            return plainLaser(background, at, size, red);
        });
    }

    void spotlight_data() {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("alpha");
        QTest::newRow("usual") << 183 << 132;
        QTest::newRow("100") << 100 << 175;
        QTest::newRow("one point") << 1 << 255;
        QTest::newRow("no disc") << 0 << 132;
        QTest::newRow("larger than the screen") << 3000 << 132;
        QTest::newRow("clear veil") << 100 << 0;
        QTest::newRow("no veil above 255") << 100 << 256;
        QTest::newRow("no veil below 0") << 100 << -1;
        QTest::newRow("opaque veil") << 100 << 255;
    }
    void spotlight() {
        QFETCH(int, size);
        QFETCH(int, alpha);
        ZrToolXmlClass::SportLightSize = size;
        ZrToolXmlClass::SportLightTran = alpha;
        walkWith(new Spolight2, [&](const QPixmap &background, const QPoint &at) {
            return plainSpotlight(background, at, size, alpha);
        });
    }

    void magnifier_data() {
        QTest::addColumn<int>("size");
        for (const int size : {0, 1, 2, 60, 100, 177, 2000})
            QTest::addRow("%d", size) << size;
    }
    void magnifier() {
        QFETCH(int, size);
        ZrToolXmlClass::MagnifierSize = size;
        walkWith(new Magnifie, [&](const QPixmap &background, const QPoint &at) {
            return plainMagnifier(background, at, size, blue);
        });
    }

    void standsAtThePointerBeforeTheFirstTick_data() { allHeldTools(); }
    void standsAtThePointerBeforeTheFirstTick() {
        QFETCH(HeldToolKind, kind);
        const QPoint pointer(333, 222);
        QCursor::setPos(pointer);
        QTRY_COMPARE_WITH_TIMEOUT(QCursor::pos(), pointer, patience);
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool(kind.make());
        tool->setAttribute(Qt::WA_DeleteOnClose, false);
        const Standstill standstill(tool.get());
        kind.setBackground(tool.get(), &background);
        kind.press(tool.get(), true);
        vexa::platform::showOverPrimaryScreen(*tool);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), plain(kind, background, pointer)), 0,
                                  patience);
    }

    void aPressPlacesItAtTheNearestPoint_data() { allHeldTools(); }
    void aPressPlacesItAtTheNearestPoint() {
        QFETCH(HeldToolKind, kind);
        const QPoint before(333, 222);
        const QPoint after(401, 180);
        QCursor::setPos(before);
        QTRY_COMPARE_WITH_TIMEOUT(QCursor::pos(), before, patience);
        QPixmap background = screenWall();
        const std::unique_ptr<QWidget> tool(kind.open(&background));
        tool->setAttribute(Qt::WA_DeleteOnClose, false);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), plain(kind, background, before)), 0, patience);

        Standstill standstill(tool.get());
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(400.5, 180.4), Qt::LeftButton, Qt::LeftButton,
                          {});
        QCoreApplication::sendEvent(tool.get(), &press);
        const bool drawnByThePressItself = kind.code == 4;
        if (!drawnByThePressItself) {
            QCoreApplication::processEvents();
            QCOMPARE(differences(shownOnScreen(), plain(kind, background, before)), 0);
            standstill.held = false;
        }
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), plain(kind, background, after)), 0, patience);
    }

    void theSpotlightIsOnlyDrawnWhilePressed() {
        const QPoint pointer(300, 200);
        QCursor::setPos(pointer);
        QTRY_COMPARE_WITH_TIMEOUT(QCursor::pos(), pointer, patience);
        ZrToolXmlClass::SportLightSize = 100;
        QPixmap background = screenWall();
        const QImage bare = background.toImage().convertToFormat(QImage::Format_RGB32);
        const QImage lit = plainSpotlight(background, pointer, 100, 132);
        Spolight2 tool;
        tool.setAttribute(Qt::WA_DeleteOnClose, false);
        tool.Setbackground(&background);
        tool.SetMousePress(false);
        vexa::platform::showOverPrimaryScreen(tool);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), bare), 0, patience);
        tool.SetMousePress(true);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), lit), 0, patience);
        tool.SetMousePress(false);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), bare), 0, patience);
    }

    void aPictureOneAndAHalfTimesAsWideIsCutAtItsWholeScale_data() { allHeldTools(); }
    void aPictureOneAndAHalfTimesAsWideIsCutAtItsWholeScale() {
        QFETCH(HeldToolKind, kind);
        const QSize half = screenPoints() / 2;
        QPixmap background = wall(screenPoints() * screenRatio() + half, screenRatio());
        const std::unique_ptr<QWidget> tool(kind.open(&background));
        tool->setAttribute(Qt::WA_DeleteOnClose, false);
        for (const QPoint &at : {QPoint(300, 200), QPoint(30, 20), QPoint(600, 390)}) {
            kind.move(tool.get(), at);
            QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), plain(kind, background, at)), 0, patience);
        }
    }

    void settingsThatChangeWhileOpenAreFollowed() {
        ZrToolXmlClass::SportLightSize = 100;
        auto *tool = new Spolight2;
        QPixmap background = screenWall();
        tool->Setbackground(&background);
        tool->SetMousePress(true);
        vexa::platform::showOverPrimaryScreen(*tool);
        tool->SetMouseMove(300, 200);
        const struct {
            int size, alpha;
        } steps[] = {{100, 132}, {40, 132}, {120, 132}, {120, 20}, {0, 20}, {90, 256}, {90, 200}};
        for (const auto &step : steps) {
            ZrToolXmlClass::SportLightSize = step.size;
            ZrToolXmlClass::SportLightTran = step.alpha;
            const QImage expected = plainSpotlight(background, {300, 200}, step.size, step.alpha);
            QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), expected), 0, patience);
        }
        tool->close();
    }

    void aNewPictureWhileOpenIsFollowed() {
        ZrToolXmlClass::MagnifierSize = 100;
        auto *tool = new Magnifie;
        QPixmap background = screenWall();
        tool->Setbackground(&background);
        tool->SetMousePress(true);
        vexa::platform::showOverPrimaryScreen(*tool);
        tool->SetMouseMove(300, 200);
        QTRY_COMPARE_WITH_TIMEOUT(
            differences(shownOnScreen(), plainMagnifier(background, {300, 200}, 100, blue)), 0, patience);

        background.fill(QColor(10, 200, 30)); // the caller's picture is the caller's
        tool->SetMouseMove(310, 200);
        QTRY_COMPARE_WITH_TIMEOUT(
            differences(shownOnScreen(), plainMagnifier(screenWall(), {310, 200}, 100, blue)), 0, patience);

        tool->Setbackground(&background);
        QTRY_COMPARE_WITH_TIMEOUT(
            differences(shownOnScreen(), plainMagnifier(background, {310, 200}, 100, blue)), 0, patience);
        tool->close();
    }

    void aPictureThatDoesNotSayItsDensityIsShownWhole() {
        ZrToolXmlClass::SportLightSize = 100;
        auto *tool = new Spolight2;
        QPixmap mute = wall(screenPoints() * 2, 1);
        tool->Setbackground(&mute);
        tool->SetMousePress(true);
        tool->SetMouseMove(300, 200);
        vexa::platform::showOverPrimaryScreen(*tool);
        const auto lit = [&](const QPoint &at) {
            const QPoint pixel = at * screenRatio();
            const QRgb shown = shownOnScreen().pixel(pixel);
            QPixmap dense = mute;
            dense.setDevicePixelRatio(2);
            QImage whole(screenPoints() * screenRatio(), QImage::Format_RGB32);
            whole.setDevicePixelRatio(screenRatio());
            QPainter painter(&whole);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawPixmap(0, 0, dense);
            painter.end();
            return alike(shown, whole.pixel(pixel), 24);
        };
        QTRY_VERIFY_WITH_TIMEOUT(lit({300, 200}), patience);
        QTRY_VERIFY_WITH_TIMEOUT(lit({300 - 96, 200}), patience);
        QTRY_VERIFY_WITH_TIMEOUT(lit({300, 200 + 96}), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!lit({300 + 106, 200}), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!lit({300, 200 + 106}), patience);
        tool->close();
    }

    void whatAnotherWindowCoveredComesBack() {
        ZrToolXmlClass::LaserPenSize = 100;
        auto *tool = new LightPen;
        QPixmap background = screenWall();
        tool->Setbackground(&background);
        tool->SetMousePress(true);
        tool->SetMouseMove(300, 200);
        vexa::platform::showOverPrimaryScreen(*tool);
        const QImage expected = plainLaser(background, {300, 200}, 100, red);
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), expected), 0, patience);
        {
            QWidget above(nullptr, Qt::FramelessWindowHint);
            above.setGeometry(250, 150, 400, 200);
            vexa::platform::showAboveAll(above);
            QTRY_VERIFY_WITH_TIMEOUT(differences(shownOnScreen(), expected) > 1000, patience);
        }
        QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), expected), 0, patience);
        tool->close();
    }

private:
    /// Walks over the screen with the tool and compares; `plain` draws what must be seen at a position.
    template<typename Tool, typename Plain> void walkWith(Tool *tool, const Plain &plain) {
        const QPointer<Tool> open(tool);
        QPixmap background = screenWall();
        tool->Setbackground(&background);
        tool->SetMousePress(true);
        vexa::platform::showOverPrimaryScreen(*tool);
        for (const QPoint &at : walk()) {
            tool->SetMouseMove(at.x(), at.y());
            const QImage expected = plain(background, at);
            QTRY_COMPARE_WITH_TIMEOUT(differences(shownOnScreen(), expected), 0, patience);
        }
        tool->close();
        QTRY_VERIFY_WITH_TIMEOUT(open.isNull(), patience);
    }
};

VEXA_WIDGET_TEST_MAIN(HeldToolScreenTest)
#include "HeldToolScreenTest.moc"
