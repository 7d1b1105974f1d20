// SPDX-License-Identifier: MIT
//
// Run without a window manager, with one, and with a compositing manager too: the answers must be the same.
#include "platform/OverlayWindow.h"

#include "support/ForeignWindow.h"
#include "support/RealInput.h"
#include "support/ScreenProbe.h"
#include "support/ServerView.h"
#include "support/TestMain.h"

#include <QBackingStore>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QWindow>
#include <QX11Info>

#include <cmath>
#include <functional>

#include <xcb/xcb.h>

using namespace vexa::test;
using namespace vexa::platform;

namespace {

constexpr Qt::WindowFlags cardFlags = Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
const QRect cardRect(200, 150, 180, 100);
const QRgb red = 0xFFFF0000;
const QRgb green = 0xFF00FF00;

class Card : public QWidget {
public:
    explicit Card(const QRect &geometry = cardRect) : QWidget(nullptr, cardFlags) {
        setPalette(QPalette(QColor(red)));
        QPalette fill = palette();
        fill.setColor(QPalette::Window, QColor(red));
        setPalette(fill);
        setGeometry(geometry);
    }
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent * /*event*/) override { ++presses; }
};

QRect wholeScreen() {
    return {QPoint(), screenPoints()};
}

QRgb shownAt(const QPoint &at) {
    return shownOnScreen().pixel(at);
}

bool isScreenBare() {
    const QImage screen = shownOnScreen();
    const auto isBare = [&screen](const QPoint &at) {
        return screen.pixel(at) != red && screen.pixel(at) != green;
    };
    return isBare(cardRect.center()) && isBare(wholeScreen().topLeft()) &&
           isBare(wholeScreen().bottomRight());
}

/// A presentation: green, over the whole screen, with the focus.
class SlideShow : public ForeignWindow {
public:
    /// Presents when it returns, or fails the test.
    SlideShow() : ForeignWindow(Kind::FullScreen, wholeScreen(), QColor(green)) {
        QTRY_VERIFY_WITH_TIMEOUT(isPresenting(), patience);
    }

private:
    bool isPresenting() {
        if (!isViewable())
            return false;
        if (!isWindowManagerRunning() && !hasFocus())
            focus();
        return hasFocus() && shownAt(cardRect.center()) == green;
    }
};

/// Waits until the card, or what is on it, has the colour.
void awaitColour(QRgb colour) {
    QTRY_COMPARE_WITH_TIMEOUT(shownAt(cardRect.center()), colour, patience);
}

/// Waits without an event loop, so that nothing is sent but by what was called before.
bool comesTrue(const std::function<bool()> &condition) {
    QElapsedTimer waiting;
    waiting.start();
    while (!condition())
        if (waiting.elapsed() > patience)
            return false;
    return true;
}

/// How many requests the calls send to the server.
unsigned requestsOf(const std::function<void()> &calls) {
    xcb_connection_t *connection = QX11Info::connection();
    const auto mark = [connection] {
        const auto cookie = xcb_get_input_focus(connection);
        xcb_discard_reply(connection, cookie.sequence);
        return cookie.sequence;
    };
    const unsigned before = mark();
    calls();
    return mark() - before - 1;
}

/// Keeps the places at which native windows are made.
class Births : public QObject {
public:
    Births() { QCoreApplication::instance()->installEventFilter(this); }
    QVector<QRect> places;

    bool eventFilter(QObject *watched, QEvent *event) override {
        const auto *window = qobject_cast<QWindow *>(watched);
        if (window && event->type() == QEvent::PlatformSurface)
            places += window->geometry();
        return false;
    }
};

} // namespace

Q_DECLARE_METATYPE(vexa::platform::Cover)

class OverlayWindowTest : public QObject {
    Q_OBJECT

private slots:
    /// A compositing manager paints what has gone a moment later: no test may take an earlier one's windows
    /// for its own.
    void init() {
        moveMouse({5, 5});
        QTRY_VERIFY_WITH_TIMEOUT(isScreenBare(), patience);
    }

    /// On another screen it would begin with that one's scale.
    void anOverlayIsMadeOnThePrimaryScreen() {
        const Births births;
        Card overlay({-300, -200, 180, 100});
        showOverPrimaryScreen(overlay);
        QCOMPARE(births.places, QVector<QRect>{wholeScreen()});
    }

    /// The toolkit leaves it as large as it was in pixels: too small for a screen of a larger scale.
    void whatAWindowIsPaintedInFollowsItToAnotherScreen() {
        Card overlay;
        showOverPrimaryScreen(overlay);
        showOverPrimaryScreen(overlay); // no second showing may undo it
        overlay.backingStore()->resize(overlay.size() / 2);
        emit overlay.windowHandle()->screenChanged(QGuiApplication::primaryScreen());
        QCOMPARE(overlay.backingStore()->size(), overlay.size());
        awaitColour(red);
    }

