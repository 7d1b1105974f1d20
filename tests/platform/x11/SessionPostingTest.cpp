// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"
#include "support/Table.h"

#include <QScopeGuard>

#include <xcb/xproto.h>

using namespace vexa::test;

namespace {

using Meanings = Table<QString, int, int>;
using Holders = Table<bool>;

All clickAt(int x, int y) {
    return {toldAt(kCGEventMouseMoved, x, y), toldAt(kCGEventLeftMouseDown, x, y),
            toldAt(kCGEventLeftMouseUp, x, y)};
}

} // namespace

/// What is posted into a real X session.
class SessionPostingTest : public QObject, private vexa::test::SessionFixture {
    Q_OBJECT

private slots:
    void init() { openSession(); }
    void cleanup() { closeSession(); }

    void commandReturnBecomesF5() {
        m_hand->openFocusedWindow();
        QVERIFY(postKey(kVK_Return, kCGEventFlagMaskCommand));
        const auto given = m_hand->takeGivenKeys();
        QCOMPARE(given.size(), std::size_t{2});
        QCOMPARE(given[0].xKeyCode, f5);
        QVERIFY(given[0].down && !given[1].down);
        QCOMPARE(given[0].modifiers, 0);
        QCOMPARE(hear([] {}), (All{pressed(kVK_F5), released(kVK_F5)})); // comes back like any other key
    }

    void aKeyDownIsAPressAndAReleaseAndTheKeyUpNothing() {
        for (const auto &[key, x] : {std::pair{kVK_Escape, escape},
                                     {kVK_Space, space},
                                     {kVK_PageUp, pageUp},
                                     {kVK_Return, returnKey}}) {
            QVERIFY(postKey(key));
            QVERIFY(!m_hand->isDown(x));
            QCOMPARE(hear([] {}), (All{pressed(key), released(key)}));
            QVERIFY(postKey(key, 0, kCGEventKeyUp));
            QCOMPARE(hear([] {}), All{});
        }
    }

    /// As users who want escape in another place have it. What is expected is an X key code.
    void keysArriveWithTheirMeaningWhereTheUserHasChangedThat_data() {
        Meanings::begin({
            {"exchanged", "setxkbmap us -option caps:swapescape", kVK_Escape, capsLock},
            {"another key too", "setxkbmap us -option caps:escape", kVK_Escape, escape},
            {"no key", "xmodmap -e 'keycode 112 = End'", kVK_PageUp, pageUp},
            {"only with shift", "xmodmap -e 'keycode 65 = a' -e 'keycode 67 = b space'", kVK_Space, space},
        });
    }

    void keysArriveWithTheirMeaningWhereTheUserHasChangedThat() {
        const auto [change, key, expected] = Meanings::row();
        run(change);
        const auto restore = qScopeGuard([] { run(QStringLiteral("setxkbmap us -option ''")); });
        m_hand->openFocusedWindow();
        QVERIFY(postKey(key));
        const auto given = m_hand->takeGivenKeys();
        QCOMPARE(given.size(), std::size_t{2});
        QCOMPARE(given[0].xKeyCode, expected);
    }

    void whatCannotBePostedIsRefused() {
        for (const int key : {127, -1, 1000})
            QVERIFY(!postKey(key));
        QVERIFY(!postKey(kVK_ANSI_A, kCGEventFlagMaskCommand)); // command+A means nothing here
        QVERIFY(!postKey(kVK_Shift, 0, kCGEventFlagsChanged));
        QVERIFY(!postMouse(6, 1, 1));
        QCOMPARE(hear([] {}), All{});
    }

    void aClickMovesFirstAndThePointerStays() {
        QCOMPARE(hear([&] { click(120, 130); }), clickAt(120, 130));
        QCOMPARE(pointer(), QPoint(120, 130));
        outwaitAClick();
    }

    /// As left-handed users have it.
    void aClickIsTheFirstButtonsWhereTheUserHasExchangedThem() {
        run(QStringLiteral("xmodmap -e 'pointer = 3 2 1'"));
        const auto restore = qScopeGuard([] { run(QStringLiteral("xmodmap -e 'pointer = default'")); });
        const auto isFirstDown = [this] { return m_hand->buttonsDown() == XCB_BUTTON_MASK_1; };
        QCOMPARE(hear([&] { click(120, 130, [&] { QVERIFY(isFirstDown()); }); }), clickAt(120, 130));
        outwaitAClick();
        QCOMPARE(hear([&] { // and what the user's own finger presses
                     m_hand->button(3, true);
                     QVERIFY(isFirstDown());
                     m_hand->button(3, false);
                 }),
                 clickAt(120, 130).mid(1));
    }

    void keysArriveWithoutTheModifiersHeld_data() {
        Holders::begin({{"held on the pen", false}, {"held by a program", true}});
    }

    void keysArriveWithoutTheModifiersHeld() {
        const auto [faked] = Holders::row();
        m_hand->openFocusedWindow();
        for (const int key : penModifiers)
            faked ? m_hand->fakePress(key) : m_hand->press(key);
        m_hand->takeGivenKeys();
        QVERIFY(postKey(kVK_Escape));
        QVector<int> modifiers;
        for (const auto &given : m_hand->takeGivenKeys())
            if (given.xKeyCode == escape)
                modifiers.append(given.modifiers);
        QCOMPARE(modifiers, (QVector<int>{0, 0}));
        for (const int key : penModifiers)
            faked ? m_hand->fakeRelease(key) : m_hand->release(key);
    }

    void modifiersAreAsBeforeAfterAPost() {
        const All modifiers{changed(kVK_Control), changed(kVK_Shift), changed(kVK_Option)};
        QCOMPARE(hear([&] { pressModifiers(); }), modifiers);
        QCOMPARE(hear([] { QVERIFY(postKey(kVK_Return, kCGEventFlagMaskCommand)); }),
                 (All{pressed(kVK_F5), released(kVK_F5)}));
        for (const int key : penModifiers)
            QVERIFY(m_hand->isDown(key));

        // The release chord of a held tool, as the pen goes on.
        QCOMPARE(hear([&] {
                     m_hand->type({letterS});
                     releaseModifiers();
                 }),
                 (All{pressed(kVK_ANSI_S), released(kVK_ANSI_S)} + modifiers));
    }

    void clicksArriveWithoutTheModifiersHeld() {
        m_hand->press(option);
        QVERIFY(postMouse(kCGEventLeftMouseDown, 10, 10));
        QVERIFY(postMouse(kCGEventLeftMouseUp, 10, 10));
        QVERIFY(m_hand->isDown(option));
        const All optionChanged{changed(kVK_Option)};
        QCOMPARE(hear([&] { m_hand->release(option); }), optionChanged + clickAt(10, 10) + optionChanged);
        outwaitAClick();
    }

private:
    static void click(
        int x, int y, const std::function<void()> &whileDown = [] {}) {
        QVERIFY(postMouse(kCGEventMouseMoved, x, y));
        QVERIFY(postMouse(kCGEventLeftMouseDown, x, y));
        whileDown();
        QVERIFY(postMouse(kCGEventLeftMouseUp, x, y));
    }
};

QTEST_GUILESS_MAIN(SessionPostingTest)
#include "SessionPostingTest.moc"
