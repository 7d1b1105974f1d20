// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardListenerMac.h"

#include <QtTest>

namespace {

struct Posted {
    std::uint32_t type;
    std::int64_t key;
    std::uint64_t flags;
    double x, y;
    bool operator==(const Posted &other) const {
        return type == other.type && key == other.key && flags == other.flags && x == other.x && y == other.y;
    }
};

Posted key(std::uint32_t type, int code, std::uint64_t flags = 0) {
    return {type, code, flags, 0, 0};
}

Posted mouse(std::uint32_t type, double x, double y) {
    return {type, 0, 0, x, y};
}

} // namespace

class SyntheticInputTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(!CKeyboardListenerMac::EnterPPT); }
    void init() {
        m_backend.refuse(false);
        m_backend.clearPosts();
        CKeyboardListenerMac::EnterPPT = false;
    }

    void twoSlideShowCallsPostCommandReturnThenEscape() {
        CKeyboardListenerMac::SetPPTFullScreen();
        QVERIFY(CKeyboardListenerMac::EnterPPT);
        QCOMPARE(posted(), (QVector<Posted>{key(kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand)}));
        CKeyboardListenerMac::SetPPTFullScreen();
        QVERIFY(!CKeyboardListenerMac::EnterPPT);
        QCOMPARE(posted(), (QVector<Posted>{key(kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand),
                                            key(kCGEventKeyDown, kVK_Escape)}));
    }

    void playOrPausePostsSpaceDownAndUp() {
        CKeyboardListenerMac::SetPlayOrPause();
        QCOMPARE(posted(), (QVector<Posted>{key(kCGEventKeyDown, kVK_Space), key(kCGEventKeyUp, kVK_Space)}));
    }

    void pageUpPostsNoKeyUp() {
        CKeyboardListenerMac::SetPageUp();
        QCOMPARE(posted(), (QVector<Posted>{key(kCGEventKeyDown, kVK_PageUp)}));
    }

    void movingPostsOneMove() {
        CKeyboardListenerMac::SetMouseMove(4, -7);
        QCOMPARE(posted(), (QVector<Posted>{mouse(kCGEventMouseMoved, 4, -7)}));
    }

    void pressingMovesFirstAndDoesNotRelease() {
        CKeyboardListenerMac::SetMouseDown(10, 20);
        QCOMPARE(posted(),
                 (QVector<Posted>{mouse(kCGEventMouseMoved, 10, 20), mouse(kCGEventLeftMouseDown, 10, 20)}));
    }

    void clickingMovesPressesAndReleases() {
        CKeyboardListenerMac::SetMouseClick(10, 20);
        QCOMPARE(posted(),
                 (QVector<Posted>{mouse(kCGEventMouseMoved, 10, 20), mouse(kCGEventLeftMouseDown, 10, 20),
                                  mouse(kCGEventLeftMouseUp, 10, 20)}));
        for (const vexa::InputEvent &event : m_backend.posts())
            QCOMPARE(event.button, 0u);
    }

    void anyMouseEventCanBePosted() {
        PostMouseEvent(kCGMouseButtonRight, kCGEventLeftMouseUp, CGPointMake(1.5, 2.5));
        QCOMPARE(posted(), (QVector<Posted>{mouse(kCGEventLeftMouseUp, 1.5, 2.5)}));
        QCOMPARE(m_backend.posts().front().button, 1u);
    }

    void openingThePermissionPanePostsNothing() {
        CKeyboardListenerMac::SetpTosysCamera();
        QVERIFY(posted().isEmpty());
    }

    void onlyTheSlideShowFlipsTheFlag() {
        for (const bool flag : {false, true}) {
            CKeyboardListenerMac::EnterPPT = flag;
            CKeyboardListenerMac::SetPlayOrPause();
            CKeyboardListenerMac::SetPageUp();
            CKeyboardListenerMac::SetMouseClick(1, 1);
            CKeyboardListenerMac::SetMouseDown(1, 1);
            CKeyboardListenerMac::SetpTosysCamera();
            QCOMPARE(CKeyboardListenerMac::EnterPPT, flag);
        }
    }

    void aRefusedPostChangesNothingElse() {
        m_backend.refuse();
        CKeyboardListenerMac::SetPPTFullScreen();
        QVERIFY(CKeyboardListenerMac::EnterPPT);
        QVERIFY(posted().isEmpty());
    }

private:
    QVector<Posted> posted() const {
        QVector<Posted> all;
        for (const vexa::InputEvent &event : m_backend.posts())
            all.append({event.type, event.keyCode, event.flags, event.x, event.y});
        return all;
    }

    vexa::RecordingBackend m_backend;
};

QTEST_GUILESS_MAIN(SyntheticInputTest)
#include "SyntheticInputTest.moc"
