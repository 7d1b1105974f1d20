// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Patience.h"
#include "support/PatternWindow.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

/// A part of the screen that no tool draws on.
constexpr QRect apart(1500, 200, 300, 600);

QImage shown() {
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, apart.x(), apart.y(), apart.width(), apart.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QWidget *openTool() {
    return ToolPanel::form(false) ? ToolPanel::form(false) : ToolPanel::heldTool();
}

} // namespace

/// What lies under the tools: the screen as it was when they were opened, or the board.
class ToolPictureTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::startAfresh();
        QCursor::setPos(600, 400);
    }

    void cleanupTestCase() { userfile::clear(); }

    void everyOpeningFreezesTheScreenOfItsMoment_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<HeldToolChoice>("heldTool");
        QTest::newRow("annotation") << pen::i << HeldToolChoice::Spotlight;
        QTest::newRow("spotlight") << pen::g << HeldToolChoice::Spotlight;
        QTest::newRow("magnifier") << pen::g << HeldToolChoice::Magnifier;
        QTest::newRow("laser") << pen::g << HeldToolChoice::Laser;
    }

    void everyOpeningFreezesTheScreenOfItsMoment() {
        QFETCH(int, key);
        QFETCH(HeldToolChoice, heldTool);
        ToolPanel panel;
        Settings::Key4P = Number(heldTool);
        Settings::SportLightTran = 0; // a veil that changes nothing
        const QImage bare = shown();
        PatternWindow window;
        const QImage patterned = pattern(window.size()).copy(apart);

        QVERIFY(window.display());
        panel.chord(key);
        QVERIFY(QTest::qWaitForWindowExposed(openTool(), patience));
        window.hide();
        QCoreApplication::processEvents();
        QTRY_COMPARE_WITH_TIMEOUT(shown(), patterned, patience);
        panel.chord(key == pen::g ? pen::s : key);
        QTRY_COMPARE_WITH_TIMEOUT(ToolPanel::objects(), 0, patience);
        QTRY_COMPARE_WITH_TIMEOUT(shown(), bare, patience);

        panel.chord(key);
        QVERIFY(QTest::qWaitForWindowExposed(openTool(), patience));
        QTRY_COMPARE_WITH_TIMEOUT(shown(), bare, patience);
    }

    void blackboardHidesTheScreen() {
        PatternWindow window;
        QVERIFY(window.display());
        ToolPanel panel;
        Settings::Key3P = Number(KeyAction::Blackboard);
        panel.chord(pen::j);
        QImage board(apart.size(), QImage::Format_RGB32);
        board.fill(QColor(24, 24, 39));
        QTRY_COMPARE_WITH_TIMEOUT(shown(), board, patience);
    }
};

VEXA_WIDGET_TEST_MAIN(ToolPictureTest)
#include "ToolPictureTest.moc"
