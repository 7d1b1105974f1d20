// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "fakes/Desktop.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

using namespace vexa::test;

using Settings = ZrToolXmlClass;
using vexa::platform::Cover;

/// How much of the screen the tools ask for: a held tool all of it, but over annotation or blackboard what
/// the desktop gives a maximised window.
class HeldToolCoverTest : public QObject {
    Q_OBJECT

private slots:
    void heldToolCoversWhatIsLeftByWhatIsOpen_data() {
        QTest::addColumn<int>("heldTool");
        QTest::addColumn<bool>("annotation");
        QTest::addColumn<bool>("blackboard");
        const char *const names[] = {"spotlight", "magnifier", "laser"};
        for (int tool = 0; tool < 3; ++tool) {
            QTest::addRow("%s alone", names[tool]) << tool << false << false;
            QTest::addRow("%s over the annotation", names[tool]) << tool << true << false;
            QTest::addRow("%s over the blackboard", names[tool]) << tool << false << true;
            QTest::addRow("%s over both", names[tool]) << tool << true << true;
        }
    }

    void heldToolCoversWhatIsLeftByWhatIsOpen() {
        QFETCH(int, heldTool);
        QFETCH(bool, annotation);
        QFETCH(bool, blackboard);
        userfile::clear();
        vexa::fakeDesktop().covers.clear();
        ToolPanel panel;
        Settings::Key3P = 3;
        Settings::Key4P = heldTool;
        QMap<QByteArray, Cover> expected;
        if (blackboard) {
            panel.chord(pen::j);
            expected["blackBoardform"] = Cover::FullScreen;
        }
        if (annotation) {
            panel.chord(pen::m);
            panel.chord(pen::i);
            expected["PizhuForm"] = Cover::FullScreen;
        }
        panel.chord(pen::g);
        const char *const tools[] = {"Spolight2", "Magnifie", "LightPen"};
        expected[tools[heldTool]] = annotation || blackboard ? Cover::Maximized : Cover::FullScreen;
        QCOMPARE(vexa::fakeDesktop().covers, expected);
    }

    void heldToolCoversAllAgainAfterwards() {
        userfile::clear();
        ToolPanel panel;
        Settings::Key4P = 2;
        panel.chord(pen::i);
        panel.chord(pen::i);
        panel.chord(pen::g);
        QVERIFY(vexa::fakeDesktop().covers.value("LightPen") == Cover::FullScreen);
    }
};

VEXA_WIDGET_TEST_MAIN(HeldToolCoverTest)
#include "HeldToolCoverTest.moc"
