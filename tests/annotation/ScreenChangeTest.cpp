// SPDX-License-Identifier: MIT
//
// A screen that gets another resolution while an overlay is open.
#include "annotation/DrawingFaces.h"
#include "overlays/HeldToolKinds.h"
#include "overlays/PromptWindow.h"
#include "support/Resolution.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QPainter>
#include <QScreen>
#include <QSignalBlocker>

using namespace vexa::test;
using vexa::DrawingForm;

namespace {

constexpr QSize large(800, 600);
constexpr QSize small(640, 480);

/// Returns when the toolkit has heard of it.
void setScreen(const QSize &size) {
    setResolution(size);
    QTRY_COMPARE_WITH_TIMEOUT(screenPoints(), size, patience);
}

/// The screen's left half red, its right half blue.
QPixmap halves() {
    QPixmap picture(screenPoints());
    picture.fill(Qt::blue);
    QPainter(&picture).fillRect(0, 0, picture.width() / 2, picture.height(), Qt::red);
    return picture;
}

QRgb shownAt(int x, int y) {
    return faces::screen().pixel(x, y);
}

/// Waits until the screen has this colour there.
bool shows(QRgb colour, const QPoint &at) {
    return QTest::qWaitFor([&] { return faces::screen().pixel(at) == colour; }, patience);
}

/// The whole screen shows the halves of the picture, whatever its size.
bool halvesFillTheScreen() {
    const int right = screenPoints().width() - 1;
    const int bottom = screenPoints().height() - 1;
    const int middle = screenPoints().width() / 2;
    return shownAt(0, bottom) == 0xffff0000 && shownAt(middle - 5, bottom) == 0xffff0000 &&
           shownAt(middle + 5, bottom) == 0xff0000ff && shownAt(right, bottom) == 0xff0000ff;
}

} // namespace

class ScreenChangeTest : public QObject {
    Q_OBJECT

    using Tools = Table<HeldToolKind, QSize>; // and the size that the screen gets
    using Windows = Table<bool, QSize>;

private slots:
    void initTestCase() { addResolution(small); }
    void init() { setScreen(large); }

    void heldToolsFollow_data() {
        Tools::begin();
        for (const auto &kind : {laser, spotlight, magnifier}) {
            QTest::addRow("%s, smaller", kind.name) << kind << small;
            QTest::addRow("%s, larger", kind.name) << kind << large;
        }
    }
    void heldToolsFollow() {
        const auto [kind, size] = Tools::row();
        setToolSizes(20);
        ZrToolXmlClass::LaserPenColor = 1275; // white
        ZrToolXmlClass::SportLightTran = 256; // no veil
        if (size == large)
            setScreen(small);
        QPixmap picture = halves();
        const QPointer<QWidget> tool(kind.open(&picture));
        kind.move(tool, {20, 20});
        QVERIFY(QTest::qWaitForWindowExposed(tool));
        setScreen(size);
        const QPoint nearCorner(size.width() - 40, size.height() - 40);
        kind.move(tool, nearCorner);
        QTRY_COMPARE_WITH_TIMEOUT(tool->geometry(), QRect(QPoint(), size), patience);
        QVERIFY(tool->isFullScreen());
        if (kind.code == spotlight.code) {
            ZrToolXmlClass::SportLightTran = 255;
            QVERIFY(shows(0xff000000, nearCorner - QPoint(30, 0)));
            QVERIFY(shows(0xff0000ff, nearCorner));
            QVERIFY(shows(0xff000000, {20, 20}));
        } else {
            QVERIFY(shows(kind.code == laser.code ? 0xffffffff : 0xff0000ff, nearCorner));
            QVERIFY(shows(0xff0000ff, nearCorner + QPoint(21, -30)));
            kind.move(tool, {20, 20});
            QTRY_VERIFY_WITH_TIMEOUT(halvesFillTheScreen(), patience);
        }
        tool->close();
    }

    void drawingWindowsFollow_data() {
        Windows::begin();
        for (const QSize &size : {small, large}) {
            QTest::addRow("annotation, %d", size.width()) << faces::annotation << size;
            QTest::addRow("blackboard, %d", size.width()) << faces::blackboard << size;
        }
    }
    void drawingWindowsFollow() {
        const auto [face, size] = Windows::row();
        ZrToolXmlClass::PenColor0 = 5;
        ZrToolXmlClass::PenThickness = 3;
        if (size == large)
            setScreen(small);
        const QPointer<DrawingForm> form(faces::open(face, halves()));
        faces::press(*form, {100, 100}); // a stroke that the change ends
        setScreen(size);
        QTRY_COMPARE_WITH_TIMEOUT(form->geometry(), QRect(QPoint(), size), patience);
        QVERIFY(form->isFullScreen());
        const int middle = (size.width() - 60) / 2;
        QCOMPARE(faces::exitButton(*form)->pos(), QPoint(middle + 80, size.height() - 100));
        QCOMPARE(faces::eraserButton(*form)->pos(), QPoint(middle, size.height() - 100));
        QCOMPARE(faces::penButton(*form)->pos(), QPoint(middle - 80, size.height() - 100));
        QCOMPARE(faces::title(*form)->geometry(), QRect((size.width() - 280) / 2, 0, 280, 40));
        if (face == faces::blackboard)
            QVERIFY(shows(faces::boardColour, {size.width() - 1, size.height() - 1}));
        else
            QTRY_VERIFY_WITH_TIMEOUT(halvesFillTheScreen(), patience);
        faces::move(*form, {200, 200}); // without a button that is down
        const QPoint nearCorner(size.width() - 30, size.height() - 30);
        faces::stroke(*form, faces::line(nearCorner - QPoint(100, 0), nearCorner, 20));
        QVERIFY(shows(0xffffcc0d, nearCorner - QPoint(20, 0)));
        QVERIFY(shownAt(150, 150) != 0xffffcc0d);
        form->close();
    }

    void inkStaysAtItsPlaceInThePicture() {
        ZrToolXmlClass::PenColor0 = 4; // "#82FF20"
        ZrToolXmlClass::PenThickness = 3;
        const QPointer<DrawingForm> form(faces::open(faces::annotation, halves()));
        faces::stroke(*form, faces::line({400, 200}, {400, 400}, 20));
        setScreen(small);
        for (const int y : {200, 300}) // 0.8 of where it was
            QVERIFY(shows(0xff82ff20, {320, y}));
        QVERIFY(shows(0xff0000ff, {330, 250}));
        form->close();
    }

    void aCardMovesToTheMiddle() {
        PromptWindow card;
        card.showWithTimer();
        setScreen(small);
        QTRY_COMPARE_WITH_TIMEOUT(card.geometry(), QRect(130, 150, 380, 180), patience);
    }

    /// Where each screen has a scale of its own, the toolkit takes over all their places as it hears of their
    /// dots per inch, tells of these alone, and finds nothing changed afterwards.
    void aChangeThatCameWithTheDotsPerInchIsSeen() {
        PromptWindow card;
        card.showWithTimer();
        QScreen *const screen = QGuiApplication::primaryScreen();
        {
            const QSignalBlocker silent(screen);
            setScreen(small);
        }
        emit screen->logicalDotsPerInchChanged(screen->logicalDotsPerInch());
        QTRY_COMPARE_WITH_TIMEOUT(card.geometry(), QRect(130, 150, 380, 180), patience);
    }
};

VEXA_WIDGET_TEST_MAIN(ScreenChangeTest)
#include "ScreenChangeTest.moc"
