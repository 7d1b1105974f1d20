// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"
#include "support/Table.h"

namespace {

using Posts = std::vector<vexa::InputEvent>;

vexa::InputEvent mouse(std::uint32_t type, double x, double y, std::uint32_t button = 0) {
    return {type, 0, 0, x, y, button};
}

using Listener = CKeyboardListenerMac;
using Call = void (*)();
using Calls = vexa::test::Table<Call, Posts>;

} // namespace

Q_DECLARE_METATYPE(Call)
Q_DECLARE_METATYPE(Posts)

class SyntheticInputTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(!Listener::EnterPPT); }
    void init() {
        m_backend.refuse(false);
        m_backend.clearPosts();
        Listener::EnterPPT = false;
    }

    void twoSlideShowCallsPostCommandReturnThenEscape() {
        Listener::SetPPTFullScreen();
        QVERIFY(Listener::EnterPPT);
        QCOMPARE(m_backend.posts(), (Posts{{kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand}}));
        Listener::SetPPTFullScreen();
        QVERIFY(!Listener::EnterPPT);
        QCOMPARE(m_backend.posts(), (Posts{{kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand},
                                           {kCGEventKeyDown, kVK_Escape}}));
    }

    void postsWhatItIsCalledFor_data() {
        Calls::begin({
            {"play or pause, with its release",
             Listener::SetPlayOrPause,
             {{kCGEventKeyDown, kVK_Space}, {kCGEventKeyUp, kVK_Space}}},
            {"page up, without", Listener::SetPageUp, {{kCGEventKeyDown, kVK_PageUp}}},
            {"a move", [] { Listener::SetMouseMove(4, -7); }, {mouse(kCGEventMouseMoved, 4, -7)}},
            {"a press, which moves first and does not release",
             [] { Listener::SetMouseDown(10, 20); },
             {mouse(kCGEventMouseMoved, 10, 20), mouse(kCGEventLeftMouseDown, 10, 20)}},
            {"a click",
             [] { Listener::SetMouseClick(10, 20); },
             {mouse(kCGEventMouseMoved, 10, 20), mouse(kCGEventLeftMouseDown, 10, 20),
              mouse(kCGEventLeftMouseUp, 10, 20)}},
            {"any mouse event",
             [] {
                 PostMouseEvent(kCGMouseButtonRight, kCGEventLeftMouseUp, {1.5, 2.5});
             },
             {mouse(kCGEventLeftMouseUp, 1.5, 2.5, 1)}},
            {"the camera's pane", Listener::SetpTosysCamera, {}},
        });
    }
    void postsWhatItIsCalledFor() {
        const auto [call, expected] = Calls::row();
        call();
        QCOMPARE(m_backend.posts(), expected);
    }

    void onlyTheSlideShowFlipsTheFlag() {
        for (const bool flag : {false, true}) {
            Listener::EnterPPT = flag;
            Listener::SetPlayOrPause();
            Listener::SetPageUp();
            Listener::SetMouseClick(1, 1);
            Listener::SetMouseDown(1, 1);
            Listener::SetpTosysCamera();
            QCOMPARE(Listener::EnterPPT, flag);
        }
    }

    void aRefusedPostChangesNothingElse() {
        m_backend.refuse();
        Listener::SetPPTFullScreen();
        QVERIFY(Listener::EnterPPT);
        QVERIFY(m_backend.posts().empty());
    }

private:
    vexa::RecordingBackend m_backend;
};

QTEST_GUILESS_MAIN(SyntheticInputTest)
#include "SyntheticInputTest.moc"
