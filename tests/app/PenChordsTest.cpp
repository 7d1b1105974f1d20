// SPDX-License-Identifier: MIT
#include "app/PenChords.h"

#include "platform/quartz/VirtualKeys.h"
#include "support/Table.h"

#include <tuple>

using vexa::PenChords;
using vexa::PenCommand;
using vexa::test::Table;
using Commands = std::vector<PenCommand>;
using Surroundings = PenChords::Surroundings;

namespace {

constexpr int control = kVK_Control;
constexpr int shift = kVK_Shift;
constexpr int option = kVK_Option;

/// The state of the dispatch, put into words of its own: what the tests expect is computed from this one.
struct State {
    bool control = false;
    bool shift = false;
    bool option = false;
    bool armed = true;
    bool aPressed = false;
    bool jPressed = false;

    auto all() const { return std::tie(control, shift, option, armed, aPressed, jPressed); }
    bool operator==(const State &other) const { return all() == other.all(); }
};

void hold(PenChords &chords, bool withControl, bool withShift, bool withOption) {
    chords.receive(control, withControl ? 1 : 0, {});
    chords.receive(shift, withShift ? 1 : 0, {});
    chords.receive(option, withOption ? 1 : 0, {});
}

PenChords chordsIn(const State &state) {
    PenChords chords;
    hold(chords, true, true, true);
    if (state.aPressed)
        chords.receive(kVK_ANSI_A, 1, {});
    if (state.jPressed)
        chords.receive(kVK_ANSI_J, 1, {});
    if (!state.armed)
        chords.receive(kVK_ANSI_I, 1, {});
    hold(chords, state.control, state.shift, state.option);
    return chords;
}

/// Asks copies of the object, by what they answer to the next keys.
State stateOf(const PenChords &chords) {
    const auto answers = [&chords](const Commands &expected, auto prepare, int key, int keyState) {
        PenChords copy = chords;
        prepare(copy);
        return copy.receive(key, keyState, {}) == expected;
    };
    // Whether the chord that closes is heard once the two others are held.
    const auto isHeld = [&answers](int one, int other) {
        const auto holdBoth = [=](PenChords &copy) {
            copy.receive(one, 1, {});
            copy.receive(other, 1, {});
        };
        return answers({PenCommand::CloseHeldTools}, holdBoth, kVK_ANSI_S, 1);
    };
    State state;
    state.control = isHeld(shift, option);
    state.shift = isHeld(control, option);
    state.option = isHeld(control, shift);
    state.armed = answers(
        {PenCommand::ToggleAnnotation}, [](PenChords &copy) { hold(copy, true, true, true); }, kVK_ANSI_I, 1);
    state.aPressed = answers(
        {PenCommand::RunKey2Action}, [](PenChords &) {}, kVK_ANSI_A, 0);
    state.jPressed = answers(
        {PenCommand::RunKey3Action}, [](PenChords &copy) { copy.arm(); }, kVK_ANSI_J, 0);
    return state;
}

/// What one event must do, as an account in prose would tell it.
Commands expectedOf(State &state, int key, bool down, const Surroundings &around) {
    const bool chord = state.control && state.shift && state.option && down;
    Commands commands;
    if (key == control)
        state.control = down;
    if (key == shift)
        state.shift = down;
    if (key == option)
        state.option = down;
    if (key == kVK_ANSI_A) {
        if (chord) {
            state.aPressed = true;
        } else if (state.aPressed) {
            state.aPressed = false;
            commands = {PenCommand::RunKey2Action};
        }
    }
    if (key == kVK_ANSI_S && chord)
        commands = {PenCommand::CloseHeldTools};
    if (key == kVK_ANSI_D && chord)
        commands = {PenCommand::RunKey4Action};
    if (key == kVK_ANSI_G && chord) {
        commands = {PenCommand::OpenHeldTool};
        if (around.slideShow)
            commands = {PenCommand::CancelRefocus, PenCommand::OpenHeldTool};
    }
    if (key == kVK_ANSI_Y && chord) {
        if (around.annotationOpen)
            commands.push_back(PenCommand::StepAnnotationColour);
        if (around.blackboardOpen)
            commands.push_back(PenCommand::StepBlackboardColour);
    }
    if (key == kVK_ANSI_I) {
        if (chord && state.armed) {
            state.armed = false;
            commands = {PenCommand::ToggleAnnotation};
        } else if (!down) {
            state.armed = true;
        }
    }
    if (key == kVK_ANSI_J) {
        if (chord) {
            state.jPressed = true;
        } else if (!down && state.jPressed && state.armed) {
            state.armed = false;
            state.jPressed = false;
            commands = {PenCommand::RunKey3Action};
        }
    }
    if (key == kVK_ANSI_M && chord)
        state.armed = true;
    return commands;
}

QByteArray described(int key, bool down, const State &state) {
    return QString::asprintf("key %d down %d modifiers %d%d%d armed %d marks %d%d", key, down, state.control,
                             state.shift, state.option, state.armed, state.aPressed, state.jPressed)
        .toUtf8();
}

} // namespace

Q_DECLARE_METATYPE(Commands)
Q_DECLARE_METATYPE(Surroundings)

class PenChordsTest : public QObject {
    Q_OBJECT

