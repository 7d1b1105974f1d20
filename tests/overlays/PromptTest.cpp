// SPDX-License-Identifier: MIT
//
// Both prompts; run with and without a window manager and a compositing manager.
#include "overlays/PromptWindow.h"
#include "overlays/promptwindow2.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ForeignWindow.h"
#include "support/RealInput.h"
#include "support/ScreenProbe.h"
#include "support/TestMain.h"
#include "support/Timers.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QMouseEvent>
#include <QSet>

#include <functional>
#include <memory>

using namespace vexa::test;

namespace {

constexpr int stepsOfAFade = 20;

/// Counts a prompt's timer ticks, and how many timers they came from; keeps them from it while held, so that
/// there is time to look at the card.
class Ticks : public QObject {
public:
    explicit Ticks(QObject *prompt) { prompt->installEventFilter(this); }
    int count = 0;
    QSet<int> timers;
    bool held = false;

    void restart() {
        count = 0;
        timers.clear();
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() != QEvent::Timer)
            return false;
        if (!held) {
            ++count;
            timers.insert(static_cast<QTimerEvent *>(event)->timerId());
        }
        return held;
    }
};

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

const char *const squareStyle = "QLabel{border:2px solid yellow;border-radius:5px;background-color:%1;}";
const char *const roundStyle = "QLabel{border:3px solid #FFFFCC0D;border-radius:50px;background-color:%1;}";

QRect centred(int width, int height) {
    return {(screenPoints().width() - width) / 2, (screenPoints().height() - height) / 2, width, height};
}

QLabel *label(const QWidget &prompt, const char *name) {
    return prompt.findChild<QLabel *>(QLatin1String(name));
}

QString swatch(const QWidget &prompt) {
    return label(prompt, "label_2")->styleSheet();
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
    void init();
    void theyAddNothingToTheMetaObject();
    void theFirstIsBuiltAsACardWithTextSwatchAndPen();
    void theSecondIsBuiltAsACardWithTextAndRoundSwatch();
    void theTextCanBeSet_data() { kinds(); }
    void theTextCanBeSet();
    void everyPenColourHasItsSwatch_data() { kinds(); }
    void everyPenColourHasItsSwatch();
    void aSlotOutsideTheThreeIsOnlyNoted_data() { kinds(); }
    void aSlotOutsideTheThreeIsOnlyNoted();
    void aColourOutsideThePaletteChangesNothing_data() { kinds(); }
    void aColourOutsideThePaletteChangesNothing();
    void theThirdPenInBlueHasASquareSwatchInTheSecond();
    void itShowsInTheMiddleAndFades_data() { kinds(); }
    void itShowsInTheMiddleAndFades();
    void afterAFadeItIsStillShownAndStillTicks_data() { kinds(); }
    void afterAFadeItIsStillShownAndStillTicks();
    void aShowDuringAFadeBeginsAnewWithOneTimer_data() { kinds(); }
    void aShowDuringAFadeBeginsAnewWithOneTimer();
    void shownTransparentItIsThereButNotSeenNorClicked_data() { kinds(); }
    void shownTransparentItIsThereButNotSeenNorClicked();
    void hiddenItEndsItsFadeAndStays_data() { kinds(); }
    void hiddenItEndsItsFadeAndStays();
    void theDelayedShowComesAfterItsDelay_data() { kinds(); }
    void theDelayedShowComesAfterItsDelay();
    void aSecondDelayedShowReplacesTheFirst_data() { kinds(); }
    void aSecondDelayedShowReplacesTheFirst();
    void modeZeroIsTheTextAlone();
    void shownTransparentItEndsItsFade_data() { kinds(); }
    void shownTransparentItEndsItsFade();
    void theStripIsSlimAndFadesSlowly();
    void theStripTakesTheFadeOver();
    void clicksPassToTheParents();
    void aLanguageChangeBringsTheFormsTexts();

private:
    static void kinds();
};

void PromptTest::kinds() {
    QTest::addColumn<Kind>("kind");
    QTest::newRow("PromptWindow") << kindOf<First>(squareStyle, 400);
    QTest::newRow("promptwindow2") << kindOf<Second>(roundStyle, 500);
}

void PromptTest::init() {
    moveMouse({5, 5});
    ZrToolXmlClass::PenColor0 = 2;
    ZrToolXmlClass::PenColor1 = 1;
    ZrToolXmlClass::PenColor2 = 0;
}

