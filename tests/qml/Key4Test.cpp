// SPDX-License-Identifier: MIT
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

namespace {

const QPoint button(296 + 12, 196 + 12);
const QPoint clickList(30 + 20, 87 + 42);
const QPoint longPressList(30 + 20, 87 + 136);
const QPoint heading(30 + 20, 87 + 188);

/// A host that hears the view but, unlike the panel, does not hand messages back to it.
const char deafHost[] = "import QtQuick 2.15\n"
                        "import \"qrc:/\"\n"
                        "Item {\n"
                        "    signal qmlSignal1(int id, int var1, int var2)\n"
                        "    height: 500; width: 257\n"
                        "    Key4Window { objectName: \"view\" }\n"
                        "}\n";

} // namespace

/// The view of key 4: its two lists, and the settings of the tool that its long press holds.
class Key4Test : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_view = std::make_unique<PanelView>();
        m_view->click(button);
        m_heading = heading;
        m_shownWhenSent.clear();
    }
    void cleanup() { m_view.reset(); }

    void listsOfferActionsAndTools() {
        QCOMPARE(m_view->item(QStringLiteral("ComboxControl"), clickList)->property("count").toInt(), 5);
        QQuickItem *tools = m_view->item(QStringLiteral("ComboxControl"), longPressList);
        const QStringList names{"聚光灯", "放大镜", "数字激光点"};
        QCOMPARE(tools->property("count").toInt(), names.size());
        for (int row = 0; row < names.size(); ++row) {
            m_view->push(15, row);
            QCOMPARE(tools->property("displayText").toString(), names.at(row));
        }
    }

    void pickingAnActionSendsItsCode() {
        m_view->pick(clickList, 2);
        QCOMPARE(m_view->messages, QList<Message>({{14, 2, 0}}));
    }

    void pickingTheMagnifierShowsItsSettingsBeforeTheMessageLeaves() {
        m_view->push(15, 0);
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this,
                SLOT(noteWhatIsShown(int, int, int)));
        m_view->pick(longPressList, 1);
        QCOMPARE(m_view->messages, QList<Message>({{15, 1, 0}}));
        QCOMPARE(m_shownWhenSent, QStringLiteral("MagnifierSetWindow 放大镜设置"));
    }

    void viewItselfAppliesAPickedTool() {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("Host.qml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(deafHost);
        file.close();
        m_view = std::make_unique<PanelView>(QUrl::fromLocalFile(file.fileName()).toString());
        QVERIFY(m_view->root() != nullptr);
        m_heading = QPoint(20, 188);
        QVERIFY(QMetaObject::invokeMethod(m_view->root()->findChild<QObject *>(QStringLiteral("view")),
                                          "setvalue", Q_ARG(QVariant, 15), Q_ARG(QVariant, 0),
                                          Q_ARG(QVariant, 0)));
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this,
                SLOT(noteWhatIsShown(int, int, int)));
        m_view->pick({20, 136}, 1);
        QCOMPARE(m_view->messages, QList<Message>({{15, 1, 0}}));
        QCOMPARE(m_shownWhenSent, QStringLiteral("MagnifierSetWindow 放大镜设置"));
    }

    void eachToolHasItsHeadingAndItsSettings_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("type");
        QTest::newRow("spotlight") << 0 << QStringLiteral("聚光灯设置")
                                   << QStringLiteral("SportLightSetWindow");
        QTest::newRow("magnifier") << 1 << QStringLiteral("放大镜设置")
                                   << QStringLiteral("MagnifierSetWindow");
        QTest::newRow("laser") << 2 << QStringLiteral("数字激光笔设置")
                               << QStringLiteral("LightpenSetWindow");
    }
    void eachToolHasItsHeadingAndItsSettings() {
        QFETCH(int, code);
        QFETCH(QString, words);
        QFETCH(QString, type);
        m_view->push(15, (code + 1) % 3);
        m_view->push(15, code);
        QCOMPARE(textAt(heading), words);
        QCOMPARE(shownTool(), type);
    }

    void unknownToolLeavesHeadingAndSettings_data() {
        QTest::addColumn<int>("code");
        for (int code : {3, -1, 1275})
            QTest::addRow("%d", code) << code;
    }
    void unknownToolLeavesHeadingAndSettings() {
        QFETCH(int, code);
        m_view->push(15, 2);
        QCOMPARE(shownTool(), QStringLiteral("LightpenSetWindow"));
        m_view->push(15, code);
        QCOMPARE(shownTool(), QStringLiteral("LightpenSetWindow"));
        QCOMPARE(textAt(heading), QStringLiteral("数字激光笔设置"));
    }

    void pushesAreNotSent() {
        m_view->push(14, 0);
        m_view->push(15, 2);
        QVERIFY(m_view->messages.isEmpty());
    }

    void headingIsTheSpotlightsBeforeAnyPush() { QCOMPARE(textAt(heading), QStringLiteral("聚光灯设置")); }

    void spotlightSizeReachesTheHostAsItsIdentifier() {
        m_view->push(15, 0);
        m_view->push(3, 100);
        m_view->messages.clear();
        // The right end of the second slider.
        m_view->click({30 + 20 + 16 + 174, 87 + 208 + 228 + 3});
        QCOMPARE(m_view->messages.last(), Message({3, 250, 0}));
    }

public slots:
    void noteWhatIsShown(int id, int, int) {
        if (id == 15)
            m_shownWhenSent = shownTool() + ' ' + textAt(m_heading);
    }

private:
    QString textAt(const QPoint &corner) {
        const QQuickItem *item = m_view->text(corner);
        return item != nullptr ? item->property("text").toString() : QString();
    }
    QString shownTool() {
        QStringList shown;
        for (const char *type : {"SportLightSetWindow", "MagnifierSetWindow", "LightpenSetWindow"})
            if (!m_view->items(QString::fromLatin1(type)).isEmpty())
                shown.append(QString::fromLatin1(type));
        return shown.join('+');
    }

    std::unique_ptr<PanelView> m_view;
    QPoint m_heading;
    QString m_shownWhenSent;
};

VEXA_WIDGET_TEST_MAIN(Key4Test)
#include "Key4Test.moc"
