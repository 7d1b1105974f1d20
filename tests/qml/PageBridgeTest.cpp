// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "qml/Sliders.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace places;

namespace {

const QList<int> values{132, 183, 890, 177, 22, 13, 3, 1, 2, 1, 4, 2, 3, 0, 1, 1};

} // namespace

/// The channel between the panel and its host.
class PageBridgeTest : public PanelTest {
    Q_OBJECT

private slots:
    void rootOffersSignalsFunctionsAndProperty() {
        const QMetaObject *meta = m_view->root()->metaObject();
        QVERIFY(meta->indexOfSignal("qmlSignal(int,int,int,int)") >= 0);
        QVERIFY(meta->indexOfSignal("qmlSignal1(int,int,int)") >= 0);
        QVERIFY(meta->indexOfMethod("setvalue(QVariant,QVariant,QVariant)") >= 0);
        QVERIFY(meta->indexOfMethod("setText1(QVariant,QVariant)") >= 0);
        QCOMPARE(m_view->root()->property("changeBackgroundcolor"), QVariant(true));
    }

    void bothTextsAreKept() {
        QVERIFY(QMetaObject::invokeMethod(m_view->root(), "setText1", Q_ARG(QVariant, QString("one")),
                                          Q_ARG(QVariant, QString("two"))));
        QCOMPARE(m_view->root()->property("text1").toString(), QString("one"));
        QCOMPARE(m_view->root()->property("text2").toString(), QString("two"));
    }

    void everyPushedSettingIsShown() {
        m_view->pushAll(values);
        constexpr auto spotlight = HeldToolChoice::Spotlight;
        constexpr auto magnifier = HeldToolChoice::Magnifier;
        const struct {
            QPoint button; // to click first, if any
            const char *type;
            QPoint corner;
            const char *property;
            QVariant value;
            HeldToolChoice tool = HeldToolChoice::Laser; // to push before
        } rows[] = {
            {key4Button, "ComboxControl", clickList, "currentIndex", int(KeyAction::Blackboard), spotlight},
            {{}, "ComboxControl", longPressList, "currentIndex", int(spotlight), spotlight},
            {{}, "LightLevelSet", firstSlider, "curValue", 132, spotlight},
            {{}, "LightLevelSet", secondSlider, "curValue", 183, spotlight},
            {{}, "ColorSet", firstSlider, "curValue", 890, magnifier},
            {{}, "SizeSet", secondSlider, "curValue", 177, magnifier},
            {{}, "ColorSet", firstSlider, "curValue", 22},
            {{}, "SizeSet", secondSlider, "curValue", 13},
            {key1Button, "PizhuSetPenColor", penPage, "pencolor0", "#009EF8"},
            {{}, "PizhuSetPenColor", penPage, "pencolor1", "#FFFFFF"},
            {{}, "PizhuSetPenColor", penPage, "pencolor2", "#FF0000"},
            {{}, "PizhuSetButton2", penPage + QPoint(67, 228), "checked", true},
            {key2Button, "ComboxControl", key2List, "currentIndex", int(KeyAction::Screenshot)},
            {key3Button, "ComboxControl", key3List, "currentIndex", int(KeyAction::PlayPause)},
            {settingsButton, "ComboxControl", languageBox, "currentIndex", int(traditionalChinese)},
            {{}, "SwitchControl", autoStart, "myChecked", true},
            {{}, "PanelText", key2Value, "text", "屏幕截屏"},
            {{}, "PanelText", key3Value, "text", "播放器：暂停/播放"},
            {{}, "PanelText", key4ClickValue, "text", "黑板"},
            {{}, "PanelText", key4LongValue, "text", "数字激光点"}};
        for (const auto &row : rows) {
            if (!row.button.isNull())
                m_view->click(row.button);
            m_view->push(ViewMessage::Key4P, row.tool);
            QCOMPARE(m_view->shown(row.type, row.corner, row.property), row.value);
        }
    }

