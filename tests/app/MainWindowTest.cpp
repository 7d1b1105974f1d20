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

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

struct Stored {
    const char *element;
    int id;
    int *value;
};

const QList<Stored> storedSettings{
    {"SportLightTran", 2, &Settings::SportLightTran},
    {"SportLightSize", 3, &Settings::SportLightSize},
    {"MagnifierColor", 4, &Settings::MagnifierColor},
    {"MagnifierSize", 5, &Settings::MagnifierSize},
    {"LaserPenColor", 6, &Settings::LaserPenColor},
    {"LaserPenSize", 7, &Settings::LaserPenSize},
    {"PenColor0", 8, &Settings::PenColor0},
    {"PenColor1", 9, &Settings::PenColor1},
    {"PenColor2", 10, &Settings::PenColor2},
    {"PenThickness", 11, &Settings::PenThickness},
    {"Key2P", 12, &Settings::Key2P},
    {"Key3P", 13, &Settings::Key3P},
    {"Key4C", 14, &Settings::Key4C},
    {"Key4P", 15, &Settings::Key4P},
    {"Language", 16, &Settings::Language},
    {"AutoStart", 17, &Settings::AutoStart},
};

/// A settings file that holds, for each identifier, so much more than the identifier.
QByteArray fileWith(int more) {
    QByteArray xml = "<PenSetting FirstRun=\"1\"><Setting>";
    for (const Stored &setting : storedSettings)
        xml += '<' + QByteArray(setting.element) + '>' + QByteArray::number(setting.id + more) + "</" +
               QByteArray(setting.element) + '>';
    return xml + "</Setting></PenSetting>";
}

QList<Call> everySettingWith(int more) {
    QList<Call> calls;
    for (int id = 2; id <= 17; ++id)
        calls += Call{id, id + more, 0};
    return calls;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanupTestCase();

    void signalsAndSlotsStandInTheirOrder();
    void formHasItsPartsAndTheViewCoversThem();
    void titleButtonsArePictures_data();
    void titleButtonsArePictures();
    void windowIsFrameless();
    void oldButtonsTakeNoFocus();
    void windowMakesFoldersWithAllTheirParents();
    void windowAsksForHighDensity();
    void windowIsKnownToTheViewOnceThatIsLoaded();
    void promptsAreThereUnseenFromTheStart();

    void settingsFileIsReadAndEverySettingShownInOrderAtStart();
    void fillingTheViewReadsTheFileAgain();
    void outlandishValuesReachTheViewUnchanged();
    void everySettingIsStoredAndSavedAtOnce_data();
    void everySettingIsStoredAndSavedAtOnce();
    void messagesWithoutASettingChangeAndSaveNothing_data();
    void messagesWithoutASettingChangeAndSaveNothing();
    void messageZeroHidesTheWindow();
    void viewIsFilledAgainAfterALanguageChange();
    void secondLanguageChangeWithinTheDelayFillsTheViewOnce();

    void theShotsPromptSpeaksTheLanguageWhenItChanges();

    void viewsDragMovesTheWindow();
    void leftButtonDragsTheWindow();
    void otherButtonsDragNothing();

    void closingOnlyHides();
    void titleButtonsHide();
    void windowWithdrawsAfterTheStartAndLeavesThePrompt();
    void withdrawalHappensOnce();

    void backButtonSavesEvenWithoutHistory();
    void pagesResizeTheWindow();
    void historyShowsTheWayBackAndTheFirstPageHidesIt();
    void settingsPageHasItsSize();
};

void MainWindowTest::init() {
    userfile::clear();
    userfile::forgetSettings();
}

void MainWindowTest::cleanupTestCase() {
    userfile::clear();
}

void MainWindowTest::signalsAndSlotsStandInTheirOrder() {
    const QMetaObject &meta = MainWindow::staticMetaObject;
    QCOMPARE(meta.superClass(), &QMainWindow::staticMetaObject);
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods += QString::fromLatin1(meta.method(i).methodSignature());
    const QStringList expected{
        QStringLiteral("signalExitWindow()"),
        QStringLiteral("SwitchPage(Page_Num)"),
        QStringLiteral("AddPageHistory(Page_Num)"),
        QStringLiteral("ClickSetButton()"),
        QStringLiteral("ClickHelpButton()"),
        QStringLiteral("ClickBackButton()"),
        QStringLiteral("ClickCloseButton()"),
        QStringLiteral("ClickButton()"),
        QStringLiteral("ClickBlackButton()"),
        QStringLiteral("ClickSpolightButton()"),
        QStringLiteral("ClickMagnifierButton()"),
        QStringLiteral("ClickLightPenButton()"),
        QStringLiteral("RecvKeboardMessage(int,int)"),
        QStringLiteral("RecvGlobaleMouseMessage(int,int,int)"),
        QStringLiteral("RecvWindowMessage(int)"),
        QStringLiteral("recvQmlMoveWindow(int,int,int,int)"),
        QStringLiteral("recvQmlMessage1(int,int,int)"),
    };
    QCOMPARE(methods, expected);
    QCOMPARE(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodType(), QMetaMethod::Slot);
}

