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

    void everyCodeHasItsTextAndAnUnknownOneLeavesIt_data() {
        Codes::begin();
        QTest::newRow("key 2") << ViewMessage::Key2P << key2Value << actionNames;
        QTest::newRow("key 3") << ViewMessage::Key3P << key3Value << actionNames;
        QTest::newRow("key 4 click") << ViewMessage::Key4C << key4ClickValue << actionNames;
        QTest::newRow("key 4 long") << ViewMessage::Key4P << key4LongValue << toolNames;
    }
    void everyCodeHasItsTextAndAnUnknownOneLeavesIt() {
        const auto [message, corner, expected] = Codes::row();
        for (int code = 0; code < expected.size(); ++code) {
            for (const int pushed : {code, int(expected.size()), -1, 5, 2000000000}) {
                m_view->push(message, pushed);
                QVERIFY2(m_view->textAt(corner) == expected.at(code), qPrintable(QString::number(pushed)));
            }
        }
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
