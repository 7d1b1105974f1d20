// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QTranslator>

using namespace places;
using vexa::test::Table;

namespace {

const QList<std::pair<QPoint, QString>> doors{{settingsButton, "SetWindow"},
                                              {key1Button, "Key1Window"},
                                              {key2Button, "Key2Window"},
                                              {key3Button, "Key3Window"},
                                              {key4Button, "Key4Window"}};

} // namespace

/// The keys of the pen: opening their views, and what they say they do.
class OverviewTest : public PanelTest {
    Q_OBJECT

private slots:
    void noViewIsOpenAtFirst() { QCOMPARE(openViews(), QStringList()); }

    void eachButtonOpensItsViewAlone() {
        for (const auto &[button, view] : doors) {
            m_view->click(button);
            QCOMPARE(openViews(), QStringList(view));
        }
    }

    void openingAnotherViewClosesTheFirstAndAnotherClickClosesThatToo() {
        m_view->click(key2Button);
        m_view->click(key4Button);
        QCOMPARE(openViews(), QStringList("Key4Window"));
        m_view->click(key4Button);
        QCOMPARE(openViews(), QStringList());
        m_view->click(key4Button);
        QCOMPARE(openViews(), QStringList("Key4Window"));
    }

    void wholeButtonAnswersTheClick() {
        for (const QPoint &place : {QPoint(0, 0), QPoint(23, 0), QPoint(0, 23), QPoint(23, 23)}) {
            m_view->click(QPoint(296, 196) + place);
            QCOMPARE(openViews(), QStringList("Key4Window"));
            m_view->click(QPoint(296, 196) + place);
            QCOMPARE(openViews(), QStringList());
        }
    }

    void keyboardOpensAView() {
        m_view->widget().activateWindow();
        m_view->widget().setFocus();
        QTRY_VERIFY(m_view->widget().hasFocus());
        m_view->type(Qt::Key_Tab);
        m_view->type(Qt::Key_Space);
        QCOMPARE(openViews(), QStringList("Key1Window"));
        // The view has the keyboard now; closed, it gives it back to its button.
        m_view->type(Qt::Key_Escape);
        QCOMPARE(openViews(), QStringList());
        m_view->type(Qt::Key_Return);
        QCOMPARE(openViews(), QStringList("Key1Window"));
    }

    void everyCodeHasItsText_data() {
        Codes::begin();
        const QStringList actions{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
        QTest::newRow("key 2") << ViewMessage::Key2P << key2Value << actions;
        QTest::newRow("key 3") << ViewMessage::Key3P << key3Value << actions;
        QTest::newRow("key 4 click") << ViewMessage::Key4C << key4ClickValue << actions;
        QTest::newRow("key 4 long") << ViewMessage::Key4P << key4LongValue
                                    << QStringList{"聚光灯", "放大镜", "数字激光点"};
    }
    void everyCodeHasItsText() {
        const auto [message, corner, expected] = Codes::row();
        for (int code = 0; code < expected.size(); ++code) {
            m_view->push(message, code);
            QCOMPARE(m_view->textAt(corner), expected.at(code));
        }
    }

    void unknownCodesLeaveTheText_data() {
        UnknownCodes::begin();
        QTest::newRow("key 2, 5") << ViewMessage::Key2P << 5 << key2Value;
        QTest::newRow("key 3, -1") << ViewMessage::Key3P << -1 << key3Value;
        QTest::newRow("key 4 click, 2000000000") << ViewMessage::Key4C << 2000000000 << key4ClickValue;
        QTest::newRow("key 4 long, 3") << ViewMessage::Key4P << 3 << key4LongValue;
        QTest::newRow("key 4 long, 5") << ViewMessage::Key4P << 5 << key4LongValue;
    }
    void unknownCodesLeaveTheText() {
        const auto [message, code, corner] = UnknownCodes::row();
        m_view->push(message, 1);
        const QString before = m_view->textAt(corner);
        QVERIFY(!before.isEmpty());
        m_view->push(message, code);
        QCOMPARE(m_view->textAt(corner), before);
    }

    void pushedKey3ActionReadsInEnglishToo() {
        m_view->push(ViewMessage::Key3P, KeyAction::PlayPause);
        QCOMPARE(m_view->textAt(key3Value), QString("播放器：暂停/播放"));
        QTranslator catalogue;
        QVERIFY(catalogue.load(":/language_qm/lang_En.qm"));
        QVERIFY(QCoreApplication::installTranslator(&catalogue));
        QTRY_COMPARE(m_view->textAt(key3Value), QString("Pause/Play"));
        // A code without a text leaves the summary what it was, in every language.
        m_view->push(ViewMessage::Key3P, 9);
        QCOMPARE(m_view->textAt(key3Value), QString("Pause/Play"));
        QVERIFY(QCoreApplication::removeTranslator(&catalogue));
        QTRY_COMPARE(m_view->textAt(key3Value), QString("播放器：暂停/播放"));
    }

private:
    using Codes = Table<ViewMessage, QPoint, QStringList>;
    using UnknownCodes = Table<ViewMessage, int, QPoint>;

    QStringList openViews() {
        QStringList open;
        for (const auto &[button, view] : doors)
            if (m_view->has(view))
                open += view;
        return open;
    }
};

VEXA_WIDGET_TEST_MAIN(OverviewTest)
#include "OverviewTest.moc"