    void anOverlayStandsAboveASlideShowThatKeepsTheFocus() {
        SlideShow show;
        Card overlay(QRect(0, 0, 10, 10));
        showOverPrimaryScreen(overlay);
        awaitColour(red);
        // A compositing manager may show the bands of the first frame one after the other.
        for (const QPoint &corner : {wholeScreen().topLeft(), wholeScreen().topRight(),
                                     wholeScreen().bottomLeft(), wholeScreen().bottomRight()})
            QTRY_COMPARE_WITH_TIMEOUT(shownAt(corner), red, patience);
        QVERIFY(show.hasFocus());
        QVERIFY(!overlay.isActiveWindow());
        overlay.close();
        awaitColour(green);
        QVERIFY(show.hasFocus());
    }

    void anOverlayCoversPanels() {
        ForeignWindow panel(ForeignWindow::Kind::Panel,
                            {0, wholeScreen().bottom() - 29, screenPoints().width(), 30}, QColor(green));
        const QPoint onPanel(300, wholeScreen().bottom() - 10);
        QTRY_COMPARE_WITH_TIMEOUT(shownAt(onPanel), green, patience);
        Card overlay;
        showOverPrimaryScreen(overlay);
        QTRY_COMPARE_WITH_TIMEOUT(shownAt(onPanel), red, patience);
    }

    void anOverlayClickedOnLeavesTheFocusToo() {
        SlideShow show;
        Card overlay;
        showOverPrimaryScreen(overlay);
        awaitColour(red);
        clickAt(cardRect.center());
        QTRY_COMPARE_WITH_TIMEOUT(overlay.presses, 1, patience);
        QVERIFY(show.hasFocus());
        QCOMPARE(show.presses(), 0);
    }

    void everyCoverIsTheWholeScreenAndTheWidgetsState_data() {
        QTest::addColumn<Cover>("cover");
        QTest::newRow("full screen") << Cover::FullScreen;
        QTest::newRow("maximised") << Cover::Maximized;
    }

    void everyCoverIsTheWholeScreenAndTheWidgetsState() {
        QFETCH(Cover, cover);
        SlideShow show;
        Card overlay;
        showOverPrimaryScreen(overlay, cover);
        QTRY_COMPARE_WITH_TIMEOUT(shownAt(wholeScreen().bottomRight()), red, patience);
        QTRY_COMPARE_WITH_TIMEOUT(shownAt(wholeScreen().topLeft()), red, patience);
        QVERIFY(QTest::qWaitForWindowExposed(&overlay, patience));
        QCOMPARE(overlay.geometry(), wholeScreen());
        QCOMPARE(overlay.isFullScreen(), cover == Cover::FullScreen);
        QCOMPARE(overlay.isMaximized(), cover == Cover::Maximized);
        QVERIFY(isUnmanagedOnServer(overlay.internalWinId()));
        QVERIFY(show.hasFocus());
    }

    void theWidgetsFlagsStay() {
        Card overlay;
        Card card;
        showOverPrimaryScreen(overlay);
        setOverlayOpacity(card, 0.5);
        showAboveAll(card);
        setOverlayOpacity(card, 0.0);
        for (const Card *widget : {&overlay, &card}) {
            QCOMPARE(widget->windowFlags(), cardFlags);
            QTRY_VERIFY_WITH_TIMEOUT(isUnmanagedOnServer(widget->internalWinId()), patience);
            QTRY_VERIFY_WITH_TIMEOUT(isToldToHaveNoShadow(widget->internalWinId()), patience);
        }
        QCOMPARE(card.geometry(), cardRect);
    }

    void aCardStandsAboveASlideShowThatKeepsTheFocus() {
        SlideShow show;
        Card card;
        showAboveAll(card);
        awaitColour(red);
        QCOMPARE(shownAt(cardRect.topLeft() - QPoint(1, 1)), green);
        QVERIFY(show.hasFocus());
    }

    void theWindowShownLastIsOnTop() {
        Card card;
        card.setPalette(QColor(Qt::blue));
        showAboveAll(card);
        awaitColour(QColor(Qt::blue).rgb());
        Card overlay;
        showOverPrimaryScreen(overlay);
        awaitColour(red);
        showAboveAll(card); // which is shown already
        awaitColour(QColor(Qt::blue).rgb());
    }

    void theMousePassesThroughACard() {
        SlideShow show;
        Card card;
        showAboveAll(card);
        awaitColour(red);
        clickAt(cardRect.center());
        QTRY_COMPARE_WITH_TIMEOUT(show.presses(), 1, patience);
        setOverlayOpacity(card, 0.0);
        setOverlayOpacity(card, 0.5);
        clickAt(cardRect.center());
        QTRY_COMPARE_WITH_TIMEOUT(show.presses(), 2, patience);
        QCOMPARE(card.presses, 0);
    }

