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
        QCOMPARE(tools->property("count").toInt(), toolNames.size());
        for (int row = 0; row < toolNames.size(); ++row) {
            m_view->push(ViewMessage::Key4P, row);
            QCOMPARE(tools->property("displayText").toString(), toolNames.at(row));
        }
    }

    void pickingAnActionSendsItsCode() {
        m_view->pick(clickList, KeyAction::PlayPause);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key4C, KeyAction::PlayPause}}));
    }

    void pickingTheMagnifierShowsItsSettingsBeforeTheMessageLeaves() {
        m_view->push(ViewMessage::Key4P, HeldToolChoice::Spotlight);
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this,
                SLOT(noteWhatIsShown(int, int, int)));
        m_view->pick(longPressList, HeldToolChoice::Magnifier);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key4P, HeldToolChoice::Magnifier}}));
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
                                          Q_ARG(QVariant, int(ViewMessage::Key4P)),
                                          Q_ARG(QVariant, int(HeldToolChoice::Spotlight)),
                                          Q_ARG(QVariant, 0)));
        connect(m_view->root(), SIGNAL(qmlSignal1(int, int, int)), this,
                SLOT(noteWhatIsShown(int, int, int)));
        m_view->pick({20, 136}, HeldToolChoice::Magnifier);
        QCOMPARE(m_view->messages, Messages({{ViewMessage::Key4P, HeldToolChoice::Magnifier}}));
        QCOMPARE(m_shownWhenSent, QString("MagnifierSetWindow 放大镜设置"));
    }

    void eachToolHasItsHeadingAndItsSettings() {
        const struct {
            Number tool;
            const char *shown;
        } rows[] = {{HeldToolChoice::Magnifier, "MagnifierSetWindow 放大镜设置"},
                    {3, "MagnifierSetWindow 放大镜设置"}, // unknown ones leave what is shown
                    {HeldToolChoice::Spotlight, "SportLightSetWindow 聚光灯设置"},
                    {-1, "SportLightSetWindow 聚光灯设置"},
                    {HeldToolChoice::Laser, "LightpenSetWindow 数字激光笔设置"},
                    {1275, "LightpenSetWindow 数字激光笔设置"}};
        for (const auto &row : rows) {
            m_view->push(ViewMessage::Key4P, row.tool);
            QCOMPARE(shownTool() + ' ' + m_view->textAt(toolHeading), QString(row.shown));
        }
    }

    void headingIsTheSpotlightsBeforeAnyPush() {
        QCOMPARE(m_view->textAt(toolHeading), QString("聚光灯设置"));
    }

public slots:
    void noteWhatIsShown(int id, int, int) {
        if (ViewMessage(id) == ViewMessage::Key4P)
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
