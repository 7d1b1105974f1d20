// SPDX-License-Identifier: MIT
#include "platform/x11/input/EventTranslator.h"

#include "platform/x11/Told.h"
#include "support/Table.h"
#include "support/XKeys.h"

using namespace vexa::test;
using vexa::x11::DeviceEvent;
using vexa::x11::EventTranslator;
using vexa::x11::XKeyCode;

namespace {

enum What {
    Press,
    Release,
    HidePress,   ///< the next one, if it is of this key
    HideRelease, ///< likewise
    LetGo,
    Look, ///< at what the server says is held: this key alone
};

struct Step {
    What what;
    int key;
    All told; ///< by this very step
};

const All nothing;
const All down{pressed(kVK_ANSI_G)};
const All up{released(kVK_ANSI_G)};
const All controlChanged{changed(kVK_Control)};
const All rightChanged{changed(kVK_RightControl)};
const All shiftChanged{changed(kVK_Shift)};
const All capsChanged{changed(kVK_CapsLock)};

using Scripts = Table<QVector<Step>, bool>;
using Pointers = Table<QVector<DeviceEvent>, All>;

} // namespace

Q_DECLARE_METATYPE(DeviceEvent)
Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Told)

class EventTranslatorTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_translator = EventTranslator(); }

    void eachRealChangeIsToldOnce_data() {
        Scripts::begin({
            {"a key that repeats",
             {{Press, letterG, down},
              {Press, letterG, nothing},
              {Press, letterG, nothing},
              {Release, letterG, up},
              {Press, letterG, down},
              {Press, letterG, nothing},
              {Release, letterG, up}},
             false},
            {"a release of an ordinary key without its press", {{Release, letterG, up}}, false},
            {"a lost release of one, or its next press would pass for a repeat",
             {{Press, letterG, down}, {Look, 0, up}, {Press, letterG, down}},
             true},
            {"an unknown key", {{Press, 255, nothing}, {Release, 255, nothing}}, false},
            {"a modifier that repeats, or is on two keyboards",
             {{Press, control, controlChanged},
              {Press, control, nothing},
              {Release, control, controlChanged},
              {Release, control, nothing}},
             false},
            {"caps lock", {{Press, capsLock, capsChanged}, {Release, capsLock, capsChanged}}, false},
            {"a release of a modifier without its press",
             {{Release, shift, nothing}, {Press, shift, shiftChanged}},
             true},
            {"left and right",
             {{Press, control, controlChanged},
              {Press, rightControl, rightChanged},
              {Release, control, controlChanged},
              {Release, rightControl, rightChanged}},
             false},
            {"a hidden key",
             {{Press, control, controlChanged},
              {HideRelease, control, nothing},
              {Release, control, nothing},
              {HidePress, control, nothing},
              {Press, control, nothing},
              {Release, control, controlChanged}},
             false},
            {"the user's release behind a hidden one",
             {{Press, control, controlChanged},
              {HideRelease, control, nothing},
              {Release, control, nothing},
              {Release, control, controlChanged}},
             false},
            {"another modifier in the place of a hidden one",
             {{Press, control, controlChanged},
              {Press, shift, shiftChanged},
              {HideRelease, control, nothing},
              {Release, shift, shiftChanged},
              {Release, control, controlChanged}},
             false},
            {"a release in the place of a hidden press",
             {{Press, control, controlChanged},
              {HidePress, control, nothing},
              {Release, control, controlChanged}},
             false},
            {"what comes in the place of a hidden key, which the server had nothing to tell of",
             {{Press, control, controlChanged},
              {HideRelease, control, nothing},
              {Press, letterG, down},
              {Release, control, controlChanged}},
             true},
            {"a press that was hidden wrongly costs that hold only",
             {{HidePress, control, nothing},
              {Press, control, nothing},
              {Release, control, nothing},
              {Press, control, controlChanged},
              {Release, control, controlChanged}},
             false},
            {"a modifier let go behind its hidden release",
             {{Press, control, controlChanged},
              {HideRelease, control, nothing},
              {Release, control, nothing},
              {LetGo, control, controlChanged},
              {LetGo, letterG, nothing}},
             false},
            {"a modifier let go that was down after all",
             {{Press, control, controlChanged},
              {HideRelease, control, nothing},
              {LetGo, control, controlChanged},
              {Release, control, nothing}},
             false},
            {"the user's press behind a key let go",
             {{HidePress, control, nothing}, {LetGo, shift, nothing}, {Press, control, controlChanged}},
             true},
            {"a lost release of a modifier, also when it comes after all",
             {{Press, control, controlChanged},
              {Press, shift, shiftChanged},
              {Look, shift, controlChanged},
              {Release, control, nothing},
              {Release, shift, shiftChanged}},
             false},
            {"what the server holds too", {{Press, control, controlChanged}, {Look, control, nothing}}, true},
            {"what was held before we listened", {{Look, control, nothing}}, false},
        });
    }

    void eachRealChangeIsToldOnce() {
        const auto [steps, anyKeyDown] = Scripts::row();
        for (int i = 0; i < steps.size(); ++i) {
            take(steps[i]);
            QVERIFY2(takeAll() == steps[i].told, qPrintable(QStringLiteral("step %1").arg(i)));
        }
        QCOMPARE(m_translator.anyKeyDown(), anyKeyDown);
    }

    void flagsShowWhatIsHeld() {
        for (const int key : {control, shift, option, letterG})
            take({Press, key, {}});
        take({Release, shift, {}});
        take({Release, control, {}});
        take({Press, rightControl, {}});
        QVector<std::uint64_t> flags;
        for (vexa::InputEvent event; m_translator.next(event);)
            flags.append(event.flags);
        QCOMPARE(flags,
                 (QVector<std::uint64_t>{0x40000, 0x60000, 0xE0000, 0xE0000, 0xC0000, 0x80000, 0xC0000}));
    }

    /// A thousand motions a second are looked at once in a while; what happens meanwhile says where.
    void thePointersWayIsTold_data() {
        using Event = DeviceEvent;
        const All moved{toldAt(kCGEventMouseMoved, 7, 8)};
        Pointers::begin({
            {"a move", {{Event::Motion, 0, {7, 8}, 0}}, moved},
            {"a move with modifiers held", {{Event::Motion, 0, {7, 8}, 0xFF}}, moved},
            {"a drag with the left button", {{Event::Motion, 0, {7, 8}, 0x100}}, {}},
            {"a drag with the middle button", {{Event::Motion, 0, {7, 8}, 0x200}}, {}},
            {"a drag with the right button", {{Event::Motion, 0, {7, 8}, 0x400}}, {}},
            {"a motion into the corner", {{Event::Motion, 0, {0, 0}, 0}}, {toldAt(kCGEventMouseMoved, 0, 0)}},
            {"a motion to where the pointer is", {{Event::Motion, 0, {5, 6}, 0}}, {}},
            {"clicks and keys in other places, the first after a drag",
             {{Event::ButtonPress, 1, {50, 60}, 0},
              {Event::ButtonRelease, 1, {70, 80}, 0x100},
              {Event::KeyPress, letterG, {70, 80}, 0},
              {Event::KeyRelease, letterG, {90, 10}, 0}},
             {toldAt(kCGEventMouseMoved, 50, 60), toldAt(kCGEventLeftMouseDown, 50, 60),
              toldAt(kCGEventLeftMouseUp, 70, 80), pressed(kVK_ANSI_G), toldAt(kCGEventMouseMoved, 90, 10),
              released(kVK_ANSI_G)}},
            {"what is recorded without its place, where the pointer was last",
             {{Event::KeyPress, letterG, {0, 0}, 0}, {Event::ButtonPress, 1, {0, 0}, 0}},
             {pressed(kVK_ANSI_G), toldAt(kCGEventLeftMouseDown, 5, 6)}},
        });
    }

    void thePointersWayIsTold() {
        const auto [events, expected] = Pointers::row();
        m_translator.startAt({5, 6});
        for (const DeviceEvent &event : events)
            m_translator.take(event);
        QCOMPARE(takeAll(), expected);
    }

    void onlyTheLeftButtonIsTold() {
        m_translator.startAt({5, 6});
        for (std::uint8_t button = 1; button <= 9; ++button) {
            m_translator.take({DeviceEvent::ButtonPress, button, {5, 6}, 0});
            m_translator.take({DeviceEvent::ButtonRelease, button, {5, 6}, 0});
        }
        QCOMPARE(takeAll(), (All{toldAt(kCGEventLeftMouseDown, 5, 6), toldAt(kCGEventLeftMouseUp, 5, 6)}));
    }

    void positionsAreRelativeToThePrimaryScreenAndInPoints() {
        m_translator.screen = {{1920, 100}, {1920, 1080}, 2};
        m_translator.take({DeviceEvent::Motion, 0, {1919, 301}, 0});
        QCOMPARE(takeAll(), All{toldAt(kCGEventMouseMoved, -0.5, 100.5)});
    }

private:
    void take(const Step &step) {
        const auto key = static_cast<XKeyCode>(step.key);
        switch (step.what) {
        case Press:
            return m_translator.take({DeviceEvent::KeyPress, key, {0, 0}, 0});
        case Release:
            return m_translator.take({DeviceEvent::KeyRelease, key, {0, 0}, 0});
        case HidePress:
            return m_translator.hideNext(DeviceEvent::KeyPress, key);
        case HideRelease:
            return m_translator.hideNext(DeviceEvent::KeyRelease, key);
        case LetGo:
            return m_translator.letGo(key);
        case Look:
            return m_translator.reconcile([key](XKeyCode other) { return other == key; });
        }
    }

    All takeAll() {
        All all;
        for (vexa::InputEvent event; m_translator.next(event);)
            all.append(toldOf(event));
        return all;
    }

    EventTranslator m_translator;
};

QTEST_GUILESS_MAIN(EventTranslatorTest)
#include "EventTranslatorTest.moc"
