// SPDX-License-Identifier: MIT
#include "platform/OverlayWindow.h"

#include "fakes/mac/AppKit.h"
#include "support/TestMain.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>
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
        m_kit->showViewAt(reinterpret_cast<id>(m_widget->winId()));
    }
    void cleanup() {
        m_widget.reset();
        QCOMPARE(m_kit->poolsOpen(), 0);
        QCOMPARE(m_kit->strays(), 0);
        m_kit.reset();
    }

    void liesOverTheWholePrimaryScreen() {
        const Qt::WindowFlags flags = m_widget->windowFlags();
        showOverPrimaryScreen(*m_widget);
        QVERIFY(m_widget->isVisible());
        QCOMPARE(m_widget->geometry(), QGuiApplication::primaryScreen()->geometry());
        QVERIFY(m_widget->isFullScreen());
        QCOMPARE(m_widget->windowFlags(), flags);
    }

    void maximizedLeavesTheDesktopItsSpace() {
        showOverPrimaryScreen(*m_widget, Cover::Maximized);
        QCOMPARE(m_widget->geometry(), QGuiApplication::primaryScreen()->availableGeometry());
        QVERIFY(m_widget->isMaximized());
    }

    // 1000 is the level of screen savers; 273 means: in all spaces, not moving with them, beside a
    // full-screen window.
    void standsAboveFullScreenWindowsAndLeavesTheFocus() {
        showOverPrimaryScreen(*m_widget);
        QVERIFY(wasTold("level 1000"));
        QVERIFY(wasTold("collectionBehavior 273"));
        QVERIFY(wasTold("hidesOnDeactivate 0"));
        QCOMPARE(QString::fromStdString(m_kit->window.told.back()), QStringLiteral("orderFrontRegardless"));
        QVERIFY(m_widget->testAttribute(Qt::WA_ShowWithoutActivating));
    }

    // Showing is when the toolkit gives the window the level it thinks right; the spaces it may be in have to
    // be known by then.
    void isGivenItsLevelWhenShownAndItsSpacesBefore() {
        std::vector<std::string> beforeItShows;
        m_kit->window.whenTold = [&](const std::string &what) {
            if (!m_widget->isVisible())
                beforeItShows.push_back(what);
        };
        showAboveAll(*m_widget);
        const std::vector<std::string> expected{"collectionBehavior 273", "hidesOnDeactivate 0"};
        QVERIFY(beforeItShows == expected);
        const auto &told = m_kit->window.told;
        const std::vector<std::string> whenShown(told.begin() + 2, told.end());
        QVERIFY((whenShown == std::vector<std::string>{"level 1000", "orderFrontRegardless"}));
    }

    void aCardKeepsItsOwnPlace() {
        const QRect place(200, 100, 300, 80);
        m_widget->setGeometry(place);
        showAboveAll(*m_widget);
        QVERIFY(m_widget->isVisible());
        QCOMPARE(m_widget->geometry(), place);
        QVERIFY(wasTold("level 1000"));
    }

    void aWindowThatCannotBeSeenTakesNoClicks() {
        for (const double opacity : {0.0, -0.2}) {
            m_kit->window.told.clear();
            setOverlayOpacity(*m_widget, opacity);
            QCOMPARE(m_widget->windowOpacity(), 0.0);
            QVERIFY(wasTold("ignoresMouseEvents 1"));
        }
        setOverlayOpacity(*m_widget, 1);
        QCOMPARE(m_widget->windowOpacity(), 1.0);
        QCOMPARE(QString::fromStdString(m_kit->window.told.back()), QStringLiteral("ignoresMouseEvents 0"));
    }

    void aCardThatWasShownTransparentStaysSoUntilTold() {
        setOverlayOpacity(*m_widget, 0);
        showAboveAll(*m_widget);
        QVERIFY(!wasTold("ignoresMouseEvents 0"));
        QCOMPARE(m_widget->windowOpacity(), 0.0);
    }

    void toleratesAViewWithoutAWindow() {
        m_kit->hasWindow = false;
        setOverlayOpacity(*m_widget, 0.5);
        showOverPrimaryScreen(*m_widget);
        showAboveAll(*m_widget);
        QVERIFY(m_widget->isVisible());
        QVERIFY(m_kit->window.told.empty());
    }

private:
    bool wasTold(const std::string &what) const {
        const auto &told = m_kit->window.told;
        return std::find(told.begin(), told.end(), what) != told.end();
    }

    std::optional<fakes::AppKit> m_kit;
    std::optional<QWidget> m_widget;
};

VEXA_WIDGET_TEST_MAIN(OverlayWindowTest)
#include "OverlayWindowTest.moc"