void PromptTest::theyAddNothingToTheMetaObject() {
    for (const QMetaObject *meta : {&PromptWindow::staticMetaObject, &promptwindow2::staticMetaObject}) {
        QCOMPARE(meta->superClass(), &QWidget::staticMetaObject);
        QCOMPARE(meta->methodCount(), QWidget::staticMetaObject.methodCount());
    }
}

void PromptTest::theFirstIsBuiltAsACardWithTextSwatchAndPen() {
    const PromptWindow prompt;
    QVERIFY(!prompt.isVisible());
    QCOMPARE(prompt.objectName(), QStringLiteral("PromptWindow"));
    QCOMPARE(prompt.size(), QSize(380, 180));
    QCOMPARE(prompt.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(prompt.windowFlags() & ~Qt::WindowFlags(Qt::WindowFullscreenButtonHint),
             Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    QCOMPARE(prompt.palette().brush(QPalette::Window).texture().toImage(),
             QPixmap(QStringLiteral(":/capturebg@1080p.png")).toImage());

    const QLabel *text = label(prompt, "label");
    QCOMPARE(text->text(), QStringLiteral("Vexa Orbilo Setting"));
    QCOMPARE(text->geometry(), QRect(40, 65, 300, 50));
    QCOMPARE(text->alignment(), Qt::AlignCenter);
    QCOMPARE(text->layoutDirection(), Qt::RightToLeft);
    QCOMPARE(text->font().family(), QStringLiteral("Arial"));
    QCOMPARE(text->font().pointSize(), 30);
    QVERIFY(text->font().bold());
    QCOMPARE(text->palette().color(QPalette::WindowText), QColor(Qt::white));

    QCOMPARE(label(prompt, "label_2")->geometry(), QRect(50, 40, 100, 100));
    QVERIFY(label(prompt, "label_2")->text().isEmpty());
    QCOMPARE(swatch(prompt), QString::fromLatin1(squareStyle).arg("red"));

    const QLabel *pen = label(prompt, "label_3");
    QCOMPARE(pen->geometry(), QRect(200, 47, 138, 86));
    QVERIFY(pen->text().isEmpty());
    QVERIFY(pen->autoFillBackground());
    QCOMPARE(pen->palette().brush(QPalette::Window).texture().toImage(),
             QPixmap(QStringLiteral(":/icon-pen2@1080p.png")).toImage());
    QVERIFY(!pen->palette().brush(QPalette::Window).texture().isNull());
}

void PromptTest::theSecondIsBuiltAsACardWithTextAndRoundSwatch() {
    const promptwindow2 prompt;
    QVERIFY(!prompt.isVisible());
    QCOMPARE(prompt.objectName(), QStringLiteral("promptwindow2"));
    QCOMPARE(prompt.size(), QSize(380, 180));
    QCOMPARE(prompt.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(prompt.windowFlags() & ~Qt::WindowFlags(Qt::WindowFullscreenButtonHint),
             Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                 Qt::MaximizeUsingFullscreenGeometryHint);
    QVERIFY(!prompt.palette().brush(QPalette::Window).texture().isNull());
    QCOMPARE(prompt.palette().brush(QPalette::Window).texture().toImage(),
             QPixmap(QStringLiteral(":/capturebg@1080p.png")).toImage());

    const QLabel *text = label(prompt, "label");
    QCOMPARE(text->text(), QStringLiteral("颜色"));
    QCOMPARE(text->geometry(), QRect(20, 42, 140, 95));
    QCOMPARE(text->alignment(), Qt::AlignCenter);
    QCOMPARE(text->font().family(), QStringLiteral("Arial"));
    QCOMPARE(text->font().pointSize(), 24);
    QVERIFY(text->font().bold());
    QCOMPARE(text->palette().color(QPalette::WindowText), QColor(Qt::white));
    QCOMPARE(label(prompt, "label_2")->geometry(), QRect(220, 40, 100, 100));
    QVERIFY(label(prompt, "label_2")->text().isEmpty());
    QCOMPARE(swatch(prompt), QString::fromLatin1(roundStyle).arg("red"));
    QVERIFY(!label(prompt, "label_3"));
}

void PromptTest::theTextCanBeSet() {
    QFETCH(Kind, kind);
    const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
    prompt->setText(QStringLiteral("截屏已保存"));
    QCOMPARE(label(*prompt, "label")->text(), QStringLiteral("截屏已保存"));
}

void PromptTest::everyPenColourHasItsSwatch() {
    QFETCH(Kind, kind);
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

void PromptTest::aSlotOutsideTheThreeIsOnlyNoted() {
    QFETCH(Kind, kind);
    const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
    prompt->setCurcolor(1);
    const QString before = swatch(*prompt);
    for (const int slot : {3, -1, 1000}) {
        prompt->setCurcolor(slot);
        QCOMPARE(swatch(*prompt), before);
        QCOMPARE(kind.slot(prompt.get()), slot);
    }
}

void PromptTest::aColourOutsideThePaletteChangesNothing() {
    QFETCH(Kind, kind);
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

void PromptTest::theThirdPenInBlueHasASquareSwatchInTheSecond() {
    ZrToolXmlClass::PenColor1 = 3;
    ZrToolXmlClass::PenColor2 = 3;
    promptwindow2 second;
    second.setCurcolor(2);
    QCOMPARE(
        swatch(second),
        QStringLiteral("QLabel{border:3px solid #FFFFCC0D;border-radius:5px;background-color:#009EF8;}"));
    second.setCurcolor(1);
    QCOMPARE(swatch(second), QString::fromLatin1(roundStyle).arg("#009EF8"));
    PromptWindow first;
    first.setCurcolor(2);
    QCOMPARE(swatch(first), QString::fromLatin1(squareStyle).arg("#009EF8"));
}

void PromptTest::itShowsInTheMiddleAndFades() {
    QFETCH(Kind, kind);
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

void PromptTest::afterAFadeItIsStillShownAndStillTicks() {
    QFETCH(Kind, kind);
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

void PromptTest::aShowDuringAFadeBeginsAnewWithOneTimer() {
    QFETCH(Kind, kind);
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

void PromptTest::shownTransparentItIsThereButNotSeenNorClicked() {
    QFETCH(Kind, kind);
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

void PromptTest::hiddenItEndsItsFadeAndStays() {
    QFETCH(Kind, kind);
    const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
    Ticks ticks(prompt.get());
    prompt->showWithTimer();
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 2, patience);
    prompt->hideWindow();
    QVERIFY(coarseTimersOf(prompt.get()).isEmpty());
    QCOMPARE(prompt->windowOpacity(), 0.0);
    QVERIFY(prompt->isVisible());
    ticks.restart();
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY_WITH_TIMEOUT(time.elapsed() > 300, patience); // five steps' time
    QCOMPARE(ticks.count, 0);
    prompt->hideWindow(); // again, with nothing to end
    prompt->showWithTimer();
    QCOMPARE(prompt->windowOpacity(), 1.0);
}

void PromptTest::theDelayedShowComesAfterItsDelay() {
    QFETCH(Kind, kind);
    const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
    Ticks ticks(prompt.get());
    QElapsedTimer time;
    time.start();
    prompt->delayShow();
    QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{kind.delay});
    QVERIFY(!prompt->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(prompt->isVisible(), patience);
    // Coarse timers may be a twentieth early; how late is the machine's affair.
    QVERIFY(time.elapsed() >= kind.delay * 95 / 100);
    QCOMPARE(ticks.count, 1);
    QCOMPARE(coarseTimersOf(prompt.get()), QVector<int>{60});
    QCOMPARE(prompt->windowOpacity(), 1.0);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 4, patience);
    QCOMPARE(ticks.timers.size() <= 2, true);
    QVERIFY(prompt->windowOpacity() < 1.0);
}

void PromptTest::aSecondDelayedShowReplacesTheFirst() {
    QFETCH(Kind, kind);
    const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
    Ticks ticks(prompt.get());
    prompt->delayShow();
    prompt->delayShow();
    QTRY_VERIFY_WITH_TIMEOUT(prompt->isVisible(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 6, patience);
    // The first tick showed it; every other is a step.
    QVERIFY(qAbs(prompt->windowOpacity() - (1.0 - 0.05 * (ticks.count - 1))) < 0.01);
}

void PromptTest::modeZeroIsTheTextAlone() {
    PromptWindow prompt;
    const auto hidden = [&prompt](const char *name) { return label(prompt, name)->isHidden(); };
    prompt.setMode(1);
    QVERIFY(hidden("label"));
    QVERIFY(!hidden("label_2"));
    QVERIFY(!hidden("label_3"));
    prompt.setMode(0);
    QVERIFY(!hidden("label"));
    QVERIFY(hidden("label_2"));
    QVERIFY(hidden("label_3"));
    prompt.setMode(7);
    QVERIFY(hidden("label"));
    QVERIFY(hidden("label_2"));
    QVERIFY(hidden("label_3"));
}

void PromptTest::shownTransparentItEndsItsFade() {
    QFETCH(Kind, kind);
    const std::unique_ptr<vexa::PromptCard> prompt(kind.make());
    prompt->showWithTimer();
    prompt->showWithTransperent();
    QVERIFY(coarseTimersOf(prompt.get()).isEmpty());
    QVERIFY(prompt->isVisible());
    QCOMPARE(prompt->windowOpacity(), 0.0);
}

void PromptTest::theStripIsSlimAndFadesSlowly() {
    PromptWindow prompt;
    Ticks ticks(&prompt);
    prompt.setMode(0);
    QElapsedTimer time;
    time.start();
    prompt.showWithTimer2();
    QCOMPARE(coarseTimersOf(&prompt), QVector<int>{150});
    QCOMPARE(prompt.geometry(), centred(300, 60));
    QCOMPARE(prompt.styleSheet(),
             QStringLiteral("background-color:#2F2F2F;border:1px solid #2F2F2F;border-radius:5px;"));
    const QLabel *text = label(prompt, "label");
    QCOMPARE(text->geometry(), QRect(70, 10, 200, 40));
    QCOMPARE(text->font().family(), QStringLiteral("Arial"));
    QCOMPARE(text->font().pointSize(), 20);
    QVERIFY(text->font().bold());
    const QLabel *icon = label(prompt, "label_3");
    QVERIFY(icon->isVisible());
    QVERIFY(!label(prompt, "label_2")->isVisible());
    QCOMPARE(icon->geometry(), QRect(10, 14, 32, 32));
    QCOMPARE(icon->styleSheet(), QStringLiteral("QLabel{border-image:url(:/appicon.png);"
                                                "background-color:transparent;border:0px}"));
    QCOMPARE(prompt.windowOpacity(), 1.0);
    QTRY_VERIFY_WITH_TIMEOUT(shownOnScreen().pixel(centred(300, 60).center() + QPoint(0, 27)) == 0xFF2F2F2F ||
                                 ticks.count > 3,
                             patience);
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 4, patience);
    QVERIFY(time.elapsed() >= 4 * 150 * 95 / 100);
    QVERIFY(qAbs(prompt.windowOpacity() - (1.0 - 0.05 * ticks.count)) < 0.01);
}

void PromptTest::theStripTakesTheFadeOver() {
    PromptWindow prompt;
    Ticks ticks(&prompt);
    prompt.showWithTimer();
    QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 3, patience);
    prompt.showWithTimer2();
    QCOMPARE(coarseTimersOf(&prompt), QVector<int>{150});
    QCOMPARE(prompt.windowOpacity(), 1.0);
    QCOMPARE(prompt.geometry(), centred(300, 60));
}

void PromptTest::clicksPassToTheParents() {
    struct Open : PromptWindow {
        bool takes(QMouseEvent &&event) {
            event.accept();
            QWidget::event(&event);
            return event.isAccepted();
        }
    } prompt;
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseMove})
        QVERIFY(!prompt.takes(QMouseEvent(type, {190, 168}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier)));
}

void PromptTest::aLanguageChangeBringsTheFormsTexts() {
    PromptWindow first;
    promptwindow2 second;
    first.setText(QStringLiteral("anything"));
    first.setWindowTitle(QStringLiteral("anything"));
    second.setWindowTitle(QStringLiteral("anything"));
    label(first, "label_2")->setText(QStringLiteral("anything"));
    label(first, "label_3")->setText(QStringLiteral("anything"));
    for (QWidget *prompt : {static_cast<QWidget *>(&first), static_cast<QWidget *>(&second)}) {
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(prompt, &change);
    }
    QCOMPARE(first.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(second.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(label(first, "label")->text(), QStringLiteral("Vexa Orbilo Setting"));
    QVERIFY(label(first, "label_2")->text().isEmpty());
    QVERIFY(label(first, "label_3")->text().isEmpty());
    QCOMPARE(label(second, "label")->text(), QStringLiteral("TextLabel"));
    QCOMPARE(label(second, "label_2")->text(), QStringLiteral("TextLabel"));
}

VEXA_WIDGET_TEST_MAIN(PromptTest)
#include "PromptTest.moc"
