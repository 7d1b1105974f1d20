// SPDX-License-Identifier: MIT
//
// What each of the two prompts is made of, and what only one of them can do.
#include "overlays/PromptProbe.h"
#include "overlays/PromptWindow.h"
#include "overlays/promptwindow2.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/Timers.h"

#include <QMouseEvent>

using namespace vexa::test;

namespace {

constexpr QPalette::ColorGroup groups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

/// The widget's background is this picture, whether its window is active or not.
bool isBackground(const QWidget &widget, const char *resource) {
    const QImage picture(QString::fromLatin1(resource));
    return !picture.isNull() && std::all_of(std::begin(groups), std::end(groups), [&](auto group) {
        return widget.palette().brush(group, QPalette::Window).texture().toImage() ==
               QPixmap::fromImage(picture).toImage();
    });
}

} // namespace

class PromptFormsTest : public QObject {
    Q_OBJECT

private slots:
    void theyAddNothingToTheMetaObject() {
        for (const QMetaObject *meta : {&PromptWindow::staticMetaObject, &promptwindow2::staticMetaObject}) {
            QCOMPARE(meta->superClass(), &QWidget::staticMetaObject);
            QCOMPARE(meta->methodCount(), QWidget::staticMetaObject.methodCount());
        }
    }

    void theFirstIsBuiltAsACardWithTextSwatchAndPen() {
        const PromptWindow prompt;
        checkCard(prompt, "PromptWindow", {});
        const QLabel *text = label(prompt, "label");
        QCOMPARE(text->text(), QStringLiteral("Vexa Orbilo Setting"));
        QCOMPARE(text->geometry(), QRect(40, 65, 300, 50));
        QCOMPARE(text->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(text->font().pointSize(), 30);
        QCOMPARE(label(prompt, "label_2")->geometry(), QRect(50, 40, 100, 100));
        QCOMPARE(swatch(prompt), QString::fromLatin1(squareStyle).arg("red"));

        const QLabel *pen = label(prompt, "label_3");
        QCOMPARE(pen->geometry(), QRect(200, 47, 138, 86));
        QVERIFY(pen->text().isEmpty());
        QVERIFY(pen->autoFillBackground());
        QVERIFY(isBackground(*pen, ":/icon-pen2@1080p.png"));
    }

    void theSecondIsBuiltAsACardWithTextAndRoundSwatch() {
        const promptwindow2 prompt;
        checkCard(prompt, "promptwindow2", Qt::MaximizeUsingFullscreenGeometryHint);
        const QLabel *text = label(prompt, "label");
        QCOMPARE(text->text(), QStringLiteral("颜色"));
        QCOMPARE(text->geometry(), QRect(20, 42, 140, 95));
        QCOMPARE(text->font().pointSize(), 24);
        QCOMPARE(label(prompt, "label_2")->geometry(), QRect(220, 40, 100, 100));
        QCOMPARE(swatch(prompt), QString::fromLatin1(roundStyle).arg("red"));
        QVERIFY(!label(prompt, "label_3"));
    }

    void theThirdPenInBlueHasASquareSwatchInTheSecond() {
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

    void modeZeroIsTheTextAlone() {
        PromptWindow prompt;
        const auto shownIn = [&prompt](int mode) {
            prompt.setMode(mode);
            QStringList shown;
            for (const char *name : {"label", "label_2", "label_3"})
                if (!label(prompt, name)->isHidden())
                    shown += name;
            return shown;
        };
        QCOMPARE(shownIn(1), (QStringList{"label_2", "label_3"}));
        QCOMPARE(shownIn(0), QStringList("label"));
        QCOMPARE(shownIn(7), QStringList());
    }

    void theStripIsSlimAndFadesSlowly() {
        PromptWindow prompt;
        Ticks ticks(&prompt);
        prompt.setMode(0);
        ticks.held = true; // until the strip has been looked at
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
        const QPoint onStrip = centred(300, 60).center() + QPoint(0, 27);
        QTRY_COMPARE_WITH_TIMEOUT(shownOnScreen().pixel(onStrip), 0xFF2F2F2F, patience);
        ticks.held = false;
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 4, patience);
        QVERIFY(qAbs(prompt.windowOpacity() - (1.0 - 0.05 * ticks.count)) < 0.01);
    }

    void theStripTakesTheFadeOver() {
        PromptWindow prompt;
        Ticks ticks(&prompt);
        prompt.showWithTimer();
        QTRY_VERIFY_WITH_TIMEOUT(ticks.count >= 3, patience);
        prompt.showWithTimer2();
        QCOMPARE(coarseTimersOf(&prompt), QVector<int>{150});
        QCOMPARE(prompt.windowOpacity(), 1.0);
        QCOMPARE(prompt.geometry(), centred(300, 60));
    }

    void clicksPassToTheParents() {
        struct Open : PromptWindow {
            bool takes(QMouseEvent &&event) {
                event.accept();
                QWidget::event(&event);
                return event.isAccepted();
            }
        } prompt;
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseMove})
            QVERIFY(
                !prompt.takes(QMouseEvent(type, {190, 168}, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier)));
    }

    void aLanguageChangeBringsTheFormsTexts() {
        const auto textsAfterAChange = [](QWidget &&prompt) {
            const auto labels = prompt.findChildren<QLabel *>();
            prompt.setWindowTitle(QStringLiteral("anything"));
            for (QLabel *text : labels)
                text->setText(QStringLiteral("anything"));
            QEvent change(QEvent::LanguageChange);
            QCoreApplication::sendEvent(&prompt, &change);
            QStringList texts{prompt.windowTitle()};
            for (const QLabel *text : labels)
                texts += text->text();
            return texts;
        };
        QCOMPARE(textsAfterAChange(PromptWindow()), (QStringList{"Form", "Vexa Orbilo Setting", "", ""}));
        QCOMPARE(textsAfterAChange(promptwindow2()), (QStringList{"Form", "TextLabel", "TextLabel"}));
    }

private:
    /// What both have: a frameless window with a text and a swatch that has no text.
    static void checkCard(const QWidget &prompt, const char *name, Qt::WindowFlags further) {
        QVERIFY(!prompt.isVisible());
        QCOMPARE(prompt.objectName(), QString(name));
        QCOMPARE(prompt.size(), QSize(380, 180));
        QCOMPARE(prompt.windowTitle(), QStringLiteral("Form"));
        QCOMPARE(prompt.windowFlags() & ~Qt::WindowFlags(Qt::WindowFullscreenButtonHint),
                 Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | further);
        QVERIFY(isBackground(prompt, ":/capturebg@1080p.png"));
        const QLabel *text = label(prompt, "label");
        QCOMPARE(text->alignment(), Qt::AlignCenter);
        QCOMPARE(text->font().family(), QStringLiteral("Arial"));
        QVERIFY(text->font().bold());
        for (const auto group : groups)
            QCOMPARE(text->palette().color(group, QPalette::WindowText), QColor(Qt::white));
        QVERIFY(label(prompt, "label_2")->text().isEmpty());
    }
};

VEXA_WIDGET_TEST_MAIN(PromptFormsTest)
#include "PromptFormsTest.moc"
