// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

namespace {

const QPoint key1Button(679 + 12, 457 + 12);
const QPoint key2Button(296 + 12, 457 + 12);
const QPoint key3Button(679 + 12, 196 + 12);
const QPoint key4Button(296 + 12, 196 + 12);
const QPoint settingsButton(951 + 9, 598 + 9);
const QPoint key2Value(296, 573);
const QPoint key3Value(506, 171);
const QPoint key4ClickValue(296, 133);
const QPoint key4LongValue(296, 171);

} // namespace

/// The channel between the panel and its host.
class PageBridgeTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

    void rootOffersSignalsFunctionsAndProperty() {
        const QMetaObject *meta = m_view->root()->metaObject();
        QVERIFY(meta->indexOfSignal("qmlSignal(int,int,int,int)") >= 0);
        QVERIFY(meta->indexOfSignal("qmlSignal1(int,int,int)") >= 0);
        QVERIFY(meta->indexOfMethod("setvalue(QVariant,QVariant,QVariant)") >= 0);
        QVERIFY(meta->indexOfMethod("setText1(QVariant,QVariant)") >= 0);
        QCOMPARE(m_view->root()->property("changeBackgroundcolor"), QVariant(true));
    }

    void bothTextsAreKept() {
        QVERIFY(QMetaObject::invokeMethod(m_view->root(), "setText1", Q_ARG(QVariant, QStringLiteral("one")),
                                          Q_ARG(QVariant, QStringLiteral("two"))));
        QCOMPARE(m_view->root()->property("text1").toString(), QStringLiteral("one"));
        QCOMPARE(m_view->root()->property("text2").toString(), QStringLiteral("two"));
    }

    void everyPushedSettingIsShown() {
        m_view->pushAll({132, 183, 890, 177, 22, 13, 3, 1, 2, 1, 4, 2, 3, 0, 1, 1});
        m_view->click(key4Button);
        QCOMPARE(shown("ComboxControl", {30 + 20, 87 + 42}, "currentIndex"), QVariant(3));
        QCOMPARE(shown("ComboxControl", {30 + 20, 87 + 136}, "currentIndex"), QVariant(0));
        const QPoint first(30 + 20 + 16, 87 + 208 + 176);
        const QPoint second(30 + 20 + 16, 87 + 208 + 228);
        QCOMPARE(shown("LightLevelSet", first, "curValue"), QVariant(132));
        QCOMPARE(shown("LightLevelSet", second, "curValue"), QVariant(183));
        m_view->push(15, 1);
        QCOMPARE(shown("ColorSet", first, "curValue"), QVariant(890));
        QCOMPARE(shown("SizeSet", second, "curValue"), QVariant(177));
        m_view->push(15, 2);
        QCOMPARE(shown("ColorSet", first, "curValue"), QVariant(22));
        QCOMPARE(shown("SizeSet", second, "curValue"), QVariant(13));

        m_view->click(key1Button);
        const QPoint pen(712 + 30, 87 + 114);
        QCOMPARE(shown("PizhuSetPenColor", pen, "pencolor0"), QVariant(QStringLiteral("#009EF8")));
        QCOMPARE(shown("PizhuSetPenColor", pen, "pencolor1"), QVariant(QStringLiteral("#FFFFFF")));
        QCOMPARE(shown("PizhuSetPenColor", pen, "pencolor2"), QVariant(QStringLiteral("#FF0000")));
        QCOMPARE(shown("PizhuSetButton2", pen + QPoint(67, 228), "checked"), QVariant(true));

        m_view->click(key2Button);
        QCOMPARE(shown("ComboxControl", {30 + 20, 321 + 136}, "currentIndex"), QVariant(4));
        m_view->click(key3Button);
        QCOMPARE(shown("ComboxControl", {712 + 20, 87 + 136}, "currentIndex"), QVariant(2));
        m_view->click(settingsButton);
        QCOMPARE(shown("ComboxControl", {722 + 87, 207 + 129}, "currentIndex"), QVariant(1));
        QCOMPARE(shown("SwitchControl", {722 + 189, 207 + 74}, "myChecked"), QVariant(true));

        QCOMPARE(textAt(key2Value), QStringLiteral("屏幕截屏"));
        QCOMPARE(textAt(key3Value), QStringLiteral("播放器：暂停/播放"));
        QCOMPARE(textAt(key4ClickValue), QStringLiteral("黑板"));
        QCOMPARE(textAt(key4LongValue), QStringLiteral("数字激光点")); // as pushed last
    }

    void unseenPanelTakesAndAnswersEveryPushAtOnce() {
        PanelView unseen(PanelView::Unseen);
        unseen.pushAll({132, 183, 890, 177, 22, 13, 3, 1, 2, 1, 4, 2, 3, 0, 1, 1});
        // What moves a slider, checks a button or changes the language is reported. The second and the third
        // colour only change what their slots show; lists and the switch report what the user does and
        // nothing else.
        QCOMPARE(unseen.messages, QList<Message>({{2, 132, 0},
                                                  {3, 183, 0},
                                                  {4, 890, 0},
                                                  {5, 177, 0},
                                                  {6, 22, 0},
                                                  {7, 13, 0},
                                                  {8, 3, 0},
                                                  {11, 1, 0},
                                                  {16, 1, 0}}));
    }

    void secondPushOfTheSameValuesIsNotAnswered() {
        const QList<int> values{132, 183, 890, 177, 22, 13, 3, 1, 2, 1, 4, 2, 3, 0, 1, 1};
        m_view->pushAll(values);
        m_view->messages.clear();
        m_view->pushAll(values);
        QCOMPARE(m_view->messages, QList<Message>());
    }

    void valuesBeyondASliderAreAnsweredWhenTheyMoveIt_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("least");
        QTest::addColumn<int>("most");
        QTest::newRow("darkness") << 2 << 80 << 255;
        QTest::newRow("light") << 3 << 50 << 250;
        QTest::newRow("ring") << 4 << 0 << 1275;
        QTest::newRow("lens") << 5 << 50 << 250;
        QTest::newRow("dot's colour") << 6 << 0 << 1275;
        QTest::newRow("dot") << 7 << 5 << 25;
    }
    void valuesBeyondASliderAreAnsweredWhenTheyMoveIt() {
        QFETCH(int, id);
        QFETCH(int, least);
        QFETCH(int, most);
        m_view->push(id, least - 1); // where it stands already
        QCOMPARE(m_view->messages, QList<Message>());
        m_view->push(id, most + 175);
        QCOMPARE(m_view->messages, QList<Message>({{id, most, 0}}));
        m_view->push(id, most + 275);
        QCOMPARE(m_view->messages, QList<Message>({{id, most, 0}}));
        m_view->push(id, least - 84);
        QCOMPARE(m_view->messages, QList<Message>({{id, most, 0}, {id, least, 0}}));
    }

    void unknownActionCodeIsPushedOnAndLeavesTheSummary() {
        m_view->push(12, 2);
        m_view->push(12, 7);
        QCOMPARE(textAt(key2Value), QStringLiteral("播放器：暂停/播放"));
        m_view->click(key2Button);
        QCOMPARE(shown("ComboxControl", {30 + 20, 321 + 136}, "currentIndex"), QVariant(7));
        QVERIFY(m_view->messages.isEmpty());
    }

    void choiceInTheKey3ListChangesItsSummaryAtOnce() {
        m_view->click(key3Button);
        m_view->pick({712 + 20, 87 + 136}, 2);
        QCOMPARE(m_view->messages, QList<Message>({{13, 2, 0}}));
        QCOMPARE(textAt(key3Value), QStringLiteral("播放器：暂停/播放"));
    }

    void messageSentByTheRootAppliesToItself() {
        QVERIFY(QMetaObject::invokeMethod(m_view->root(), "qmlSignal1", Q_ARG(int, 14), Q_ARG(int, 1),
                                          Q_ARG(int, 0)));
        QCOMPARE(textAt(key4ClickValue), QStringLiteral("PPT放映：开始/结束"));
        m_view->click(key4Button);
        QCOMPARE(shown("ComboxControl", {30 + 20, 87 + 42}, "currentIndex"), QVariant(1));
    }

    void thousandHidesAndShowsTheViewButNotItsWindow() {
        m_view->push(1000, 0);
        QVERIFY(!m_view->root()->isVisible());
        QVERIFY(m_view->widget().isVisible());
        m_view->push(1000, 1);
        QVERIFY(m_view->root()->isVisible());
    }

    void identifiersWithoutAViewChangeNothing_data() {
        QTest::addColumn<int>("id");
        for (int id : {-1, 0, 1, 18, 999, 1001})
            QTest::addRow("%d", id) << id;
    }
    void identifiersWithoutAViewChangeNothing() {
        QFETCH(int, id);
        const QImage before = m_view->widget().grabFramebuffer();
        m_view->push(id, 1);
        QCOMPARE(m_view->widget().grabFramebuffer(), before);
        QVERIFY(m_view->messages.isEmpty());
    }

    void minimiseAndCloseBothAskToHide() {
        m_view->click({919 + 16, 12 + 16});
        QCOMPARE(m_view->messages, QList<Message>({{0, 0, 0}}));
        m_view->click({955 + 16, 12 + 16});
        QCOMPARE(m_view->messages, QList<Message>({{0, 0, 0}, {0, 0, 0}}));
    }

    void dragReportsTheWayFromWhereItBegan() {
        QSignalSpy drags(m_view->root(), SIGNAL(qmlSignal(int, int, int, int)));
        m_view->press({100, 40});
        m_view->moveTo({107, 35});
        QCOMPARE(drags.size(), 1);
        QCOMPARE(drags.first(), QVariantList({7, -5, 100, 40}));
        m_view->release({107, 35});
        m_view->moveTo({120, 60});
        QCOMPARE(drags.size(), 1);
    }

    void windowStaysUnderThePointerWhileDragged() {
        connect(m_view->root(), SIGNAL(qmlSignal(int, int, int, int)), this, SLOT(moveWindow(int, int)));
        const QPoint grip(100, 40);
        m_view->press(grip);
        for (const QPoint &pointer : {QPoint(310, 250), QPoint(290, 300), QPoint(350, 270)}) {
            m_view->moveTo(pointer - m_window);
            QCOMPARE(m_window, pointer - grip);
        }
    }

public slots:
    /// What the host does with a drag.
    void moveWindow(int x, int y) { m_window += QPoint(x, y); }

private:
    QVariant shown(const char *type, const QPoint &corner, const char *property) {
        const QQuickItem *item = m_view->item(QString::fromLatin1(type), corner);
        return item != nullptr ? item->property(property) : QVariant();
    }
    QString textAt(const QPoint &corner) {
        const QQuickItem *item = m_view->text(corner);
        return item != nullptr ? item->property("text").toString() : QString();
    }

    std::unique_ptr<PanelView> m_view;
    QPoint m_window{200, 200};
};

VEXA_WIDGET_TEST_MAIN(PageBridgeTest)
#include "PageBridgeTest.moc"
