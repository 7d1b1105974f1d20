// SPDX-License-Identifier: MIT
//
// What holds for both prompts; run with and without a window manager and a compositing manager.
#include "overlays/PromptProbe.h"
#include "overlays/PromptWindow.h"
#include "overlays/promptwindow2.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ForeignWindow.h"
#include "support/RealInput.h"
#include "support/TestMain.h"
#include "support/Timers.h"

#include <functional>
#include <memory>

using namespace vexa::test;

namespace {

constexpr int stepsOfAFade = 20;
constexpr QRgb green = 0xFF00FF00;

struct First : PromptWindow {
    int slot() const { return m_colourSlot; }
};
struct Second : promptwindow2 {
    int slot() const { return m_colourSlot; }
};

struct Kind {
    std::function<vexa::PromptCard *()> make;
    std::function<int(const vexa::PromptCard *)> slot;
    QString style; // of the swatch, %1 the colour
    int delay;
};

template<typename Prompt> Kind kindOf(const char *style, int delay) {
    return {[] { return new Prompt; },
            [](const vexa::PromptCard *prompt) { return static_cast<const Prompt *>(prompt)->slot(); },
            QString::fromLatin1(style), delay};
}

/// A place on the card that no label covers.
QPoint bareSpot() {
    return centred(380, 180).topLeft() + QPoint(190, 168);
}

} // namespace

Q_DECLARE_METATYPE(Kind)

class PromptTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() {
        QTest::addColumn<Kind>("kind");
        QTest::newRow("PromptWindow") << kindOf<First>(squareStyle, 400);
        QTest::newRow("promptwindow2") << kindOf<Second>(roundStyle, 500);
    }
    void init() {
        moveMouse({5, 5});
        ZrToolXmlClass::PenColor0 = 2;
        ZrToolXmlClass::PenColor1 = 1;
        ZrToolXmlClass::PenColor2 = 0;
        QFETCH_GLOBAL(Kind, kind);
        m_kind = kind;
        m_prompt.reset(kind.make());
        m_ticks = std::make_unique<Ticks>(m_prompt.get());
    }
    void cleanup() {
        m_prompt.reset();
        m_ticks.reset();
    }

    void theTextCanBeSet() {
        m_prompt->setText(QStringLiteral("截屏已保存"));
        QCOMPARE(label(*m_prompt, "label")->text(), QStringLiteral("截屏已保存"));
    }

    void everyPenColourHasItsSwatch() {
        const char *const colours[] = {"#000000", "#FFFFFF", "#FF0000", "#009EF8",
                                       "#82FF20", "#FFCC0D", "#ED18FF", "#9C1FFF"};
        std::int32_t *const pens[] = {&ZrToolXmlClass::PenColor0, &ZrToolXmlClass::PenColor1,
                                      &ZrToolXmlClass::PenColor2};
        for (int slot = 0; slot < 3; ++slot) {
            for (int index = 0; index < 8; ++index) {
                if (slot == 2 && index == 3)
                    continue; // the second prompt's exception
                *pens[slot] = index;
                m_prompt->setCurcolor(slot);
                QCOMPARE(swatch(*m_prompt), m_kind.style.arg(QLatin1String(colours[index])));
                QCOMPARE(m_kind.slot(m_prompt.get()), slot);
            }
        }
    }

    void aSlotOrColourOutsideTheListIsOnlyNoted() {
        m_prompt->setCurcolor(1);
        const QString before = swatch(*m_prompt);
        for (const auto &[slot, colour] :
             {std::pair(3, 4), {-1, 4}, {1000, 4}, {2, 8}, {2, -1}, {2, 100000}}) {
            ZrToolXmlClass::PenColor2 = colour;
            m_prompt->setCurcolor(slot);
            QCOMPARE(swatch(*m_prompt), before);
            QCOMPARE(m_kind.slot(m_prompt.get()), slot);
        }
    }

    void itShowsInTheMiddleAndFades() {
        const ForeignWindow wall(ForeignWindow::Kind::Unmanaged, {QPoint(), screenPoints()}, Qt::green);
        QTRY_COMPARE_WITH_TIMEOUT(seen(), green, patience);
        m_prompt->showWithTimer();
        QVERIFY(m_prompt->isVisible());
        QCOMPARE(m_prompt->geometry(), centred(380, 180));
        QCOMPARE(m_prompt->windowOpacity(), 1.0);
        QCOMPARE(coarseTimersOf(m_prompt.get()), QVector<int>{60});
        m_ticks->held = true;
        QTRY_VERIFY_WITH_TIMEOUT(seen() != green, patience);
        m_ticks->held = false;
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= 10, patience);
        QVERIFY(m_prompt->windowOpacity() < 0.6);
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= stepsOfAFade, patience);
        QCOMPARE(m_ticks->timers.size(), 1);
        QCOMPARE(m_prompt->windowOpacity(), 0.0);
        QTRY_COMPARE_WITH_TIMEOUT(seen(), green, patience);
    }

    void afterAFadeItIsStillShownAndStillTicks() {
        ForeignWindow wall(ForeignWindow::Kind::Unmanaged, {QPoint(), screenPoints()}, Qt::green);
        QTRY_VERIFY_WITH_TIMEOUT(wall.isViewable(), patience);
        m_prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= stepsOfAFade + 5, patience);
        QCOMPARE(m_ticks->timers.size(), 1);
        QCOMPARE(coarseTimersOf(m_prompt.get()), QVector<int>{60});
        QVERIFY(m_prompt->isVisible());
        QCOMPARE(m_prompt->windowOpacity(), 0.0);
        clickAt(bareSpot());
        QTRY_COMPARE_WITH_TIMEOUT(wall.presses(), 1, patience);
    }

    void aShowDuringAFadeBeginsAnewWithOneTimer() {
        m_prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= 5, patience);
        QVERIFY(m_prompt->windowOpacity() < 0.9);
        m_prompt->showWithTimer();
        QCOMPARE(m_prompt->windowOpacity(), 1.0);
        QCOMPARE(coarseTimersOf(m_prompt.get()), QVector<int>{60});
        m_ticks->restart();
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= 5, patience);
        QCOMPARE(m_ticks->timers.size(), 1);
        // As many steps as ticks: not two timers at work.
        QVERIFY(hasFadedFor(m_ticks->count));
    }

    void shownTransparentItIsThereButNotSeenNorClicked() {
        ForeignWindow wall(ForeignWindow::Kind::Unmanaged, {QPoint(), screenPoints()}, Qt::green);
        QTRY_COMPARE_WITH_TIMEOUT(seen(), green, patience);
        m_prompt->showWithTransperent();
        QVERIFY(m_prompt->isVisible());
        QCOMPARE(m_prompt->geometry(), centred(380, 180));
        QCOMPARE(m_prompt->windowOpacity(), 0.0);
        clickAt(bareSpot());
        QTRY_COMPARE_WITH_TIMEOUT(wall.presses(), 1, patience);
        QCOMPARE(seen(), green);
        QCOMPARE(m_ticks->count, 0);
        // And seen when it is shown next.
        m_ticks->held = true;
        m_prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(seen() != green, patience);
    }

    void hiddenOrShownTransparentItEndsItsFadeAndStays() {
        for (const auto end : {&vexa::PromptCard::hideWindow, &vexa::PromptCard::showWithTransperent}) {
            m_prompt->showWithTimer();
            QCOMPARE(m_prompt->windowOpacity(), 1.0);
            m_ticks->restart();
            QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= 2, patience);
            for (int i = 0; i < 2; ++i) { // again, with nothing to end
                (m_prompt.get()->*end)();
                QVERIFY(coarseTimersOf(m_prompt.get()).isEmpty());
                QCOMPARE(m_prompt->windowOpacity(), 0.0);
                QVERIFY(m_prompt->isVisible());
            }
        }
    }

    void hiddenWhileItIsHeldBackItStaysHidden() {
        m_prompt->holdBack();
        m_prompt->showWithTimer();
        m_prompt->hideWindow();
        m_prompt->letOut();
        QCOMPARE(m_prompt->windowOpacity(), 0.0);
        m_prompt->showWithTimer();
        QCOMPARE(m_prompt->windowOpacity(), 1.0);
    }

    void theDelayedShowComesAfterItsDelay() {
        m_prompt->delayShow();
        QCOMPARE(coarseTimersOf(m_prompt.get()), QVector<int>{m_kind.delay});
        QVERIFY(!m_prompt->isVisible());
        m_ticks->most = 1; // or the fade might begin before the look at it
        QTRY_VERIFY_WITH_TIMEOUT(m_prompt->isVisible(), patience);
        QCOMPARE(m_ticks->count, 1);
        QCOMPARE(coarseTimersOf(m_prompt.get()), QVector<int>{60});
        QCOMPARE(m_prompt->windowOpacity(), 1.0);
        m_ticks->most = INT_MAX;
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= 4, patience);
        QVERIFY(m_prompt->windowOpacity() < 1.0);
    }

    void aSecondDelayedShowReplacesTheFirst() {
        m_prompt->delayShow();
        m_prompt->delayShow();
        QTRY_VERIFY_WITH_TIMEOUT(m_prompt->isVisible(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(m_ticks->count >= 6, patience);
        // The first tick showed it; every other is a step.
        QVERIFY(hasFadedFor(m_ticks->count - 1));
    }

private:
    /// What can be seen where the card has nothing but its background; green is the wall.
    static QRgb seen() { return shownOnScreen().pixel(bareSpot()); }
    bool hasFadedFor(int steps) const {
        return qAbs(m_prompt->windowOpacity() - (1.0 - 0.05 * steps)) < 0.01;
    }

    Kind m_kind;
    std::unique_ptr<vexa::PromptCard> m_prompt;
    std::unique_ptr<Ticks> m_ticks;
};

VEXA_WIDGET_TEST_MAIN(PromptTest)
#include "PromptTest.moc"