void MainWindowTest::formHasItsPartsAndTheViewCoversThem() {
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

void MainWindowTest::titleButtonsArePictures_data() {
    QTest::addColumn<QString>("picture");
    QTest::newRow("CloseBtn") << QStringLiteral(":/icon-X.png");
    QTest::newRow("MinBtn") << QStringLiteral(":/icon-minus.png");
    QTest::newRow("SetBtn") << QStringLiteral(":/icon-setting.png");
    QTest::newRow("BACKButton") << QStringLiteral(":/icon-left.png");
}

void MainWindowTest::titleButtonsArePictures() {
    QFETCH(QString, picture);
    Panel panel;
    const QString style = panel.part<QPushButton>(QTest::currentDataTag())->styleSheet();
    for (const QString &rule : {QStringLiteral("border-image:url(%1)").arg(picture),
                                QStringLiteral("border:0px"), QStringLiteral("background:transparent")})
        QVERIFY2(style.contains(rule), qPrintable(style));
}

void MainWindowTest::oldButtonsTakeNoFocus() {
    Panel panel;
    const auto buttons = panel.window.findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 9);
    for (const QPushButton *button : buttons) {
        QVERIFY2(button->focusPolicy() == Qt::NoFocus, qPrintable(button->objectName()));
        QVERIFY2(!button->autoDefault() && !button->isDefault(), qPrintable(button->objectName()));
    }
}

void MainWindowTest::windowMakesFoldersWithAllTheirParents() {
    Panel panel;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a/b c/20240131"));
    QCOMPARE(panel.window.mkMutiDir(path), path);
    QVERIFY(QFileInfo(path).isDir());
    QCOMPARE(panel.window.mkMutiDir(path), path);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("a")});
}

void MainWindowTest::windowIsFrameless() {
    Panel panel;
    QCOMPARE(int(panel.window.windowFlags()), 2049);
    QVERIFY(panel.window.autoFillBackground());
}

void MainWindowTest::windowAsksForHighDensity() {
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, false);
    const Panel panel;
    QVERIFY(QCoreApplication::testAttribute(Qt::AA_EnableHighDpiScaling));
}

void MainWindowTest::windowIsKnownToTheViewOnceThatIsLoaded() {
    Panel panel;
    QCOMPARE(panel.root->property("hostKnownWhenLoaded"), QVariant(false));
    QVariant title;
    QMetaObject::invokeMethod(panel.root, "hostTitle", Q_RETURN_ARG(QVariant, title));
    QCOMPARE(title.toString(), QStringLiteral("MainWindow"));
}

void MainWindowTest::promptsAreThereUnseenFromTheStart() {
    const Panel panel;
    QStringList texts;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        const auto *prompt = qobject_cast<PromptWindow *>(widget);
        if (!prompt)
            continue;
        const auto *text = prompt->findChild<QLabel *>(QStringLiteral("label"));
        texts += text->text();
        QVERIFY(prompt->isVisible());
        QCOMPARE(prompt->size(), QSize(380, 180));
        QCOMPARE(prompt->windowOpacity(), 0.0);
        QVERIFY(text->isVisible());
        for (const char *name : {"label_2", "label_3"})
            QVERIFY2(prompt->findChild<QLabel *>(QLatin1String(name))->isHidden(), name);
    }
    texts.sort();
    QCOMPARE(texts, (QStringList{QStringLiteral("Vexa Orbilo Setting"), QStringLiteral("截屏已保存")}));
}

void MainWindowTest::settingsFileIsReadAndEverySettingShownInOrderAtStart() {
    QVERIFY(userfile::write(fileWith(100)));
    Panel panel;
    QCOMPARE(panel.calls(), everySettingWith(100));
}

void MainWindowTest::fillingTheViewReadsTheFileAgain() {
    QVERIFY(userfile::write(fileWith(100)));
    Panel panel;
    panel.forgetCalls();
    QVERIFY(userfile::write(fileWith(200)));
    panel.window.Qml_Init();
    QCOMPARE(panel.calls(), everySettingWith(200));
}

void MainWindowTest::outlandishValuesReachTheViewUnchanged() {
    QVERIFY(userfile::write("<a><b><Key2P>7</Key2P><LaserPenSize>-5</LaserPenSize></b></a>"));
    Panel panel;
    QVERIFY(panel.calls().contains(Call{12, 7, 0}));
    QVERIFY(panel.calls().contains(Call{7, -5, 0}));
}

