// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QTranslator>

namespace {

struct Door {
    QPoint button; ///< its middle
    const char *view;
};
const QList<Door> doors{{{951 + 9, 598 + 9}, "SetWindow"},
                        {{679 + 12, 457 + 12}, "Key1Window"},
                        {{296 + 12, 457 + 12}, "Key2Window"},
                        {{679 + 12, 196 + 12}, "Key3Window"},
                        {{296 + 12, 196 + 12}, "Key4Window"}};
const Door &key2 = doors.at(2);
const Door &key4 = doors.at(4);

} // namespace

/// The keys of the pen: opening their views, and what they say they do.
class OverviewTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_view = std::make_unique<PanelView>(); }
    void cleanup() { m_view.reset(); }

    void noViewIsOpenAtFirst() { QCOMPARE(openViews(), QStringList()); }
    void eachButtonOpensItsViewAlone() {
        for (const Door &door : doors) {
            m_view->click(door.button);
            QCOMPARE(openViews(), QStringList(QString::fromLatin1(door.view)));
        }
    }

    void openingAnotherViewClosesTheFirstAndAnotherClickClosesThatToo() {
        m_view->click(key2.button);
        m_view->click(key4.button);
        QCOMPARE(openViews(), QStringList("Key4Window"));
        m_view->click(key4.button);
        QCOMPARE(openViews(), QStringList());
        m_view->click(key4.button);
        QCOMPARE(openViews(), QStringList("Key4Window"));
    }

    void wholeButtonAnswersTheClick() {
        const QPoint corner(296, 196);
        for (const QPoint &place : {QPoint(0, 0), QPoint(23, 0), QPoint(0, 23), QPoint(23, 23)}) {
            m_view->click(corner + place);
            QCOMPARE(openViews(), QStringList("Key4Window"));
            m_view->click(corner + place);
            QCOMPARE(openViews(), QStringList());
        }
    }

    void keyboardOpensAView() {
        m_view->widget().activateWindow();
        m_view->widget().setFocus();
        QTRY_VERIFY(m_view->widget().hasFocus());
        QTest::keyClick(&m_view->widget(), Qt::Key_Tab);
        QTest::keyClick(&m_view->widget(), Qt::Key_Space);
        QCOMPARE(openViews(), QStringList("Key1Window"));
        // The view has the keyboard now; closed, it gives it back to its button.
        QTest::keyClick(&m_view->widget(), Qt::Key_Escape);
        QCOMPARE(openViews(), QStringList());
        QTest::keyClick(&m_view->widget(), Qt::Key_Return);
        QCOMPARE(openViews(), QStringList("Key1Window"));
    }

    void summariesShowTheBuiltInSettingsBeforeAnyPush() {
        QCOMPARE(textAt({608, 535}), QStringLiteral("切换画笔颜色"));
        QCOMPARE(textAt({579, 573}), QStringLiteral("开启/关闭批注"));
        QCOMPARE(textAt({296, 535}), QStringLiteral("上一页"));
        QCOMPARE(textAt({296, 573}), QStringLiteral("PPT放映：开始/结束"));
        QCOMPARE(textAt({608, 133}), QStringLiteral("下一页"));
        QCOMPARE(textAt({506, 171}), QStringLiteral("黑板"));
        QCOMPARE(textAt({296, 133}), QStringLiteral("屏幕截屏"));
        QCOMPARE(textAt({296, 171}), QStringLiteral("聚光灯"));
    }

    void everyCodeHasItsText_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<QPoint>("corner");
        QTest::addColumn<QStringList>("expected");
        const QStringList actions{"无操作", "PPT放映：开始/结束", "播放器：暂停/播放", "黑板", "屏幕截屏"};
        QTest::newRow("key 2") << 12 << QPoint(296, 573) << actions;
        QTest::newRow("key 3") << 13 << QPoint(506, 171) << actions;
        QTest::newRow("key 4 click") << 14 << QPoint(296, 133) << actions;
        QTest::newRow("key 4 long") << 15 << QPoint(296, 171)
                                    << QStringList{"聚光灯", "放大镜", "数字激光点"};
    }
    void everyCodeHasItsText() {
        QFETCH(int, id);
        QFETCH(QPoint, corner);
        QFETCH(QStringList, expected);
        for (int code = 0; code < expected.size(); ++code) {
            m_view->push(id, code);
            QCOMPARE(textAt(corner), expected.at(code));
        }
    }

    void unknownCodesLeaveTheText_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("code");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("key 2, 5") << 12 << 5 << QPoint(296, 573);
        QTest::newRow("key 3, -1") << 13 << -1 << QPoint(506, 171);
        QTest::newRow("key 4 click, 2000000000") << 14 << 2000000000 << QPoint(296, 133);
        QTest::newRow("key 4 long, 3") << 15 << 3 << QPoint(296, 171);
        QTest::newRow("key 4 long, 5") << 15 << 5 << QPoint(296, 171);
    }
    void unknownCodesLeaveTheText() {
        QFETCH(int, id);
        QFETCH(int, code);
        QFETCH(QPoint, corner);
        m_view->push(id, 1);
        const QString before = textAt(corner);
        QVERIFY(!before.isEmpty());
        m_view->push(id, code);
        QCOMPARE(textAt(corner), before);
    }

    void pushedKey3ActionReadsInEnglishToo() {
        m_view->push(13, 2);
        QCOMPARE(textAt({506, 171}), QStringLiteral("播放器：暂停/播放"));
        QTranslator english;
        QVERIFY(english.load(QStringLiteral(":/language_qm/lang_En.qm")));
        QVERIFY(QCoreApplication::installTranslator(&english));
        QTRY_COMPARE(textAt({506, 171}), QStringLiteral("Pause/Play"));
        // A code without a text leaves the summary what it was, in every language.
        m_view->push(13, 9);
        QCOMPARE(textAt({506, 171}), QStringLiteral("Pause/Play"));
        QVERIFY(QCoreApplication::removeTranslator(&english));
        QTRY_COMPARE(textAt({506, 171}), QStringLiteral("播放器：暂停/播放"));
    }

private:
    QStringList openViews() {
        QStringList open;
        for (const Door &door : doors)
            if (!m_view->items(QString::fromLatin1(door.view)).isEmpty())
                open.append(QString::fromLatin1(door.view));
        return open;
    }
    QString textAt(const QPoint &corner) {
        const QQuickItem *item = m_view->text(corner);
        return item != nullptr ? item->property("text").toString() : QString();
    }

    std::unique_ptr<PanelView> m_view;
};

VEXA_WIDGET_TEST_MAIN(OverviewTest)
#include "OverviewTest.moc"
