// SPDX-License-Identifier: MIT
#include "HostedView.h"
#include "overlays/PromptWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/Timers.h"
#include "support/UserFile.h"

#include <QLabel>
#include <QMetaMethod>
#include <QPushButton>
#include <QQuickWidget>
#include <QStackedWidget>
#include <QTemporaryDir>

#include <functional>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

/// A settings file that holds, for each message, so much more than its number.
QByteArray fileWith(int more) {
    return savedFile([more](const StoredSetting &setting) { return setting.message + more; });
}

QList<Call> everySettingWith(int more) {
    QList<Call> calls;
    for (int id = int(vexa::firstSettingMessage); id <= int(vexa::lastSettingMessage); ++id)
        calls += call(ViewMessage(id), id + more);
    return calls;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init() { userfile::startAfresh(); }

    void cleanupTestCase() { userfile::clear(); }

    void signalsAndSlotsStandInTheirOrder() {
        const QMetaObject &meta = MainWindow::staticMetaObject;
        QCOMPARE(meta.superClass(), &QMainWindow::staticMetaObject);
        QByteArrayList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods += meta.method(i).methodSignature();
        const QByteArrayList expected{"signalExitWindow()",          "SwitchPage(Page_Num)",
                                      "AddPageHistory(Page_Num)",    "ClickSetButton()",
                                      "ClickHelpButton()",           "ClickBackButton()",
                                      "ClickCloseButton()",          "ClickButton()",
                                      "ClickBlackButton()",          "ClickSpolightButton()",
                                      "ClickMagnifierButton()",      "ClickLightPenButton()",
                                      "RecvKeboardMessage(int,int)", "RecvGlobaleMouseMessage(int,int,int)",
                                      "RecvWindowMessage(int)",      "recvQmlMoveWindow(int,int,int,int)",
                                      "recvQmlMessage1(int,int,int)"};
        QCOMPARE(methods, expected);
        QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
        QCOMPARE(meta.method(meta.methodOffset() + 1).methodType(), QMetaMethod::Slot);
    }

    void formHasItsPartsAndTheViewCoversThem() {
        Panel panel;
        QCOMPARE(panel.window.size(), QSize(999, 650));
        QCOMPARE(panel.window.windowTitle(), QStringLiteral("MainWindow"));
        QVERIFY(panel.part<QWidget>("centralwidget"));
        for (const char *name : {"BACKButton", "CloseBtn", "MinBtn", "HelpBtn", "SetBtn"})
            QVERIFY2(panel.part<QPushButton>(name), name);
        for (int i = 1; i <= 4; ++i) {
            auto *key = panel.part<QPushButton>(qPrintable(QStringLiteral("BTN_KEY_%1").arg(i)));
            QVERIFY(key);
            QCOMPARE(key->text(), QStringLiteral("Key %1").arg(i));
        }
        auto *stack = panel.part<QStackedWidget>("stackedWidget");
        QVERIFY(stack);
        QCOMPARE(stack->indexOf(panel.part<QWidget>("page")), 0);
        QCOMPARE(stack->indexOf(panel.part<QWidget>("page_2")), 1);

        auto *label = panel.part<QLabel>("label");
        QVERIFY(label);
        QCOMPARE(label->text(), QStringLiteral("VexaOrbilo"));
        QCOMPARE(label->font().family(), QStringLiteral("Arial"));
        QCOMPARE(label->font().pointSize(), 30);
        QCOMPARE(label->font().weight(), 75);

        auto *view = panel.part<QQuickWidget>("quickWidget");
        QVERIFY(view);
        QCOMPARE(view->geometry(), QRect(0, 0, 999, 650));
        QCOMPARE(view->parentWidget()->children().constLast(), view);
    }

    void titleButtonsArePictures() {
        Panel panel;
        for (const auto &[button, picture] :
             {std::pair("CloseBtn", "icon-X"), std::pair("MinBtn", "icon-minus"),
              std::pair("SetBtn", "icon-setting"), std::pair("BACKButton", "icon-left")}) {
            const QString style = panel.part<QPushButton>(button)->styleSheet();
            for (const QString &rule :
                 {QStringLiteral("border-image:url(:/%1.png)").arg(QLatin1String(picture)),
                  QStringLiteral("border:0px"), QStringLiteral("background:transparent")})
                QVERIFY2(style.contains(rule), qPrintable(style));
        }
    }

    void windowIsFrameless() {
        Panel panel;
        QCOMPARE(int(panel.window.windowFlags()), 2049);
        QVERIFY(panel.window.autoFillBackground());
    }

    void oldButtonsTakeNoFocus() {
        Panel panel;
        const auto buttons = panel.window.findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 9);
        for (const QPushButton *button : buttons) {
            QVERIFY2(button->focusPolicy() == Qt::NoFocus, qPrintable(button->objectName()));
            QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
        }
    }

    void windowMakesFoldersWithAllTheirParents() {
        Panel panel;
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a/b c/20240131"));
        QCOMPARE(panel.window.mkMutiDir(path), path);
        QVERIFY(QFileInfo(path).isDir());
    }

    void windowAsksForHighDensity() {
        QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, false);
        const Panel panel;
        QVERIFY(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling));
    }

    void windowIsKnownToTheViewOnceThatIsLoaded() {
        Panel panel;
        QCOMPARE(panel.root->property("hostKnownWhenLoaded"), QVariant(false));
        QVariant title;
        QMetaObject::invokeMethod(panel.root, "hostTitle", Q_RETURN_ARG(QVariant, title));
        QCOMPARE(title.toString(), QStringLiteral("MainWindow"));
    }

    void promptsAreThereUnseenFromTheStart() {
        const Panel panel;
        const QMap<QString, PromptWindow *> prompts = promptsByText();
        QCOMPARE(prompts.keys(),
                 (QStringList{QStringLiteral("Vexa Orbilo Setting"), QStringLiteral("截屏已保存")}));
        for (const PromptWindow *prompt : prompts) {
            QVERIFY(prompt->isVisible());
            QCOMPARE(prompt->size(), QSize(380, 180));
            QCOMPARE(prompt->windowOpacity(), 0.0);
            QVERIFY(textOf(prompt)->isVisible());
            for (const char *name : {"label_2", "label_3"})
                QVERIFY2(prompt->findChild<QLabel *>(QLatin1String(name))->isHidden(), name);
        }
    }

    void settingsFileIsReadAndEverySettingShownInOrderAtStartAndWhenAsked() {
        QVERIFY(userfile::write(fileWith(100)));
        Panel panel;
        QCOMPARE(panel.calls(), everySettingWith(100));
        for (const int more : {200, -5000}) { // values beyond any slider reach the view unchanged
            panel.forgetCalls();
            QVERIFY(userfile::write(fileWith(more)));
            panel.window.Qml_Init();
            QCOMPARE(panel.calls(), everySettingWith(more));
        }
    }

    void everySettingIsStoredAndSavedAtOnce() {
        for (const StoredSetting &setting : storedSettings) {
            if (setting.message == 0 || setting.value == &Settings::AutoStart) // which asks a script first
                continue;
            userfile::startAfresh();
            Panel panel;
            panel.forgetCalls();
            userfile::clear();
            panel.send(ViewMessage(setting.message), 4711, 99);
            QCOMPARE(*setting.value, 4711);
            QVERIFY(userfile::read().contains(elementSaying(setting, 4711)));
            QCOMPARE(userfile::read().count("4711"), 1);
            QVERIFY(panel.calls().isEmpty()); // the view has shown it already
        }
    }

    void messagesWithoutASettingChangeAndSaveNothing() {
        QVERIFY(userfile::write(fileWith(100)));
        Panel panel;
        panel.window.show();
        userfile::clear();
        for (const ViewMessage message : {ViewMessage(-1), ViewMessage(1), ViewMessage(18), ViewMessage(19),
                                          ViewMessage::ShowView, ViewMessage(65536 + 2)})
            panel.send(message, 4711);
        QVERIFY(userfile::read().isNull());
        for (const StoredSetting &setting : storedSettings)
            QCOMPARE(*setting.value, setting.message + 100);
        QVERIFY(panel.window.isVisible());
    }

    void viewIsFilledAgainAfterALanguageChange() {
        QVERIFY(userfile::write(fileWith(100)));
        Panel panel;
        panel.forgetCalls();
        panel.send(ViewMessage::Language, english);
        QVERIFY(userfile::read().contains("<Language>2</Language>"));
        QVERIFY(panel.calls().isEmpty());
        QVERIFY(coarseTimersOf(&panel.window).contains(200));
        QTRY_COMPARE(panel.calls().size(), 16);
        QVERIFY(!coarseTimersOf(&panel.window).contains(200));
        QList<Call> expected = everySettingWith(100);
        expected[int(ViewMessage::Language) - int(vexa::firstSettingMessage)] =
            call(ViewMessage::Language, int(english));
        QCOMPARE(panel.calls(), expected);
    }

    void secondLanguageChangeWithinTheDelayFillsTheViewOnce() {
        Panel panel;
        panel.window.show();
        QTRY_VERIFY(panel.window.isHidden()); // the timer of the start is out of the way
        panel.window.show();
        panel.forgetCalls();
        panel.send(ViewMessage::Language, traditionalChinese);
        panel.send(ViewMessage::Language, english);
        QCOMPARE(coarseTimersOf(&panel.window), QVector<int>{200});
        QTRY_COMPARE(panel.calls().size(), 16);
        QVERIFY(coarseTimersOf(&panel.window).isEmpty());
        QVERIFY(panel.window.isVisible());
    }

    void theShotsPromptSpeaksTheLanguageWhenItChanges() {
        Panel panel;
        const PromptWindow *prompt = promptsByText().value(QStringLiteral("截屏已保存"));
        QVERIFY(prompt);
        QLabel *text = textOf(prompt);
        text->setText(QStringLiteral("another language"));
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&panel.window, &change);
        QCOMPARE(text->text(), QStringLiteral("截屏已保存"));
        // The prompt's own turn, which may come later, is not the last word.
        text->setText(QStringLiteral("the prompt's own text"));
        QTRY_COMPARE(text->text(), QStringLiteral("截屏已保存"));
    }

    void viewsDragMovesTheWindow() {
        Panel panel;
        panel.window.move(100, 120);
        QMetaObject::invokeMethod(panel.root, "qmlSignal", Q_ARG(int, 7), Q_ARG(int, -3), Q_ARG(int, 400),
                                  Q_ARG(int, 500));
        QCOMPARE(panel.window.pos(), QPoint(107, 117));
    }

    void leftButtonDragsTheWindow() {
        Panel panel;
        panel.window.move(100, 120);
        const auto send = [&panel](QEvent::Type type, const QPointF &screen, Qt::MouseButton button,
                                   Qt::MouseButtons held) {
            QMouseEvent event(type, panel.window.mapFromGlobal(screen.toPoint()), screen, button, held,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(&panel.window, &event);
            return panel.window.pos();
        };
        for (Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
            send(QEvent::MouseButtonPress, {105, 125}, other, other);
            QCOMPARE(send(QEvent::MouseMove, {150, 170}, Qt::NoButton, other), QPoint(100, 120));
        }
        send(QEvent::MouseButtonPress, {200.4, 199.6}, Qt::LeftButton, Qt::LeftButton);
        QCOMPARE(send(QEvent::MouseMove, {210, 195}, Qt::NoButton, Qt::LeftButton), QPoint(110, 115));
        QCOMPARE(send(QEvent::MouseMove, {215, 205}, Qt::NoButton, Qt::LeftButton), QPoint(115, 125));
        send(QEvent::MouseButtonRelease, {215, 205}, Qt::RightButton, Qt::LeftButton);
        QCOMPARE(send(QEvent::MouseMove, {216, 205}, Qt::NoButton, Qt::LeftButton), QPoint(116, 125));
        send(QEvent::MouseButtonRelease, {216, 205}, Qt::LeftButton, Qt::NoButton);
        QCOMPARE(send(QEvent::MouseMove, {300, 300}, Qt::NoButton, Qt::NoButton), QPoint(116, 125));
    }

    void whateverClosesItOnlyHidesAndSavesNothing() {
        Panel panel;
        const std::pair<const char *, std::function<void()>> closings[] = {
            {"the desktop", [&] { QVERIFY(!panel.window.close()); }},
            {"CloseBtn", [&] { panel.part<QPushButton>("CloseBtn")->click(); }},
            {"MinBtn", [&] { panel.part<QPushButton>("MinBtn")->click(); }},
            {"the view", [&] { panel.send(ViewMessage::HidePanel, 0); }}};
        userfile::clear();
        for (const auto &[who, close] : closings) {
            panel.window.show();
            QVERIFY2(panel.window.isVisible(), who);
            close();
            QVERIFY2(panel.window.isHidden(), who);
        }
        QVERIFY(userfile::read().isNull());
    }

    void windowWithdrawsAfterTheStartAndLeavesThePrompt() {
        Panel panel;
        QCOMPARE(coarseTimersOf(&panel.window), QVector<int>{500});
        panel.window.show();
        QVERIFY(panel.window.isVisible());
        QTRY_VERIFY(panel.window.isHidden());
        QVERIFY(coarseTimersOf(&panel.window).isEmpty());

        for (const PromptWindow *prompt : promptsByText()) {
            const bool isTheStartsPrompt = textOf(prompt)->text() == QStringLiteral("Vexa Orbilo Setting");
            QCOMPARE(prompt->windowOpacity() > 0.5, isTheStartsPrompt);
            QVERIFY(!isTheStartsPrompt || (prompt->isVisible() && prompt->size() == QSize(300, 60)));
        }
        panel.window.show(); // and that was the last time
        QVERIFY(coarseTimersOf(&panel.window).isEmpty());
        QVERIFY(panel.window.isVisible());
    }

    void backButtonSavesEvenWithoutHistory() {
        QVERIFY(userfile::write(fileWith(100)));
        Panel panel;
        userfile::clear();
        panel.part<QPushButton>("BACKButton")->click();
        QVERIFY(userfile::read().contains("<Key2P>112</Key2P>"));
        QCOMPARE(panel.window.size(), QSize(999, 650));
        QCOMPARE(panel.part<QStackedWidget>("stackedWidget")->currentIndex(), 0);
    }

    void pagesResizeTheWindowAndTheirHistoryShowsTheWayBack() {
        Panel panel;
        const auto *back = panel.part<QPushButton>("BACKButton");
        panel.window.SwitchPage(Page_0);
        QVERIFY(back->isHidden());
        panel.window.AddPageHistory(Page_3);
        QVERIFY(!back->isHidden());
        panel.window.SwitchPage(Page_6);
        QCOMPARE(panel.window.size(), QSize(640, 691));
        QCOMPARE(panel.part<QStackedWidget>("stackedWidget")->currentIndex(), 0);
        panel.window.ClickBackButton();
        QCOMPARE(panel.window.size(), QSize(640, 439));
        panel.window.SwitchPage(Page_0);
        QVERIFY(back->isHidden());
    }

    void settingsPageHasItsSize() {
        Panel panel;
        panel.part<QPushButton>("SetBtn")->click();
        QCOMPARE(panel.window.size(), QSize(640, 541));
        QCOMPARE(panel.part<QStackedWidget>("stackedWidget")->size(), QSize(640, 450));
        panel.part<QPushButton>("HelpBtn")->click();
        panel.window.ClickHelpButton();
        QCOMPARE(panel.window.size(), QSize(640, 541));
    }

private:
    static QLabel *textOf(const QWidget *prompt) {
        return prompt->findChild<QLabel *>(QStringLiteral("label"));
    }
    static QMap<QString, PromptWindow *> promptsByText() {
        QMap<QString, PromptWindow *> prompts;
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *prompt = qobject_cast<PromptWindow *>(widget))
                prompts[textOf(prompt)->text()] = prompt;
        return prompts;
    }
};

VEXA_WIDGET_TEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
