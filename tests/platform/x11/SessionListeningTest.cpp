// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"
#include "support/Table.h"

#include <QScopeGuard>

#include <poll.h>

using namespace vexa::test;
using vexa::InputEvent;

namespace {

using Layouts = Table<QString>;
using Masters = Table<QString>;
using Grabs = Table<bool>;

} // namespace

/// What is reported of a real X session: input by a second keyboard and by other clients.
class SessionListeningTest : public QObject, private vexa::test::SessionFixture {
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(vexa::platform::sessionInputObstacle(), std::string()); }
    void init() { openSession(); }
    void cleanup() { closeSession(); }

    void codesDoNotFollowTheLayout_data() {
        Layouts::begin(
            {{"French", "fr"}, {"Dvorak", "us dvorak"}, {"control on caps lock", "us -option ctrl:nocaps"}});
    }
    void codesDoNotFollowTheLayout() {
        const auto [layout] = Layouts::row();
        run(QStringLiteral("setxkbmap ") + layout);
        QCOMPARE(hear([&] {
                     m_hand->type({letterA});
                     m_hand->type({letterG});
                 }),
                 (All{pressed(kVK_ANSI_A), released(kVK_ANSI_A), pressed(kVK_ANSI_G), released(kVK_ANSI_G)}));
        run(QStringLiteral("setxkbmap us -option ''"));
    }

    void aPenChordArrivesWhole() {
        QCOMPARE(hear([&] {
                     m_hand->type({control, shift, option, letterG});
                 }),
                 (All{changed(kVK_Control), changed(kVK_Shift), changed(kVK_Option), pressed(kVK_ANSI_G),
                      released(kVK_ANSI_G), changed(kVK_Option), changed(kVK_Shift), changed(kVK_Control)}));
    }

    void aModifierHeldByTwoKeyboardsChangesOnce() {
        QCOMPARE(hear([&] {
                     m_hand->press(control);
                     m_hand->fakePress(control);
                     m_hand->release(control);
                     m_hand->fakeRelease(control);
                 }),
                 (All{changed(kVK_Control), changed(kVK_Control)}));
    }

    void aModifierHeldSinceBeforeStartsWithItsNextPress() {
        m_hand->press(shift);
        m_source = vexa::inputBackend().open();
        QCOMPARE(hear([&] { m_hand->release(shift); }), All{});
        QCOMPARE(hear([&] { m_hand->type({shift}); }), (All{changed(kVK_Shift), changed(kVK_Shift)}));
    }

    void aModifierHeldForLongStaysHeld_data() {
        Masters::begin({{"on the only master keyboard", "Virtual core keyboard"},
                        {"on a second one", "second keyboard"}});
    }
    void aModifierHeldForLongStaysHeld() {
        const auto [masterKeyboard] = Masters::row();
        const auto attachTo = [](const QString &master) {
            run(QStringLiteral("xinput reattach 'Xvfb keyboard' '%1'").arg(master));
        };
        run(QStringLiteral("xinput create-master second"));
        const auto restore = qScopeGuard([attachTo] {
            attachTo(QStringLiteral("Virtual core keyboard"));
            run(QStringLiteral("xinput remove-master 'second pointer'"));
        });
        attachTo(masterKeyboard);
        InputEvent event;
        m_hand->press(control);
        do // the second master's pointer stands in another place
            QVERIFY(takeNext(event));
        while (event.type == kCGEventMouseMoved);
        // The source wakes now and then to ask the server about the key, and finds it held.
        for (int wakes = 0; wakes < 3; ++wakes) {
            pollfd descriptor{m_source->fd(), POLLIN, 0};
            QCOMPARE(poll(&descriptor, 1, 20000), 1);
            QVERIFY(!m_source->next(event));
        }
        QCOMPARE(hear([&] { m_hand->release(control); }), (All{changed(kVK_Control)}));
    }

    /// The server's repeats are no presses: each would open a tool.
    void aKeyHeldDownIsPressedOnce() {
        m_hand->openFocusedWindow();
        const All heard = hear([&] {
            m_hand->press(letterA);
            int given = 0;
            QTRY_VERIFY((given += int(m_hand->takeGivenKeys().size())) >= 4);
            m_hand->release(letterA);
        });
        QCOMPARE(heard, (All{pressed(kVK_ANSI_A), released(kVK_ANSI_A)}));
    }

    void anUnpluggedKeyboardLetsGoOfItsModifiers() {
        m_hand->press(control);
        m_hand->press(option);
        QCOMPARE((All{tellNext(), tellNext()}), (All{changed(kVK_Control), changed(kVK_Option)}));
        run(QStringLiteral("xinput disable 'Xvfb keyboard'"));
        const All letGo{tellNext(), tellNext()}; // in any order
        QVERIFY(letGo.contains(changed(kVK_Control)) && letGo.contains(changed(kVK_Option)));
        run(QStringLiteral("xinput enable 'Xvfb keyboard'"));
        QCOMPARE(hear([] {}), All{});
    }

    void clicksAreToldAndDragsAreNot() {
        QCOMPARE(hear([&] {
                     m_hand->moveTo(10, 20);
                     m_hand->button(1, true);
                     m_hand->moveTo(30, 40);
                     m_hand->moveTo(50, 60);
                     m_hand->button(1, false);
                     m_hand->moveTo(70, 80);
                 }),
                 (All{toldAt(kCGEventMouseMoved, 10, 20), toldAt(kCGEventLeftMouseDown, 10, 20),
                      toldAt(kCGEventLeftMouseUp, 50, 60), toldAt(kCGEventMouseMoved, 70, 80)}));
        QCOMPARE(hear([&] {
                     m_hand->button(3, true);
                     m_hand->moveTo(10, 10);
                     m_hand->button(3, false);
                 }),
                 All{});
    }

    void warpsAreToldAsMoves() {
        QCOMPARE(hear([&] { m_hand->warpTo(333, 222); }), (All{toldAt(kCGEventMouseMoved, 333, 222)}));
        // Without a key after it, which would tell of the place as well
        m_hand->warpThroughXInput(111, 444);
        QCOMPARE(tellNext(), toldAt(kCGEventMouseMoved, 111, 444));
        m_hand->warpTo(222, 333);
        QCOMPARE(tellNext(), toldAt(kCGEventMouseMoved, 222, 333));
    }

    void keysAreHeardThroughOtherClientsGrabs_data() {
        Grabs::begin({{"asynchronous", false}, {"synchronous", true}});
    }
    void keysAreHeardThroughOtherClientsGrabs() {
        const auto [synchronous] = Grabs::row();
        m_hand->grabKeyboard(synchronous);
        m_hand->press(letterG);
        QCOMPARE(tellNext(), pressed(kVK_ANSI_G));
        m_hand->ungrab();
        m_hand->release(letterG);
        QCOMPARE(tellNext(), released(kVK_ANSI_G));
    }

    void movesAreHeardThroughAPointerGrab() {
        m_hand->grabPointer();
        QCOMPARE(hear([&] { m_hand->moveTo(7, 9); }), (All{toldAt(kCGEventMouseMoved, 7, 9)}));
    }

    void severalSourcesHearTheSame() {
        auto second = vexa::inputBackend().open();
        QVERIFY(second);
        QCOMPARE(hear([&] { m_hand->moveTo(1, 2); }), (All{toldAt(kCGEventMouseMoved, 1, 2)}));
        std::swap(m_source, second);
        QCOMPARE(tellNext(), toldAt(kCGEventMouseMoved, 1, 2));
    }
};

QTEST_GUILESS_MAIN(SessionListeningTest)
#include "SessionListeningTest.moc"