void MainWindowTest::everySettingIsStoredAndSavedAtOnce_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < storedSettings.size() - 1; ++i)
        QTest::newRow(storedSettings.at(i).element) << i;
}

void MainWindowTest::everySettingIsStoredAndSavedAtOnce() {
    QFETCH(int, index);
    const Stored &setting = storedSettings.at(index);
    Panel panel;
    panel.forgetCalls();
    userfile::clear();
    panel.send(setting.id, 4711, 99);
    QCOMPARE(*setting.value, 4711);
    const QByteArray element(setting.element);
    QVERIFY(userfile::read().contains('<' + element + ">4711</" + element + '>'));
    QCOMPARE(userfile::read().count("4711"), 1);
    QVERIFY(panel.calls().isEmpty()); // the view has shown it already
}

void MainWindowTest::messagesWithoutASettingChangeAndSaveNothing_data() {
    QTest::addColumn<int>("id");
    for (int id : {-1, 1, 18, 19, 1000, 65536 + 2})
        QTest::addRow("%d", id) << id;
}

void MainWindowTest::messagesWithoutASettingChangeAndSaveNothing() {
    QFETCH(int, id);
    QVERIFY(userfile::write(fileWith(100)));
    Panel panel;
    panel.window.show();
    userfile::clear();
    panel.send(id, 4711);
    QVERIFY(userfile::read().isNull());
    for (const Stored &setting : storedSettings)
        QCOMPARE(*setting.value, setting.id + 100);
    QVERIFY(panel.window.isVisible());
}

void MainWindowTest::messageZeroHidesTheWindow() {
    Panel panel;
    panel.window.show();
    userfile::clear();
    panel.send(0, 0);
    QVERIFY(panel.window.isHidden());
    QVERIFY(userfile::read().isNull());
}

void MainWindowTest::viewIsFilledAgainAfterALanguageChange() {
    QVERIFY(userfile::write(fileWith(100)));
    Panel panel;
    panel.forgetCalls();
    panel.send(16, 2);
    QVERIFY(userfile::read().contains("<Language>2</Language>"));
    QVERIFY(panel.calls().isEmpty());
    QVERIFY(coarseTimersOf(&panel.window).contains(200));
    QTRY_COMPARE(panel.calls().size(), 16);
    QVERIFY(!coarseTimersOf(&panel.window).contains(200));
    QList<Call> expected = everySettingWith(100);
    expected[16 - 2] = Call{16, 2, 0};
    QCOMPARE(panel.calls(), expected);
}

void MainWindowTest::secondLanguageChangeWithinTheDelayFillsTheViewOnce() {
    Panel panel;
    panel.window.show();
    QTRY_VERIFY(panel.window.isHidden()); // the timer of the start is out of the way
    panel.window.show();
    panel.forgetCalls();
    panel.send(16, 1);
    panel.send(16, 2);
    QCOMPARE(coarseTimersOf(&panel.window), QVector<int>{200});
    QTRY_COMPARE(panel.calls().size(), 16);
    QVERIFY(coarseTimersOf(&panel.window).isEmpty());
    QVERIFY(panel.window.isVisible());
}

void MainWindowTest::theShotsPromptSpeaksTheLanguageWhenItChanges() {
    Panel panel;
    QLabel *text = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (qobject_cast<PromptWindow *>(widget))
            if (auto *label = widget->findChild<QLabel *>(QStringLiteral("label"));
                label->text() == QStringLiteral("截屏已保存"))
                text = label;
    QVERIFY(text);
    text->setText(QStringLiteral("another language"));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&panel.window, &change);
    QCOMPARE(text->text(), QStringLiteral("截屏已保存"));
    // The prompt's own turn, which may come later, is not the last word.
    text->setText(QStringLiteral("the prompt's own text"));
    QTRY_COMPARE(text->text(), QStringLiteral("截屏已保存"));
}

void MainWindowTest::viewsDragMovesTheWindow() {
    Panel panel;
    panel.window.move(100, 120);
    QMetaObject::invokeMethod(panel.root, "qmlSignal", Q_ARG(int, 7), Q_ARG(int, -3), Q_ARG(int, 400),
                              Q_ARG(int, 500));
    QCOMPARE(panel.window.pos(), QPoint(107, 117));
}