    /// What a pen does: [ and ] hold and release the modifiers, ! is a chosen setting.
    using Stories = Table<QString, Surroundings, Commands>;

private slots:
    void aStoryEndsWithTheseCommands_data() {
        Stories::begin();
        const auto row = [](const char *name, const char *story, const Commands &commands,
                            const Surroundings &around = {}) {
            QTest::newRow(name) << QString(story) << around << commands;
        };
        using C = PenCommand;
        row("A acts", "[A+A-", {C::RunKey2Action});
        row("S acts", "[S+S-", {C::CloseHeldTools});
        row("D acts", "[D+D-", {C::RunKey4Action});
        row("G acts", "[G+G-", {C::OpenHeldTool});
        row("G acts in a slide show", "[G+G-", {C::CancelRefocus, C::OpenHeldTool}, {true, false, false});
        row("Y does nothing without a drawing", "[Y+Y-", {});
        row("Y acts over the annotation", "[Y+Y-", {C::StepAnnotationColour}, {false, true, false});
        row("Y acts over the board", "[Y+Y-", {C::StepBlackboardColour}, {false, false, true});
        row("Y acts over both", "[Y+Y-", {C::StepAnnotationColour, C::StepBlackboardColour},
            {false, true, true});
        row("I acts", "[I+I-", {C::ToggleAnnotation});
        row("J acts", "[J+J-", {C::RunKey3Action});
        row("M does nothing by itself", "[M+M-", {});
        row("other keys do nothing", "[F+F-", {}, {true, true, true});

        row("only A and J wait for their release", "[A+S+D+G+I+J+",
            {C::CloseHeldTools, C::RunKey4Action, C::OpenHeldTool, C::ToggleAnnotation});
        row("release of A without a chorded press", "A-[A-", {});
        row("plain A of the keyboard", "A+A-", {});
        row("A acts once, even after the modifiers are gone", "[A+]A-A-", {C::RunKey2Action});
        row("annotation toggles once", "[I+I+", {C::ToggleAnnotation});
        row("annotation toggles again after the release", "[I+I+I-I+",
            {C::ToggleAnnotation, C::ToggleAnnotation});
        row("annotation toggles again after the arming chord", "[I+M+I+",
            {C::ToggleAnnotation, C::ToggleAnnotation});
        row("annotation toggles again after a setting armed it", "[I+!I+",
            {C::ToggleAnnotation, C::ToggleAnnotation});
        row("plain press of I does not arm", "[I+]I+[I+", {C::ToggleAnnotation});
        row("J does nothing while not armed", "[I+J+J-", {C::ToggleAnnotation});
        row("J keeps its mark while not armed", "[I+J+J-M+J-J-", {C::ToggleAnnotation, C::RunKey3Action});
    }

    void aStoryEndsWithTheseCommands() {
        const auto [story, around, expected] = Stories::row();
        const QMap<QChar, int> keys{{'A', kVK_ANSI_A}, {'D', kVK_ANSI_D}, {'F', kVK_ANSI_F},
                                    {'G', kVK_ANSI_G}, {'I', kVK_ANSI_I}, {'J', kVK_ANSI_J},
                                    {'M', kVK_ANSI_M}, {'S', kVK_ANSI_S}, {'Y', kVK_ANSI_Y}};
        PenChords chords;
        Commands commands;
        for (int i = 0; i < story.size(); ++i) {
            const QChar step = story.at(i);
            if (step == '!')
                chords.arm();
            else if (step == '[' || step == ']')
                hold(chords, step == '[', step == '[', step == '[');
            else
                for (const PenCommand command :
                     chords.receive(keys.value(step, -1), story.at(++i) == '+' ? 1 : 0, around))
                    commands.push_back(command);
        }
        QCOMPARE(commands, expected);
    }

    void everyKeyInEveryStateWithAllModifiersDoesWhatTheTableSays() {
        for (int key = -1; key < 128; ++key) {
            for (unsigned bits = 0; bits < 1U << 10U; ++bits) {
                const auto bit = [bits](unsigned place) { return (bits >> place & 1U) != 0; };
                State state{bit(0), bit(1), bit(2), bit(3), bit(4), bit(5)};
                const bool down = bit(6);
                const Surroundings around{bit(7), bit(8), bit(9)};
                const QByteArray what = described(key, down, state);

                PenChords chords = chordsIn(state);
                QVERIFY2(stateOf(chords) == state, what);
                const Commands expected = expectedOf(state, key, down, around);
                QVERIFY2(chords.receive(key, down ? 1 : 0, around) == expected, what);
                QVERIFY2(stateOf(chords) == state, what);
            }
        }
    }

    void codesFrom60OnNeverChangeTheModifiers() {
        for (int key = 60; key < 256; ++key) {
            PenChords chords;
            for (int state : {1, 0}) {
                chords.receive(key, state, {});
                QVERIFY(stateOf(chords) == State{});
            }
            hold(chords, true, true, true);
            chords.receive(key, 0, {});
            QCOMPARE(chords.receive(kVK_ANSI_S, 1, {}), Commands{PenCommand::CloseHeldTools});
        }
    }

    void anyNonZeroStateIsDown() {
        PenChords chords;
        chords.receive(control, 2, {});
        chords.receive(shift, -1, {});
        chords.receive(option, 7, {});
        QCOMPARE(chords.receive(1, 3, {}), Commands{PenCommand::CloseHeldTools});
    }
};

QTEST_APPLESS_MAIN(PenChordsTest)
#include "PenChordsTest.moc"