    void anInvisibleCardIsNeitherSeenNorClicked_data() {
        QTest::addColumn<double>("opacity");
        QTest::newRow("zero") << 0.0;
        QTest::newRow("below") << -0.05;
        QTest::newRow("far below") << -100.0;
        QTest::newRow("what twenty steps of 0.05 leave of 1") << 4e-16;
    }

    void anInvisibleCardIsNeitherSeenNorClicked() {
        QFETCH(double, opacity);
        SlideShow show;
        Card card;
        showAboveAll(card);
        awaitColour(red);
        setOverlayOpacity(card, opacity);
        awaitColour(green);
        clickAt(cardRect.center());
        QTRY_COMPARE_WITH_TIMEOUT(show.presses(), 1, patience);
        QCOMPARE(card.presses, 0);
        QVERIFY(card.isVisible());
    }

    void aCardInvisibleBeforeItIsShownIsNeverSeen() {
        SlideShow show;
        Card card;
        setOverlayOpacity(card, 0.0);
        // The test asks over a connection of its own, which the server may serve first.
        QTRY_VERIFY_WITH_TIMEOUT(!hasAreaOnServer(card.internalWinId()), patience);
        showAboveAll(card);
        QVERIFY(card.isVisible());
        QVERIFY(!hasAreaOnServer(card.internalWinId()));
        QCOMPARE(shownAt(cardRect.center()), green);
        clickAt(cardRect.center());
        QTRY_COMPARE_WITH_TIMEOUT(show.presses(), 1, patience);
    }

    void aCardComesBack() {
        SlideShow show;
        Card card;
        showAboveAll(card);
        for (int round = 0; round < 3; ++round) {
            setOverlayOpacity(card, 0.0);
            awaitColour(green);
            card.resize(cardRect.size() + QSize(round, round));
            setOverlayOpacity(card, 1.0);
            awaitColour(red);
            QTRY_COMPARE_WITH_TIMEOUT(shownAt(cardRect.topLeft()), red, patience);
        }
        QVERIFY(show.hasFocus());
    }

    void aCardShownInvisibleComesAtOnce() {
        Card card;
        setOverlayOpacity(card, 0.0);
        showAboveAll(card);
        setOverlayOpacity(card, 1.0);
        awaitColour(red);
    }

    void everyStepOfAFadeReachesTheServer() {
        Card card;
        showAboveAll(card);
        const WId window = card.internalWinId();
        const auto shows = [window](double opacity, bool area) {
            return comesTrue([=] {
                return std::abs(opacityOnServer(window) - opacity) < 0.01 && hasAreaOnServer(window) == area;
            });
        };
        for (int step = 19; step >= 1; --step) {
            setOverlayOpacity(card, step * 0.05);
            QVERIFY(shows(step * 0.05, true));
        }
        setOverlayOpacity(card, 0.0);
        QVERIFY(shows(0.0, false));
        setOverlayOpacity(card, 1.0);
        QVERIFY(shows(1.0, true));
    }

    void aStepOfAFadeIsOneRequest() {
        Card card;
        showAboveAll(card);
        for (const double opacity : {0.95, 0.9, 0.5})
            QCOMPARE(requestsOf([&] { setOverlayOpacity(card, opacity); }), 1U);
    }

    void aStepThatChangesNothingSendsNothing() {
        Card card;
        showAboveAll(card);
        for (const double opacity : {1.0, 0.5, 0.0}) {
            setOverlayOpacity(card, opacity);
            QCOMPARE(requestsOf([&] { setOverlayOpacity(card, opacity); }), 0U);
        }
        for (const double faded : {-0.05, -0.1, -7.0, 4e-16})
            QCOMPARE(requestsOf([&] { setOverlayOpacity(card, faded); }), 0U);
    }

    void aFadeIsSeenWhereItCanBe() {
        SlideShow show;
        Card card;
        showAboveAll(card);
        awaitColour(red);
        const bool compositing = QX11Info::isCompositingManagerRunning();
        for (const double opacity : {0.75, 0.5, 0.25}) {
            setOverlayOpacity(card, opacity);
            const QRgb blend = qRgb(qRound(255 * opacity), qRound(255 * (1 - opacity)), 0);
            QTRY_VERIFY_WITH_TIMEOUT(alike(shownAt(cardRect.center()), compositing ? blend : red, 3),
                                     patience);
        }
    }
};

VEXA_WIDGET_TEST_MAIN(OverlayWindowTest)
#include "OverlayWindowTest.moc"
