// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
#include "support/ResidentMemory.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QDirIterator>
#include <QTemporaryDir>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

/// Thirty openings of every tool, half of them closed by a click, leave the memory where it was after the
/// first ten.
class ToolMemoryTest : public QObject {
    Q_OBJECT

private slots:
    void init() { userfile::startAfresh(); }

    void cleanupTestCase() { userfile::clear(); }

    void openingsLeaveTheMemoryFlat_data() { toolRows(); }
    void openingsLeaveTheMemoryFlat() {
        QFETCH(int, key);
        QFETCH(HeldToolChoice, heldTool);
        ToolPanel panel;
        Settings::Key3P = Number(KeyAction::Blackboard);
        Settings::Key4P = Number(heldTool);

        bool byClick = false;
        const double grown = growth(10, 20, [&] {
            byClick = !byClick;
            panel.chord(pen::m);
            panel.chord(key);
            QCOMPARE(ToolPanel::objects(), 1);
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (!widget->isVisible() || widget->width() != 1920)
                    continue;
                QVERIFY(QTest::qWaitForWindowExposed(widget));
                if (byClick && heldTool != noHeldTool)
                    ToolPanel::click(widget);
                else if (byClick)
                    ToolPanel::pressExit(widget);
            }
            panel.chord(pen::m);
            if (!byClick)
                panel.chord(heldTool == noHeldTool ? key : pen::s);
            QTRY_COMPARE(ToolPanel::objects(), 0);
        });
        QVERIFY2(grown < 8, qPrintable(QString::number(grown)));
    }

    void screenshotsLeaveTheMemoryFlat() {
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        ToolPanel panel;
        const double grown = growth(10, 20, [&] {
            panel.window.FullScreenShot();
            // Once it is written, nobody holds its picture any more.
            QVERIFY(QTest::qWaitFor([&] { return removedAShotFrom(home.path()); }, patience));
        });
        QVERIFY2(grown < 12, qPrintable(QString::number(grown)));
    }

private:
    static bool removedAShotFrom(const QString &folder) {
        QDirIterator shots(folder, {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
        return shots.hasNext() && QFile::remove(shots.next());
    }
};

VEXA_WIDGET_TEST_MAIN(ToolMemoryTest)
#include "ToolMemoryTest.moc"