void MainWindowTest::leftButtonDragsTheWindow() {
    Panel panel;
    panel.window.move(100, 120);
    const auto send = [&panel](QEvent::Type type, const QPointF &screen, Qt::MouseButton button,
                               Qt::MouseButtons held) {
        QMouseEvent event(type, panel.window.mapFromGlobal(screen.toPoint()), screen, button, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&panel.window, &event);
    };
    send(QEvent::MouseButtonPress, QPointF(200.4, 199.6), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, QPointF(210, 195), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(panel.window.pos(), QPoint(110, 115));
    send(QEvent::MouseMove, QPointF(215, 205), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(panel.window.pos(), QPoint(115, 125));
    send(QEvent::MouseButtonRelease, QPointF(215, 205), Qt::RightButton, Qt::LeftButton);
    send(QEvent::MouseMove, QPointF(216, 205), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(panel.window.pos(), QPoint(116, 125));
    send(QEvent::MouseButtonRelease, QPointF(216, 205), Qt::LeftButton, Qt::NoButton);
    send(QEvent::MouseMove, QPointF(300, 300), Qt::NoButton, Qt::NoButton);
    QCOMPARE(panel.window.pos(), QPoint(116, 125));
}

void MainWindowTest::otherButtonsDragNothing() {
    Panel panel;
    panel.window.move(100, 120);
    for (Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(105, 125), button, button,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&panel.window, &press);
        QMouseEvent move(QEvent::MouseMove, QPointF(50, 50), QPointF(150, 170), Qt::NoButton, button,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&panel.window, &move);
        QCOMPARE(panel.window.pos(), QPoint(100, 120));
    }
}

void MainWindowTest::closingOnlyHides() {
    Panel panel;
    panel.window.show();
    QVERIFY(!panel.window.close());
    QVERIFY(panel.window.isHidden());
    panel.window.show();
    QVERIFY(panel.window.isVisible());
}

void MainWindowTest::titleButtonsHide() {
    for (const char *name : {"CloseBtn", "MinBtn"}) {
        Panel panel;
        panel.window.show();
        panel.part<QPushButton>(name)->click();
        QVERIFY2(panel.window.isHidden(), name);
    }
}

void MainWindowTest::windowWithdrawsAfterTheStartAndLeavesThePrompt() {
    Panel panel;
    QCOMPARE(coarseTimersOf(&panel.window), QVector<int>{500});
    panel.window.show();
    QVERIFY(panel.window.isVisible());
    QTRY_VERIFY(panel.window.isHidden());
    QVERIFY(coarseTimersOf(&panel.window).isEmpty());

    QStringList strips;
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (qobject_cast<PromptWindow *>(widget) && widget->isVisible() && widget->windowOpacity() > 0.5)
            strips += QStringLiteral("%1x%2 %3")
                          .arg(widget->width())
                          .arg(widget->height())
                          .arg(widget->findChild<QLabel *>(QStringLiteral("label"))->text());
    QCOMPARE(strips, QStringList{QStringLiteral("300x60 Vexa Orbilo Setting")});
}

void MainWindowTest::withdrawalHappensOnce() {
    Panel panel;
    panel.window.show();
    QTRY_VERIFY(panel.window.isHidden());
    panel.window.show();
    QVERIFY(coarseTimersOf(&panel.window).isEmpty());
    QVERIFY(panel.window.isVisible());
}

void MainWindowTest::backButtonSavesEvenWithoutHistory() {
    QVERIFY(userfile::write(fileWith(100)));
    Panel panel;
    userfile::clear();
    panel.part<QPushButton>("BACKButton")->click();
    QVERIFY(userfile::read().contains("<Key2P>112</Key2P>"));
    QCOMPARE(panel.window.size(), QSize(999, 650));
    QCOMPARE(panel.part<QStackedWidget>("stackedWidget")->currentIndex(), 0);
}

void MainWindowTest::pagesResizeTheWindow() {
    Panel panel;
    panel.window.AddPageHistory(Page_3);
    panel.window.SwitchPage(Page_6);
    QCOMPARE(panel.window.size(), QSize(640, 691));
    QCOMPARE(panel.part<QStackedWidget>("stackedWidget")->currentIndex(), 0);
    panel.window.ClickBackButton();
    QCOMPARE(panel.window.size(), QSize(640, 439));
}

void MainWindowTest::historyShowsTheWayBackAndTheFirstPageHidesIt() {
    Panel panel;
    const auto *back = panel.part<QPushButton>("BACKButton");
    panel.window.SwitchPage(Page_0);
    QVERIFY(back->isHidden());
    panel.window.AddPageHistory(Page_1);
    QVERIFY(!back->isHidden());
    panel.window.SwitchPage(Page_0);
    QVERIFY(back->isHidden());
}

void MainWindowTest::settingsPageHasItsSize() {
    Panel panel;
    panel.part<QPushButton>("SetBtn")->click();
    QCOMPARE(panel.window.size(), QSize(640, 541));
    QCOMPARE(panel.part<QStackedWidget>("stackedWidget")->size(), QSize(640, 450));
    panel.part<QPushButton>("HelpBtn")->click();
    panel.window.ClickHelpButton();
    QCOMPARE(panel.window.size(), QSize(640, 541));
}

VEXA_WIDGET_TEST_MAIN(MainWindowTest)
#include "MainWindowTest.moc"
