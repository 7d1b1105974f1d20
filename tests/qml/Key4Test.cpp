// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

#include <QTemporaryDir>

using namespace places;

namespace {

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
class Key4Test : public PanelTest {
    Q_OBJECT

private slots:
    void init() {
        PanelTest::init();
        m_view->click(key4Button);
        m_heading = toolHeading;
        m_shownWhenSent.clear();
    }

    void listsOfferActionsAndTools() {
        QCOMPARE(m_view->list(clickList)->property("count").toInt(), 5);
        QQuickItem *tools = m_view->list(longPressList);
        const QStringList names{"聚光灯", "放大镜", "数字激光点"};
        QCOMPARE(tools->property("count").toInt(), names.size());
        for (int row = 0; row < names.size(); ++row) {
            m_view->push(15, row);
            QCOMPARE(tools->property("displayText").toString(), names.at(row));
        }
    }

    void pickingAnActionSendsItsCode() {
        m_view->pick(clickList, 2);
        QCOMPARE(m_view->messages, Messages({{14, 2, 0}}));
    }

    void pickingTheMagnifierShowsItsSettingsBeforeTheMessageLeaves() {
        m_view->push(15, 0);
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this,
                SLOT(noteWhatIsShown(int, int, int)));
        m_view->pick(longPressList, 1);
        QCOMPARE(m_view->messages, Messages({{15, 1, 0}}));
        QCOMPARE(m_shownWhenSent, QString("MagnifierSetWindow 放大镜设置"));
    }

    void viewItselfAppliesAPickedTool() {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QString("Host.qml")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(deafHost);
        file.close();
        m_view = std::make_unique<PanelView>(QUrl::fromLocalFile(file.fileName()).toString());
        QVERIFY(m_view->root() != nullptr);
        m_heading = QPoint(20, 188);
        QVERIFY(QMetaObject::invokeMethod(m_view->root()->findChild<QObject *>(QString("view")), "setvalue",
                                          Q_ARG(QVariant, 15), Q_ARG(QVariant, 0), Q_ARG(QVariant, 0)));
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this,
                SLOT(noteWhatIsShown(int, int, int)));
        m_view->pick({20, 136}, 1);
        QCOMPARE(m_view->messages, Messages({{15, 1, 0}}));
        QCOMPARE(m_shownWhenSent, QString("MagnifierSetWindow 放大镜设置"));
    }

    void eachToolHasItsHeadingAndItsSettings() {
        const struct {
            int code;
            const char *shown;
        } rows[] = {{1, "MagnifierSetWindow 放大镜设置"},
                    {3, "MagnifierSetWindow 放大镜设置"}, // unknown ones leave what is shown
                    {0, "SportLightSetWindow 聚光灯设置"},
                    {-1, "SportLightSetWindow 聚光灯设置"},
                    {2, "LightpenSetWindow 数字激光笔设置"},
                    {1275, "LightpenSetWindow 数字激光笔设置"}};
        for (const auto &row : rows) {
            m_view->push(15, row.code);
            QCOMPARE(shownTool() + ' ' + m_view->textAt(toolHeading), QString(row.shown));
        }
    }

    void pushesAreNotSent() {
        m_view->push(14, 0);
        m_view->push(15, 2);
        QVERIFY(m_view->messages.isEmpty());
    }

    void headingIsTheSpotlightsBeforeAnyPush() {
        QCOMPARE(m_view->textAt(toolHeading), QString("聚光灯设置"));
    }

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
            m_shownWhenSent = shownTool() + ' ' + m_view->textAt(m_heading);
    }

private:
    QString shownTool() {
        QStringList shown;
        for (const char *type : {"SportLightSetWindow", "MagnifierSetWindow", "LightpenSetWindow"})
            if (!m_view->items(QString(type)).isEmpty())
                shown.append(QString(type));
        return shown.join('+');
    }

    QPoint m_heading;
    QString m_shownWhenSent;
};

VEXA_WIDGET_TEST_MAIN(Key4Test)
#include "Key4Test.moc"
