// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <optional>

using namespace vexa::test;

namespace {

const QSize wholeScreen(1920, 1080);
const QSize cardSize(380, 180);

} // namespace

/// Windows of the program that another client of the X server destroys.
class LostWindowsTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_program.emplace(e2e::Program::Settings{{"Key3P", 3}, {"Key4C", 4}, {"Key4P", 2}, {"PenColor0", 2}});
        QVERIFY(e2e::startAndSettle(*m_program));
    }

    void cleanup() {
        QVERIFY(m_program->isRunning());
        m_program.reset();
    }

    void aToolIsOver_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("held tool") << int(PenKey::G);
        QTest::newRow("annotation") << int(PenKey::I);
        QTest::newRow("blackboard") << int(PenKey::J);
    }

    void aToolIsOver() {
        QFETCH(int, key);
        const int windows = int(e2e::windowsOf(m_program->pid()).size());
        for (int opening = 0; opening < 2; ++opening) {
            typeChord(PenKey::M);
            typeChord(PenKey(key));
            QTRY_VERIFY_WITH_TIMEOUT(shownOfSize(wholeScreen).id, patience);
            e2e::destroy(shownOfSize(wholeScreen));
            // The widget goes with it, and its card, so the next chord opens another one.
            QTRY_COMPARE_WITH_TIMEOUT(int(e2e::windowsOf(m_program->pid()).size()), windows, patience);
        }
    }

    void aMadeUpNoticeClosesNothing() {
        typeChord(PenKey::M);
        typeChord(PenKey::I);
        QTRY_VERIFY_WITH_TIMEOUT(shownOfSize(wholeScreen).id, patience);
        e2e::pretendDestroyed(shownOfSize(wholeScreen));
        // The press comes after the notice, so when there is ink the notice has been read.
        const QPoint place(960, 300);
        const QRgb before = e2e::pixelAt(place);
        moveMouse(place - QPoint(50, 0));
        pressMouse();
        moveMouse(place + QPoint(50, 0));
        releaseMouse();
        QTRY_VERIFY_WITH_TIMEOUT(e2e::pixelAt(place) != before, patience);
        QVERIFY(shownOfSize(wholeScreen).id);
    }

    void thePanelIsMadeAnew() {
        for (int showing = 0; showing < 2; ++showing) {
            const auto isThereWhenAskedFor = [this] {
                m_program->runToTheEnd();
                return appears([this] { return e2e::panelOf(m_program->pid()); });
            };
            QVERIFY(QTest::qWaitFor(isThereWhenAskedFor, patience));
            e2e::destroy(e2e::panelOf(m_program->pid()));
        }
    }

    void aPromptIsMadeAnew() {
        for (const e2e::Window &window : e2e::windowsOf(m_program->pid()))
            e2e::destroy(window);
        const auto isThereAfterAShot = [this] {
            typeChord(PenKey::D);
            return appears([this] { return shownOfSize(cardSize); });
        };
        QVERIFY(QTest::qWaitFor(isThereAfterAShot, patience));
    }

private:
    /// Soon, or else it has to be asked for again: the program may hear of a destroyed window only after
    /// that.
    template<typename Look> static bool appears(Look look) {
        return QTest::qWaitFor([look] { return look().id != 0; }, patience / 20);
    }

    e2e::Window shownOfSize(const QSize &size) const {
        return e2e::visibleWindowOfSize(m_program->pid(), size);
    }

    std::optional<e2e::Program> m_program;
};

VEXA_WIDGET_TEST_MAIN(LostWindowsTest)
#include "LostWindowsTest.moc"
