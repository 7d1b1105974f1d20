// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
#include "support/ResidentMemory.h"
#include "support/Sanitized.h"
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
        QFETCH(int, heldTool);
        ToolPanel panel;
        Settings::Key3P = 3;
        Settings::Key4P = heldTool;

        const auto openAndClose = [&](bool byClick) {
            panel.chord(pen::m);
            panel.chord(key);
            QCOMPARE(ToolPanel::objects(), 1);
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (!widget->isVisible() || widget->width() != 1920)
                    continue;
                QVERIFY(QTest::qWaitForWindowExposed(widget));
                if (byClick && heldTool != -1)
                    ToolPanel::click(widget);
                else if (byClick)
                    ToolPanel::pressExit(widget);
            }
            panel.chord(pen::m);
            if (!byClick)
                panel.chord(heldTool == -1 ? key : pen::s);
            QTRY_COMPARE(ToolPanel::objects(), 0);
        };

        double settled = 0;
        for (int opening = 0; opening < 30; ++opening) {
            openAndClose(opening % 2 == 0);
            if (opening == 9)
                settled = residentMegabytes();
        }
        const double grown = residentMegabytes() - settled;
        qInfo("grown by %.1f MB in 20 openings", grown);
        QVERIFY(addressSanitized || grown < 8);
    }

    void screenshotsLeaveTheMemoryFlat() {
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        ToolPanel panel;
        double settled = 0;
        for (int shot = 0; shot < 30; ++shot) {
            panel.window.FullScreenShot();
            // Once it is written, nobody holds its picture any more.
            QVERIFY(QTest::qWaitFor([&] { return removedAShotFrom(home.path()); }, patience));
            if (shot == 9)
                settled = residentMegabytes();
        }
        const double grown = residentMegabytes() - settled;
        qInfo("grown by %.1f MB in 20 shots", grown);
        QVERIFY(addressSanitized || grown < 12);
    }

private:
    static bool removedAShotFrom(const QString &folder) {
        QDirIterator shots(folder, {QStringLiteral("*.png")}, QDir::Files, QDirIterator::Subdirectories);
        return shots.hasNext() && QFile::remove(shots.next());
    }
};

VEXA_WIDGET_TEST_MAIN(ToolMemoryTest)
#include "ToolMemoryTest.moc"
