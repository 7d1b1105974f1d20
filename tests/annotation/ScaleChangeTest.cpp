// SPDX-License-Identifier: MIT
//
// A screen that gets another scale while an overlay is open, with as many points as before or with others.
#include "annotation/DrawingFaces.h"
#include "overlays/HeldToolKinds.h"
#include "overlays/PromptWindow.h"
#include "support/DesktopDpi.h"
#include "support/Resolution.h"
#include "support/Table.h"

#include <QApplication>

#include <functional>
#include <tuple>

using namespace vexa::test;

namespace {

constexpr int usualDpi = 96;
constexpr QSize few(800, 600), many(1600, 1200); // pixels
constexpr QRgb bare = 0xff000000;                // where no window is

DesktopDpi *desktop = nullptr;

/// Returns when the toolkit has heard of both.
void setScreen(const QSize &pixels, int scale) {
    setResolution(pixels);
    desktop->set(usualDpi * scale);
    QTRY_COMPARE_WITH_TIMEOUT(screenRatio(), qreal(scale), patience);
    QTRY_COMPARE_WITH_TIMEOUT(screenPoints(), pixels / scale, patience);
}

using Open = std::function<QWidget *()>;

/// Red on the whole screen.
QPixmap red() {
    QPixmap picture(screenPoints() * screenRatio());
    picture.setDevicePixelRatio(screenRatio());
    picture.fill(Qt::red);
    return picture;
}

QWidget *openHeld(const HeldToolKind &kind) {
    QPixmap picture = red();
    QWidget *const tool = kind.open(&picture);
    kind.move(tool, {200, 200});
    return tool;
}

QWidget *openCard() {
    auto *const card = new PromptWindow;
    card->setAttribute(Qt::WA_DeleteOnClose);
    card->setText(QStringLiteral("Vexa Orbilo"));
    card->showWithTransperent();
    vexa::platform::setOverlayOpacity(*card, 1); // to stay, where its own showing would fade
    return card;
}

} // namespace

Q_DECLARE_METATYPE(Open)

class ScaleChangeTest : public QObject {
    Q_OBJECT

    /// The last lies in the window at the new scale, but not if it had kept its pixels.
    using Windows = Table<Open, QSize, QPoint>;

private slots:
    void initTestCase() {
        setToolSizes(40);
        ZrToolXmlClass::SportLightTran = 100; // some veil
        addResolution(few);
    }

    void anOpenWindowGetsItsPixelsAndItsPictures_data() {
        Windows::begin();
        // Further out lies the outline of the spotlight's veil, as black as the bare screen.
        const QPoint corner(many.width() - 10, many.height() - 10), inTheCard(1100, 700);
        const std::tuple<const char *, Open, QPoint> windows[] = {
            {"annotation", [] { return faces::open(faces::annotation, red()); }, corner},
            {"blackboard", [] { return faces::open(faces::blackboard, red()); }, corner},
            {"laser", [] { return openHeld(laser); }, corner},
            {"spotlight", [] { return openHeld(spotlight); }, corner},
            {"magnifier", [] { return openHeld(magnifier); }, corner},
            {"card", openCard, inTheCard},
        };
        for (const auto &[name, open, within] : windows) {
            QTest::addRow("%s, as many points", name) << open << few << within;
            QTest::addRow("%s, fewer points", name) << open << many << within;
        }
    }
    /// It is to look as one that is opened at the new scale.
    void anOpenWindowGetsItsPixelsAndItsPictures() {
        const auto [open, before, within] = Windows::row();
        setScreen(before, 1);
        const QPointer<QWidget> opened(open());
        QVERIFY(QTest::qWaitForWindowExposed(opened));
        setScreen(many, 2);
        QTRY_VERIFY_WITH_TIMEOUT(shownOnScreen().pixel(within) != bare, patience);

        const QPointer<QWidget> anew(open());
        QVERIFY(QTest::qWaitForWindowExposed(anew));
        QTRY_COMPARE_WITH_TIMEOUT(differences(opened->grab().toImage(), anew->grab().toImage()), 0, patience);
        for (const auto &window : {opened, anew}) {
            window->close();
            QTRY_VERIFY_WITH_TIMEOUT(!window, patience);
        }
        QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(within), bare, patience);
    }

    /// As when the server confirms an earlier place too late: as many pixels are other points then.
    void aCardHasItsSizeAfterwardsWhateverTheToolkitMadeOfIt() {
        setScreen(few, 1);
        const std::unique_ptr<QWidget> card(openCard());
        QVERIFY(QTest::qWaitForWindowExposed(card.get()));
        card->resize(190, 90);
        setScreen(many, 2);
        QTRY_COMPARE_WITH_TIMEOUT(card->geometry(), QRect(210, 210, 380, 180), patience);
    }
};

int main(int argc, char *argv[]) {
    DesktopDpi dpi(usualDpi);
    desktop = &dpi;
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ScaleChangeTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ScaleChangeTest.moc"
