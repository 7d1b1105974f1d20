// SPDX-License-Identifier: MIT
#include "platform/OverlayWindow.h"

#include "fakes/mac/AppKit.h"
#include "support/TestMain.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <optional>

using namespace vexa::platform;

/// What the overlays' windows are told on macOS. What the window server then makes of it, only a Mac can
/// show.
class OverlayWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_kit.emplace();
        m_widget.emplace(nullptr, Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        m_kit->isPanel = [this] { return toolkitMakesAPanelOf(m_widget->windowHandle()); };
    }
    void cleanup() {
        m_widget.reset();
        QCOMPARE(m_kit->poolsOpen(), 0);
        QCOMPARE(m_kit->strays(), 0);
        m_kit.reset();
    }

    void coversThePrimaryScreen_data() {
        QTest::addColumn<bool>("maximized");
        QTest::newRow("all of it") << false;
        QTest::newRow("the desktop's space left free") << true;
    }

    // The state is the widget's alone: to the system a full-screen window would be one in a space of its own.
    void coversThePrimaryScreen() {
        QFETCH(bool, maximized);
        const QScreen &screen = *QGuiApplication::primaryScreen();
        showOverPrimaryScreen(*m_widget, maximized ? Cover::Maximized : Cover::FullScreen);
        QCOMPARE(m_widget->geometry(), maximized ? screen.availableGeometry() : screen.geometry());
        QCOMPARE(m_widget->isMaximized(), maximized);
        QCOMPARE(m_widget->isFullScreen(), !maximized);
        QCOMPARE(m_widget->windowHandle()->windowStates(), Qt::WindowStates(Qt::WindowNoState));
        QVERIFY(!m_kit->window.ignoresMouseEvents);
    }

    void aCardKeepsItsOwnPlaceAndLetsTheMouseThrough() {
        const QRect place(200, 100, 300, 80);
        m_widget->setGeometry(place);
        showAboveAll(*m_widget);
        QCOMPARE(m_widget->geometry(), place);
        QVERIFY(m_kit->window.ignoresMouseEvents);
    }

    void liesOverAnotherProgramsFullScreenSpace_data() {
        QTest::addColumn<bool>("card");
        QTest::addColumn<bool>("createdBefore");
        for (const bool card : {false, true}) {
            for (const bool createdBefore : {false, true})
                QTest::addRow("%s, native window %s", card ? "card" : "overlay",
                              createdBefore ? "old" : "new")
                    << card << createdBefore;
        }
    }

    void fitsTheCoverItHasToTheScreenAgain() {
        for (const Cover cover : {Cover::FullScreen, Cover::Maximized}) {
            showOverPrimaryScreen(*m_widget, cover);
            const QRect covered = m_widget->geometry();
            m_widget->setGeometry(1, 2, 30, 40);
            m_widget->overrideWindowState(
                windowStateOf(cover)); // which a screen that changes leaves as it is
            fitToPrimaryScreen(*m_widget);
            QCOMPARE(m_widget->geometry(), covered);
            QCOMPARE(m_widget->isMaximized(), cover == Cover::Maximized);
        }
    }

    // 1000 is the level of screen savers; 273 means: in all spaces, not moving with them, beside a
    // full-screen window.
    void liesOverAnotherProgramsFullScreenSpace() {
        QFETCH(bool, card);
        QFETCH(bool, createdBefore);
        const Qt::WindowFlags flags = m_widget->windowFlags();
        if (createdBefore)
            m_widget->winId();
        card ? showAboveAll(*m_widget) : showOverPrimaryScreen(*m_widget);
        QVERIFY(m_widget->isVisible());
        QVERIFY(m_kit->liesOverForeignFullScreenSpace());
        QCOMPARE(m_kit->window.level, 1000L);
        QCOMPARE(m_kit->window.collectionBehavior, 273UL);
        QCOMPARE(m_widget->windowFlags(), flags);
    }

    void comesAndGoesAtOnceAndStaysWhenItsProgramIsHidden() {
        showAboveAll(*m_widget);
        QCOMPARE(m_kit->window.animationBehavior, 2L); // none
        QVERIFY(!m_kit->window.canHide);
        QVERIFY(m_widget->windowHandle()->flags().testFlag(Qt::NoDropShadowWindowHint));
    }

    void leavesTheFocusWhereItIs() {
        showOverPrimaryScreen(*m_widget);
        QCOMPARE(m_kit->window.told.back(), std::string("orderFrontRegardless"));
        QVERIFY(m_widget->testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(m_widget->windowHandle()->flags().testFlag(Qt::WindowDoesNotAcceptFocus));
        QVERIFY(!m_widget->isActiveWindow());
    }

    // The spaces have to be known when the window is shown, and showing is when the toolkit gives it a level.
    void isToldItsPlaceBeforeItIsShownAndAgainAfterwards() {
        std::vector<std::string> before, after;
        m_kit->window.whenTold = [&] {
            (m_widget->isVisible() ? after : before).push_back(m_kit->window.told.back());
        };
        showAboveAll(*m_widget);
        const std::vector<std::string> place{
            "setStyleMask:", "setCollectionBehavior:", "setHidesOnDeactivate:", "setLevel:"};
        std::vector<std::string> beforehand = place;
        beforehand.insert(beforehand.end(), {"setAnimationBehavior:", "setCanHide:"});
        QVERIFY(before == beforehand);
        after.resize(place.size());
        QVERIFY(after == place);
    }

    void anOpacityStaysBetweenNoneAndAll() {
        for (const double opacity : {0.0, -0.2, 1.0}) {
            setOverlayOpacity(*m_widget, opacity);
            QCOMPARE(m_widget->windowOpacity(), qMax(0.0, opacity));
        }
        QVERIFY(!m_widget->internalWinId()); // the native window is made when its type is known
    }

    void toleratesAViewWithoutAWindow() {
        m_kit->hasWindow = false;
        showOverPrimaryScreen(*m_widget);
        QVERIFY(m_widget->isVisible());
        QVERIFY(m_kit->window.told.empty());
    }

private:
    // Tool windows, popups and dialogs.
    static bool toolkitMakesAPanelOf(const QWindow *window) {
        return window &&
               ((window->type() & Qt::Popup) == Qt::Popup || (window->type() & Qt::Dialog) == Qt::Dialog);
    }

    std::optional<fakes::AppKit> m_kit;
    std::optional<QWidget> m_widget;
};

VEXA_WIDGET_TEST_MAIN(OverlayWindowTest)
#include "OverlayWindowTest.moc"
