// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"

#include <xcb/xproto.h>

using namespace vexa::test;
using vexa::InputEvent;

/// What is posted into a real X session.
class SessionPostingTest : public QObject, private vexa::test::SessionFixture {
    Q_OBJECT

private slots:
    void init() { openSession(); }
    void cleanup() { closeSession(); }

    void commandReturnBecomesF5() {
        m_hand->openFocusedWindow();
        QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand)));
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
            QVERIFY(post(keyEvent(10, key)));
            QVERIFY(!m_hand->isDown(x));
            QCOMPARE(hear([] {}), (All{pressed(key), released(key)}));
            QVERIFY(post(keyEvent(11, key)));
            QCOMPARE(hear([] {}), All{});
        }
    }

    /// As users who want escape in another place have it.
    void keysArriveWithTheirMeaningWhereTheUserHasChangedThat_data() {
        QTest::addColumn<QString>("change");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("expected"); // X key code
        QTest::newRow("exchanged") << "setxkbmap us -option caps:swapescape" << int(kVK_Escape) << capsLock;
        QTest::newRow("another key too") << "setxkbmap us -option caps:escape" << int(kVK_Escape) << escape;
        QTest::newRow("no key") << "xmodmap -e 'keycode 112 = End'" << int(kVK_PageUp) << pageUp;
        QTest::newRow("only with shift")
            << "xmodmap -e 'keycode 65 = a' -e 'keycode 67 = b space'" << int(kVK_Space) << space;
    }

    void keysArriveWithTheirMeaningWhereTheUserHasChangedThat() {
        QFETCH(QString, change);
        QFETCH(int, key);
        QFETCH(int, expected);
        run(change);
        const auto restore = qScopeGuard([] { run(QStringLiteral("setxkbmap us -option ''")); });
        m_hand->openFocusedWindow();
        QVERIFY(post(keyEvent(kCGEventKeyDown, key)));
        const auto given = m_hand->takeGivenKeys();
        QCOMPARE(given.size(), std::size_t{2});
        QCOMPARE(given[0].xKeyCode, expected);
    }

    void keysThatCannotBePostedAreRefused() {
        QVERIFY(!post(keyEvent(kCGEventKeyDown, 127)));
        QVERIFY(!post(keyEvent(kCGEventKeyDown, -1)));
        QVERIFY(!post(keyEvent(kCGEventKeyDown, 1000)));
        QVERIFY(!post(
            keyEvent(kCGEventKeyDown, kVK_ANSI_A, kCGEventFlagMaskCommand))); // command+A means nothing here
        QVERIFY(!post(keyEvent(kCGEventFlagsChanged, kVK_Shift)));
        QVERIFY(!post(mouseEvent(6, 1, 1)));
        QCOMPARE(hear([] {}), All{});
    }

    void aClickMovesFirstAndThePointerStays() {
        QCOMPARE(hear([&] {
                     for (const std::uint32_t type :
                          {kCGEventMouseMoved, kCGEventLeftMouseDown, kCGEventLeftMouseUp})
                         QVERIFY(post(mouseEvent(type, 120, 130)));
                 }),
                 (All{toldAt(kCGEventMouseMoved, 120, 130), toldAt(kCGEventLeftMouseDown, 120, 130),
                      toldAt(kCGEventLeftMouseUp, 120, 130)}));
        QCOMPARE(m_hand->pointer().x, 120);
        QCOMPARE(m_hand->pointer().y, 130);
        outwaitAClick();
    }

    /// As left-handed users have it.
    void aClickIsTheFirstButtonsWhereTheUserHasExchangedThem() {
        run(QStringLiteral("xmodmap -e 'pointer = 3 2 1'"));
        const auto restore = qScopeGuard([] { run(QStringLiteral("xmodmap -e 'pointer = default'")); });
        const auto isFirstDown = [this] { return m_hand->buttonsDown() == XCB_BUTTON_MASK_1; };
        QCOMPARE(hear([&] {
                     QVERIFY(post(mouseEvent(kCGEventMouseMoved, 120, 130)));
                     QVERIFY(post(mouseEvent(kCGEventLeftMouseDown, 120, 130)));
                     QVERIFY(isFirstDown());
                     QVERIFY(post(mouseEvent(kCGEventLeftMouseUp, 120, 130)));
                 }),
                 (All{toldAt(kCGEventMouseMoved, 120, 130), toldAt(kCGEventLeftMouseDown, 120, 130),
                      toldAt(kCGEventLeftMouseUp, 120, 130)}));
        outwaitAClick();
        QCOMPARE(hear([&] { // and what the user's own finger presses
                     m_hand->button(3, true);
                     QVERIFY(isFirstDown());
                     m_hand->button(3, false);
                 }),
                 (All{toldAt(kCGEventLeftMouseDown, 120, 130), toldAt(kCGEventLeftMouseUp, 120, 130)}));
    }

    void keysArriveWithoutTheModifiersHeld_data() {
        QTest::addColumn<bool>("faked");
        QTest::newRow("held on the pen") << false;
        QTest::newRow("held by a program") << true;
    }

    void keysArriveWithoutTheModifiersHeld() {
        QFETCH(bool, faked);
        m_hand->openFocusedWindow();
        for (const int key : penModifiers)
            faked ? m_hand->fakePress(key) : m_hand->press(key);
        m_hand->takeGivenKeys();
        QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Escape)));
        int presses = 0;
        for (const auto &given : m_hand->takeGivenKeys()) {
            if (given.xKeyCode != escape)
                continue;
            QCOMPARE(given.modifiers, 0);
            ++presses;
        }
        QCOMPARE(presses, 2);
        for (const int key : penModifiers)
            faked ? m_hand->fakeRelease(key) : m_hand->release(key);
    }

    void modifiersAreAsBeforeAfterAPost() {
        for (const int key : penModifiers)
            m_hand->press(key);
        QCOMPARE(hear([] {}), (All{changed(kVK_Control), changed(kVK_Shift), changed(kVK_Option)}));
        QCOMPARE(hear([] { QVERIFY(post(keyEvent(kCGEventKeyDown, kVK_Return, kCGEventFlagMaskCommand))); }),
                 (All{pressed(kVK_F5), released(kVK_F5)}));
        for (const int key : penModifiers)
            QVERIFY(m_hand->isDown(key));

        // The release chord of a held tool, as the pen goes on.
        QCOMPARE(hear([&] {
                     m_hand->type({letterS});
                     for (const int key : penModifiers)
                         m_hand->release(key);
                 }),
                 (All{pressed(kVK_ANSI_S), released(kVK_ANSI_S), changed(kVK_Control), changed(kVK_Shift),
                      changed(kVK_Option)}));
    }

    void clicksArriveWithoutTheModifiersHeld() {
        m_hand->press(option);
        QVERIFY(post(mouseEvent(kCGEventLeftMouseDown, 10, 10)));
        QVERIFY(post(mouseEvent(kCGEventLeftMouseUp, 10, 10)));
        QVERIFY(m_hand->isDown(option));
        QCOMPARE(hear([&] { m_hand->release(option); }),
                 (All{changed(kVK_Option), toldAt(kCGEventMouseMoved, 10, 10),
                      toldAt(kCGEventLeftMouseDown, 10, 10), toldAt(kCGEventLeftMouseUp, 10, 10),
                      changed(kVK_Option)}));
        outwaitAClick();
    }
};

QTEST_GUILESS_MAIN(SessionPostingTest)
#include "SessionPostingTest.moc"