    void everyPushIsAnsweredAtOnceWhetherThePanelIsSeenOrNot() {
        PanelView unseen(PanelView::Unseen);
        for (PanelView *view : {m_view.get(), &unseen}) {
            view->pushAll(values);
            // What moves a slider, checks a button or changes the language is reported. The second and the
            // third colour only change what their slots show; lists and the switch report what the user does
            // and nothing else.
            Messages answers;
            for (const ViewMessage id :
                 {ViewMessage::SportLightTran, ViewMessage::SportLightSize, ViewMessage::MagnifierColor,
                  ViewMessage::MagnifierSize, ViewMessage::LaserPenColor, ViewMessage::LaserPenSize,
                  ViewMessage::PenColor0, ViewMessage::PenThickness, ViewMessage::Language})
                answers.append({id, values.at(int(id) - int(vexa::firstSettingMessage))});
            QCOMPARE(view->messages, answers);
        }
    }

    void secondPushOfTheSameValuesIsNotAnswered() {
        m_view->pushAll(values);
        m_view->messages.clear();
        m_view->pushAll(values);
        QCOMPARE(m_view->messages, Messages());
    }

    void valuesBeyondASliderAreAnsweredWhenTheyMoveIt_data() { sliders::everySlider(); }
    void valuesBeyondASliderAreAnsweredWhenTheyMoveIt() {
        QFETCH(sliders::Slider, slider);
        const auto [id, least, most] = std::tuple(slider.message, slider.least, slider.most);
        m_view->push(id, least - 1); // where it stands already
        QCOMPARE(m_view->messages, Messages());
        m_view->push(id, most + 175);
        QCOMPARE(m_view->messages, Messages({{id, most}}));
        m_view->push(id, most + 275);
        QCOMPARE(m_view->messages, Messages({{id, most}}));
        m_view->push(id, least - 84);
        QCOMPARE(m_view->messages, Messages({{id, most}, {id, least}}));
    }

    void unknownActionCodeIsPushedOnAndLeavesTheSummary() {
        m_view->push(ViewMessage::Key2P, KeyAction::PlayPause);
        m_view->push(ViewMessage::Key2P, 7);
        QCOMPARE(m_view->textAt(key2Value), QString("播放器：暂停/播放"));
        m_view->click(key2Button);
        QCOMPARE(m_view->shown("ComboxControl", key2List, "currentIndex"), QVariant(7));
        QVERIFY(m_view->messages.isEmpty());
    }

    void messageSentByTheRootAppliesToItself() {
        QVERIFY(QMetaObject::invokeMethod(m_view->root(), "qmlSignal1", Q_ARG(int, int(ViewMessage::Key4C)),
                                          Q_ARG(int, int(KeyAction::SlideShow)), Q_ARG(int, 0)));
        QCOMPARE(m_view->textAt(key4ClickValue), QString("PPT放映：开始/结束"));
        m_view->click(key4Button);
        QCOMPARE(m_view->shown("ComboxControl", clickList, "currentIndex"),
                 QVariant(int(KeyAction::SlideShow)));
    }

    void messageHidesAndShowsTheViewButNotItsWindow() {
        m_view->push(ViewMessage::ShowView, 0);
        QVERIFY(!m_view->root()->isVisible());
        QVERIFY(m_view->widget().isVisible());
        m_view->push(ViewMessage::ShowView, 1);
        QVERIFY(m_view->root()->isVisible());
    }

    void identifiersWithoutAViewChangeNothing() {
        const QImage before = m_view->widget().grabFramebuffer();
        for (const int id : {-1, 0, 1, 18, 999, 1001}) {
            m_view->push(ViewMessage(id), 1);
            QVERIFY2(m_view->widget().grabFramebuffer() == before, qPrintable(QString::number(id)));
        }
        QVERIFY(m_view->messages.isEmpty());
    }

    void minimiseAndCloseBothAskToHide() {
        m_view->click({919 + 16, 12 + 16});
        QCOMPARE(m_view->messages, Messages({{ViewMessage::HidePanel, 0}}));
        m_view->click(closeButton);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::HidePanel, 0}, {ViewMessage::HidePanel, 0}}));
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
    QPoint m_window{200, 200};
};

VEXA_WIDGET_TEST_MAIN(PageBridgeTest)
#include "PageBridgeTest.moc"
