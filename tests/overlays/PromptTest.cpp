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
    }

    void theTextCanBeSet() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        prompt->setText(QStringLiteral("截屏已保存"));
        QCOMPARE(label(*prompt, "label")->text(), QStringLiteral("截屏已保存"));
    }

    void everyPenColourHasItsSwatch() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        const char *const colours[] = {"#000000", "#FFFFFF", "#FF0000", "#009EF8",
                                       "#82FF20", "#FFCC0D", "#ED18FF", "#9C1FFF"};
        std::int32_t *const pens[] = {&ZrToolXmlClass::PenColor0, &ZrToolXmlClass::PenColor1,
                                      &ZrToolXmlClass::PenColor2};
        for (int slot = 0; slot < 3; ++slot) {
            for (int index = 0; index < 8; ++index) {
                if (slot == 2 && index == 3)
                    continue; // the second prompt's exception
                *pens[slot] = index;
                prompt->setCurcolor(slot);
                QCOMPARE(swatch(*prompt), kind.style.arg(QLatin1String(colours[index])));
                QCOMPARE(kind.slot(prompt.get()), slot);
            }
        }
    }

    void aSlotOutsideTheThreeIsOnlyNoted() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        prompt->setCurcolor(1);
        const QString before = swatch(*prompt);
        for (const int slot : {3, -1, 1000}) {
            prompt->setCurcolor(slot);
            QCOMPARE(swatch(*prompt), before);
            QCOMPARE(kind.slot(prompt.get()), slot);
        }
    }

    void aColourOutsideThePaletteChangesNothing() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        prompt->setCurcolor(0);
        const QString before = swatch(*prompt);
        for (const int index : {8, -1, 100000}) {
            ZrToolXmlClass::PenColor2 = index;
            prompt->setCurcolor(2);
            QCOMPARE(swatch(*prompt), before);
            QCOMPARE(kind.slot(prompt.get()), 2);
        }
    }

    void itShowsInTheMiddleAndFades() {
        QFETCH_GLOBAL(Kind, kind);
        const ForeignWindow wall(ForeignWindow::Kind::Unmanaged, {QPoint(), screenPoints()}, Qt::green);
        QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(bareSpot()), QColor(Qt::green).rgb(), patience);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->showWithTimer();
        QVERIFY(prompt->isVisible());
        QCOMPARE(prompt->geometry(), centred(380, 180));
        QCOMPARE(prompt->windowOpacity(), 1.0);
        QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{60});
        ticks.held = true;
        QTRY_VERIFY_WITH_TIMEOUT(shownOnScreen().pixel(bareSpot()) != QColor(Qt::green).rgb(), patience);
        ticks.held = false;
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 10, patience);
        QVERIFY(prompt->windowOpacity() < 0.6);
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= stepsOfAFade, patience);
        QCOMPARE(ticks.timers.size(), 1);
        QCOMPARE(prompt->windowOpacity(), 0.0);
        QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(bareSpot()), QColor(Qt::green).rgb(), patience);
    }

    void afterAFadeItIsStillShownAndStillTicks() {
        QFETCH_GLOBAL(Kind, kind);
        ForeignWindow wall(ForeignWindow::Kind::Unmanaged, {QPoint(), screenPoints()}, Qt::green);
        QTRY_VERIFY_WITH_TIMEOUT(wall.isViewable(), patience);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= stepsOfAFade + 5, patience);
        QCOMPARE(ticks.timers.size(), 1);
        QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{60});
        QVERIFY(prompt->isVisible());
        QCOMPARE(prompt->windowOpacity(), 0.0);
        clickAt(bareSpot());
        QTRY_COMPARE_WITH_TIMEOUT(wall.presses(), 1, patience);
    }

    void aShowDuringAFadeBeginsAnewWithOneTimer() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 5, patience);
        QVERIFY(prompt->windowOpacity() < 0.9);
        prompt->showWithTimer();
        QCOMPARE(prompt->windowOpacity(), 1.0);
        QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{60});
        ticks.restart();
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 5, patience);
        QCOMPARE(ticks.timers.size(), 1);
        // As many steps as ticks: not two timers at work.
        QVERIFY(qAbs(prompt->windowOpacity() - (1.0 - 0.05 * ticks.count)) < 0.01);
    }

    void shownTransparentItIsThereButNotSeenNorClicked() {
        QFETCH_GLOBAL(Kind, kind);
        ForeignWindow wall(ForeignWindow::Kind::Unmanaged, {QPoint(), screenPoints()}, Qt::green);
        QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(bareSpot()), QColor(Qt::green).rgb(), patience);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->showWithTransperent();
        QVERIFY(prompt->isVisible());
        QCOMPARE(prompt->geometry(), centred(380, 180));
        QCOMPARE(prompt->windowOpacity(), 0.0);
        clickAt(bareSpot());
        QTRY_COMPARE_WITH_TIMEOUT(wall.presses(), 1, patience);
        QCOMPARE(shownOnScreen().pixel(bareSpot()), QColor(Qt::green).rgb());
        QCOMPARE(ticks.count, 0);
        // And seen when it is shown next.
        ticks.held = true;
        prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(shownOnScreen().pixel(bareSpot()) != QColor(Qt::green).rgb(), patience);
    }

    void hiddenItEndsItsFadeAndStays() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 2, patience);
        prompt->hideWindow();
        QVERIFY(coarseTimersOf(prompt.get()).isEmpty());
        QCOMPARE(prompt->windowOpacity(), 0.0);
        QVERIFY(prompt->isVisible());
        prompt->hideWindow(); // again, with nothing to end
        prompt->showWithTimer();
        QCOMPARE(prompt->windowOpacity(), 1.0);
    }

    void hiddenWhileItIsHeldBackItStaysHidden() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        prompt->holdBack();
        prompt->showWithTimer();
        prompt->hideWindow();
        prompt->letOut();
        QCOMPARE(prompt->windowOpacity(), 0.0);
        prompt->showWithTimer();
        QCOMPARE(prompt->windowOpacity(), 1.0);
    }

    void theDelayedShowComesAfterItsDelay() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->delayShow();
        QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{kind.delay});
        QVERIFY(!prompt->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(prompt->isVisible(), patience);
        QCOMPARE(ticks.count, 1);
        QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{60});
        QCOMPARE(prompt->windowOpacity(), 1.0);
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 4, patience);
        QVERIFY(prompt->windowOpacity() < 1.0);
    }

    void aSecondDelayedShowReplacesTheFirst() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        Ticks ticks(prompt.get());
        prompt->delayShow();
        prompt->delayShow();
        QTRY_VERIFY_WITH_TIMEOUT(prompt->isVisible(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 6, patience);
        // The first tick showed it; every other is a step.
        QVERIFY(qAbs(prompt->windowOpacity() - (1.0 - 0.05 * (ticks.count - 1))) < 0.01);
    }

    void shownTransparentItEndsItsFade() {
        QFETCH_GLOBAL(Kind, kind);
        const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
        prompt->showWithTimer();
        prompt->showWithTransperent();
        QVERIFY(coarseTimersOf(prompt.get()).isEmpty());
        QVERIFY(prompt->isVisible());
        QCOMPARE(prompt->windowOpacity(), 0.0);
    }
};

VEXA_WIDGET_TEST_MAIN(PromptTest)
#include "PromptTest.moc"
