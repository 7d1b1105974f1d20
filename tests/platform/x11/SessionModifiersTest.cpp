// SPDX-License-Identifier: MIT
#include "platform/x11/SessionFixture.h"
#include "platform/x11/input/ModifierLift.h"
#include "support/Table.h"

#include <atomic>
#include <thread>

using namespace vexa::test;

namespace {

using Holds = Table<bool, bool>;

} // namespace

/// Modifiers that are held, and change, while a key is posted.
class SessionModifiersTest : public QObject, private vexa::test::SessionFixture {
    Q_OBJECT

private slots:
    void init() { openSession(); }
    void cleanup() { closeSession(); }

    void aModifierLetGoDuringAPostStaysReleased_data() {
        Holds::begin({{"held on the pen", false, false},
                      {"held by a program too", true, false},
                      {"while a program keeps the keys back", false, true}});
    }
    void aModifierLetGoDuringAPostStaysReleased() {
        const auto [heldByAProgramToo, frozen] = Holds::row();
        const auto connection = vexa::x11::Connection::open();
        m_hand->press(control);
        m_hand->press(shift);
        if (heldByAProgramToo)
            m_hand->fakePress(control);
        if (frozen)
            m_hand->grabKeyboard(true);
        vexa::x11::KeptKeys kept;
        vexa::x11::ModifierLift lift(*connection, kept);
        QVERIFY(connection->sync());
        QCOMPARE(m_hand->isDown(control), frozen);
        m_hand->release(control); // the server does not tell anybody: the key is up already
        lift.restore();
        QVERIFY(connection->sync());
        m_hand->ungrab();
        QVERIFY(kept[shift] && kept.count() == 1);
        QVERIFY(!m_hand->isDown(control));
        QVERIFY(m_hand->isDown(shift));
        m_hand->release(shift);
    }

    void whatAProgramHoldsStaysHeld() {
        m_hand->fakePress(control);
        for (int i = 0; i < 2; ++i) {
            QVERIFY(postKey(kVK_Escape));
            QVERIFY(m_hand->isDown(control));
        }
        QCOMPARE(hear([&] { m_hand->fakeRelease(control); }),
                 (All{changed(kVK_Control), pressed(kVK_Escape), released(kVK_Escape), pressed(kVK_Escape),
                      released(kVK_Escape), changed(kVK_Control)}));
    }

    void programsCanFakeModifiersAfterAPost() {
        m_hand->openFocusedWindow();
        pressModifiers();
        QVERIFY(postKey(kVK_Escape));
        releaseModifiers();
        hear([] {});
        m_hand->takeGivenKeys();

        m_hand->fakePress(control);
        m_hand->fakePress(letterC);
        m_hand->fakeRelease(letterC);
        m_hand->fakeRelease(control);
        bool copied = false;
        for (const auto &given : m_hand->takeGivenKeys())
            copied = copied || (given.down && given.xKeyCode == letterC && given.modifiers == 4);
        QVERIFY2(copied, "a faked control+C arrived without its control");
    }

    void nothingSticksWhenModifiersChangeWhilePosting() {
        Hand pen;
        pen.goOnDuringServerGrabs();
        // In rounds, since the server drops records that it cannot get rid of.
        for (int round = 0; round < 300; ++round) {
            std::atomic<bool> posted{true};
            std::thread session([this, &pen, &posted] {
                std::thread typing([&pen] {
                    for (int chord = 0; chord < 3; ++chord) {
                        for (const int key : penModifiers)
                            pen.press(key);
                        for (const int key : penModifiers)
                            pen.release(key);
                    }
                });
                for (int i = 0; i < 2; ++i)
                    posted = postKey(kVK_Escape) && posted;
                typing.join();
                mark();
            });
            const All heard = hearUpToMarker();
            session.join();
            QVERIFY(posted);
            QCOMPARE(heard.count(pressed(kVK_Escape)), 2);
            for (const auto &[key, x] :
                 {std::pair{kVK_Control, control}, {kVK_Shift, shift}, {kVK_Option, option}}) {
                // Each press has its release, and has it now, not only when the modifiers are next looked at:
                // the listener's toggles end where they began.
                const int changes = heard.count(changed(key));
                const bool right = changes > 0 && changes % 2 == 0 && !m_hand->isDown(x);
                const auto seen = QStringLiteral("round %1: key %2 changed %3 times");
                QVERIFY2(right, qPrintable(seen.arg(round).arg(key).arg(changes)));
            }
        }
    }
};

QTEST_GUILESS_MAIN(SessionModifiersTest)
#include "SessionModifiersTest.moc"
