// SPDX-License-Identifier: MIT
#include "ToolPanel.h"
#include "overlays/promptwindow2.h"
#include "settings/ZrToolXmlClass.h"
#include "support/TestMain.h"
#include "support/Timers.h"
#include "support/UserFile.h"

#include <QLabel>
#include <QTimerEvent>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

/// Keeps an object's timers from it, so that nothing goes on while a test looks.
class Standstill : public QObject {
public:
    explicit Standstill(QObject &watched) { watched.installEventFilter(this); }
    int ticks = 0;
    bool held = true;

    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() != QEvent::Timer)
            return false;
        ++ticks;
        return held;
    }
};

} // namespace

/// What the prompts of annotation and blackboard say when the pen has opened them.
class OpeningPromptTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::clear();
        m_panel = std::make_unique<ToolPanel>();
        Settings::PenColor0 = 5; // "#FFCC0D"
        Settings::Key3P = Number(KeyAction::Blackboard);
    }

    void cleanup() {
        m_panel.reset();
        QCOMPARE(ToolPanel::objects(), 0);
    }

    void cleanupTestCase() { userfile::clear(); }

    void annotationShowsItsColourALittleLater() {
        m_panel->chord(pen::i);
        promptwindow2 &prompt = *ToolPanel::form(false)->prompt();
        Standstill standstill(prompt);
        // There already, but not to be seen: it must not cover what the user is about to point at.
        QVERIFY(prompt.isVisible());
        QCOMPARE(prompt.size(), QSize(380, 180));
        QCOMPARE(prompt.windowOpacity(), 0.0);
        QCOMPARE(coarseTimersOf(&prompt), QVector<int>{500});
        QTRY_VERIFY(standstill.ticks > 0);
        QCOMPARE(prompt.windowOpacity(), 0.0);
        standstill.held = false;
        QTRY_VERIFY(prompt.windowOpacity() > 0.5);
    }

    void blackboardShowsItsColourAtOnce() {
        m_panel->chord(pen::j);
        promptwindow2 &prompt = *ToolPanel::form(true)->prompt();
        QVERIFY(prompt.isVisible());
        QCOMPARE(prompt.size(), QSize(380, 180));
        QCOMPARE(prompt.windowOpacity(), 1.0);
        QCOMPARE(coarseTimersOf(&prompt), QVector<int>{60});
        QTRY_VERIFY(prompt.windowOpacity() < 0.9); // and fades
    }

    void colourIsTheFirstPensOfTheSettings_data() { drawingFormRows(); }
    void colourIsTheFirstPensOfTheSettings() {
        QFETCH(bool, blackboard);
        m_panel->toggle(blackboard);
        const QObject *prompt = ToolPanel::form(blackboard)->prompt();
        QCOMPARE(prompt->findChild<QLabel *>(QStringLiteral("label_2"))->styleSheet(),
                 QStringLiteral(
                     "QLabel{border:3px solid #FFFFCC0D;border-radius:50px;background-color:#FFCC0D;}"));
    }

private:
    std::unique_ptr<ToolPanel> m_panel;
};

VEXA_WIDGET_TEST_MAIN(OpeningPromptTest)
#include "OpeningPromptTest.moc"
