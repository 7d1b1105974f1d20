// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "fakes/Desktop.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Table.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

using namespace vexa::test;

using Settings = ZrToolXmlClass;
using vexa::platform::Cover;

/// How much of the screen the tools ask for: a held tool all of it, but over annotation or blackboard what
/// the desktop gives a maximised window.
class HeldToolCoverTest : public QObject {
    Q_OBJECT

    using Layers = Table<HeldToolChoice, bool, bool>;

private slots:
    void heldToolCoversWhatIsLeftByWhatIsOpen_data() {
        Layers::begin();
        for (const auto &[name, tool] :
             {std::pair("spotlight", HeldToolChoice::Spotlight),
              std::pair("magnifier", HeldToolChoice::Magnifier), std::pair("laser", HeldToolChoice::Laser)}) {
            QTest::addRow("%s alone", name) << tool << false << false;
            QTest::addRow("%s over the annotation", name) << tool << true << false;
            QTest::addRow("%s over the blackboard", name) << tool << false << true;
            QTest::addRow("%s over both", name) << tool << true << true;
        }
    }

    void heldToolCoversWhatIsLeftByWhatIsOpen() {
        const auto [heldTool, annotation, blackboard] = Layers::row();
        userfile::clear();
        vexa::fakeDesktop().covers.clear();
        ToolPanel panel;
        Settings::Key3P = Number(KeyAction::Blackboard);
        Settings::Key4P = Number(heldTool);
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
        expected[tools[Number(heldTool)]] = annotation || blackboard ? Cover::Maximized : Cover::FullScreen;
        QCOMPARE(vexa::fakeDesktop().covers, expected);
    }

    void heldToolCoversAllAgainAfterwards() {
        userfile::clear();
        ToolPanel panel;
        Settings::Key4P = Number(HeldToolChoice::Laser);
        panel.chord(pen::i);
        panel.chord(pen::i);
        panel.chord(pen::g);
        QVERIFY(vexa::fakeDesktop().covers.value("LightPen") == Cover::FullScreen);
    }
};

VEXA_WIDGET_TEST_MAIN(HeldToolCoverTest)
#include "HeldToolCoverTest.moc"
