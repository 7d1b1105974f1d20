// SPDX-License-Identifier: MIT
#include "platform/x11/input/EventTranslator.h"

#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/VirtualKeys.h"

#include <QtTest>

using vexa::InputEvent;
using vexa::x11::DeviceEvent;
using vexa::x11::EventTranslator;
using vexa::x11::XKeyCode;

namespace {

constexpr XKeyCode control = 37, shift = 50, option = 64, rightControl = 105, capsLock = 66, letterG = 42;

struct Key {
    std::uint32_t type;
    std::int64_t key;
    bool operator==(const Key &other) const { return type == other.type && key == other.key; }
};
using Keys = QVector<Key>;

struct Place {
    std::uint32_t type;
    double x, y;
    bool operator==(const Place &other) const { return type == other.type && x == other.x && y == other.y; }
};

using Places = QVector<Place>;

Places placesOf(const QVector<InputEvent> &events) {
    Places places;
    for (const InputEvent &event : events)
        places.append({event.type, event.x, event.y});
    return places;
}

Key pressed(int key) {
    return {kCGEventKeyDown, key};
}
Key released(int key) {
    return {kCGEventKeyUp, key};
}
Key changed(int modifier) {
    return {kCGEventFlagsChanged, modifier};
}

} // namespace

class EventTranslatorTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_translator = EventTranslator(); }

    void aKeyThatRepeatsIsPressedOnce() {
        for (int round = 0; round < 2; ++round) {
            press(letterG);
            press(letterG);
            press(letterG);
            release(letterG);
            QCOMPARE(takeKeys(), (Keys{pressed(kVK_ANSI_G), released(kVK_ANSI_G)}));
        }
    }

    void aReleaseOfAnOrdinaryKeyIsToldWithoutItsPress() {
        release(letterG);
        QCOMPARE(takeKeys(), (Keys{released(kVK_ANSI_G)}));
    }

    /// Or the key's next press would pass for a repeat.
    void aLostReleaseOfAnOrdinaryKeyIsInventedToo() {
        press(letterG);
        QVERIFY(m_translator.anyKeyDown());
        m_translator.reconcile([](XKeyCode) { return false; });
        QVERIFY(!m_translator.anyKeyDown());
        press(letterG);
        QCOMPARE(takeKeys(), (Keys{pressed(kVK_ANSI_G), released(kVK_ANSI_G), pressed(kVK_ANSI_G)}));
    }

    void unknownKeysAreLeftOut() {
        press(255);
        release(255);
        QVERIFY(takeKeys().isEmpty());
    }

    void aModifierChangesOncePerRealChange() {
        press(control);
        press(control); // the second keyboard, or a repeat
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control)}));
        release(control);
        release(control);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control)}));
        press(capsLock);
        release(capsLock);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_CapsLock), changed(kVK_CapsLock)}));
    }

    void aReleaseWithoutItsPressIsNoChange() {
        release(shift);
        QVERIFY(takeKeys().isEmpty());
        press(shift);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Shift)}));
    }

    void leftAndRightAreDifferentKeys() {
        press(control);
        press(rightControl);
        release(control);
        release(rightControl);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), changed(kVK_RightControl), changed(kVK_Control),
                                   changed(kVK_RightControl)}));
    }

    void flagsShowWhatIsHeld() {
        press(control);
        press(shift);
        press(option);
        press(letterG);
        release(shift);
        const auto events = takeAll();
        QCOMPARE(events.size(), 5);
        QCOMPARE(events[0].flags, std::uint64_t{0x40000});
        QCOMPARE(events[2].flags, std::uint64_t{0xE0000});
        QCOMPARE(events[3].flags, std::uint64_t{0xE0000});
        QCOMPARE(events[4].flags, std::uint64_t{0xC0000});
    }

    void aHiddenKeyChangesNothing() {
        press(control);
        m_translator.hideNext(DeviceEvent::KeyRelease, control);
        release(control);
        QVERIFY(m_translator.anyKeyDown());
        m_translator.hideNext(DeviceEvent::KeyPress, control);
        press(control);
        release(control);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), changed(kVK_Control)}));
        QVERIFY(!m_translator.anyKeyDown());
    }

    void onlyTheVeryNextKeyIsHidden() {
        press(control);
        m_translator.hideNext(DeviceEvent::KeyRelease, control);
        release(control);
        release(control); // the user's
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), changed(kVK_Control)}));
    }

    void aHiddenKeyThatNeverCameHidesNothingElse() {
        press(control);
        m_translator.hideNext(DeviceEvent::KeyRelease, control);
        press(letterG); // the server had nothing to release
        release(control);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), pressed(kVK_ANSI_G), changed(kVK_Control)}));
    }

    void aReleaseThatTheServerHadNothingToTellOfIsTold() {
        press(control);
        m_translator.hideNext(DeviceEvent::KeyRelease, control);
        release(control);
        m_translator.letGo(control);
        m_translator.letGo(letterG);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), changed(kVK_Control)}));
        press(control);
        m_translator.hideNext(DeviceEvent::KeyRelease, control);
        m_translator.letGo(control);
        release(control); // it was down after all
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), changed(kVK_Control)}));
        m_translator.hideNext(DeviceEvent::KeyPress, control);
        m_translator.letGo(shift);
        press(control); // the user's
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control)}));
    }

    void aLostReleaseIsInvented() {
        press(control);
        press(shift);
        takeAll();
        m_translator.reconcile([](XKeyCode key) { return key == shift; });
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control)}));
        release(control); // should it come after all
        QVERIFY(takeKeys().isEmpty());
        release(shift);
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Shift)}));
    }

    void nothingIsInventedForWhatTheServerHolds() {
        press(control);
        takeAll();
        m_translator.reconcile([](XKeyCode) { return true; });
        QVERIFY(takeKeys().isEmpty());
        QVERIFY(m_translator.anyKeyDown());
    }

    void aPressIsNeverInvented() {
        m_translator.reconcile([](XKeyCode) { return true; }); // held since before we listened
        QVERIFY(takeKeys().isEmpty());
        QVERIFY(!m_translator.anyKeyDown());
    }

    void anUnheardPressCostsThatHoldOnly() {
        m_translator.hideNext(DeviceEvent::KeyPress, control);
        press(control);
        release(control);
        QVERIFY(takeKeys().isEmpty());
        press(control);
        QVERIFY(m_translator.anyKeyDown());
        release(control);
        QVERIFY(!m_translator.anyKeyDown());
        QCOMPARE(takeKeys(), (Keys{changed(kVK_Control), changed(kVK_Control)}));
    }

    void motionWithAButtonHeldIsNoMove_data() {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("move");
        QTest::newRow("nothing held") << 0 << true;
        QTest::newRow("modifiers held") << 0xFF << true;
        QTest::newRow("left button") << 0x100 << false;
        QTest::newRow("middle button") << 0x200 << false;
        QTest::newRow("right button") << 0x400 << false;
    }

    void motionWithAButtonHeldIsNoMove() {
        QFETCH(int, state);
        m_translator.take({DeviceEvent::Motion, 0, {5, 6}, static_cast<std::uint16_t>(state)});
        const auto events = takeAll();
        QTEST(events.size() == 1 && events[0].type == 5, "move");
        QVERIFY(events.size() <= 1);
    }

    /// A thousand motions a second are looked at once in a while; what happens meanwhile says where.
    void whatHappensElsewhereTellsOfAMoveThereFirst() {
        m_translator.startAt({5, 6});
        m_translator.take({DeviceEvent::ButtonPress, 1, {50, 60}, 0});
        m_translator.take({DeviceEvent::ButtonRelease, 1, {70, 80}, 0x100}); // dragged
        m_translator.take({DeviceEvent::KeyPress, letterG, {70, 80}, 0});
        m_translator.take({DeviceEvent::KeyRelease, letterG, {90, 10}, 0});
        QCOMPARE(placesOf(takeAll()), (Places{{kCGEventMouseMoved, 50, 60},
                                              {kCGEventLeftMouseDown, 50, 60},
                                              {kCGEventLeftMouseUp, 70, 80},
                                              {kCGEventKeyDown, 0, 0},
                                              {kCGEventMouseMoved, 90, 10},
                                              {kCGEventKeyUp, 0, 0}}));
    }

    void whatIsRecordedWithoutItsPlaceIsWhereThePointerWasLast() {
        m_translator.startAt({5, 6});
        m_translator.take({DeviceEvent::KeyPress, letterG, {0, 0}, 0});
        m_translator.take({DeviceEvent::ButtonPress, 1, {0, 0}, 0});
        QCOMPARE(placesOf(takeAll()), (Places{{kCGEventKeyDown, 0, 0}, {kCGEventLeftMouseDown, 5, 6}}));
    }

    void aMotionIntoTheCornerIsAMove() {
        m_translator.startAt({5, 6});
        m_translator.take({DeviceEvent::Motion, 0, {0, 0}, 0});
        QCOMPARE(placesOf(takeAll()), (Places{{kCGEventMouseMoved, 0, 0}}));
    }

    void aMotionToWhereThePointerIsTellsNothing() {
        m_translator.startAt({5, 6});
        m_translator.take({DeviceEvent::Motion, 0, {5, 6}, 0});
        QVERIFY(!m_translator.hasNext());
    }

    void onlyTheLeftButtonIsTold() {
        m_translator.startAt({5, 6});
        for (std::uint8_t button = 1; button <= 9; ++button) {
            m_translator.take({DeviceEvent::ButtonPress, button, {5, 6}, 0});
            m_translator.take({DeviceEvent::ButtonRelease, button, {5, 6}, 0});
        }
        const auto events = takeAll();
        QCOMPARE(events.size(), 2);
        QCOMPARE(events[0].type, std::uint32_t{kCGEventLeftMouseDown});
        QCOMPARE(events[1].type, std::uint32_t{kCGEventLeftMouseUp});
        QCOMPARE(events[0].x, 5.0);
        QCOMPARE(events[0].y, 6.0);
    }

    void positionsAreRelativeToThePrimaryScreenAndInPoints() {
        m_translator.screen = {{1920, 100}, {1920, 1080}, 2};
        m_translator.take({DeviceEvent::Motion, 0, {1919, 301}, 0});
        const auto events = takeAll();
        QCOMPARE(events.size(), 1);
        QCOMPARE(events[0].x, -0.5);
        QCOMPARE(events[0].y, 100.5);
    }

private:
    void key(bool down, XKeyCode code) {
        m_translator.take({down ? DeviceEvent::KeyPress : DeviceEvent::KeyRelease, code, {0, 0}, 0});
    }
    void press(XKeyCode code) { key(true, code); }
    void release(XKeyCode code) { key(false, code); }

    QVector<InputEvent> takeAll() {
        QVector<InputEvent> all;
        for (InputEvent event; m_translator.next(event);)
            all.append(event);
        return all;
    }

    Keys takeKeys() {
        Keys keys;
        for (const InputEvent &event : takeAll())
            keys.append({event.type, event.keyCode});
        return keys;
    }

    EventTranslator m_translator;
};

QTEST_GUILESS_MAIN(EventTranslatorTest)
#include "EventTranslatorTest.moc"
