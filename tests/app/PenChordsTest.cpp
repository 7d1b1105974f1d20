// SPDX-License-Identifier: MIT
#include "app/PenChords.h"

#include "platform/quartz/VirtualKeys.h"

#include <QtTest>

using vexa::PenChords;
using vexa::PenCommand;
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

    bool operator==(const State &other) const {
        return control == other.control && shift == other.shift && option == other.option &&
               armed == other.armed && aPressed == other.aPressed && jPressed == other.jPressed;
    }
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
    const Commands close{PenCommand::CloseHeldTools};
    State state;
    state.control = answers(
        close,
        [](PenChords &copy) {
            copy.receive(shift, 1, {});
            copy.receive(option, 1, {});
        },
        kVK_ANSI_S, 1);
    state.shift = answers(
        close,
        [](PenChords &copy) {
            copy.receive(control, 1, {});
            copy.receive(option, 1, {});
        },
        kVK_ANSI_S, 1);
    state.option = answers(
        close,
        [](PenChords &copy) {
            copy.receive(control, 1, {});
            copy.receive(shift, 1, {});
        },
        kVK_ANSI_S, 1);
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
    return QStringLiteral("key %1 down %2 modifiers %3%4%5 armed %6 marks %7%8")
        .arg(key)
        .arg(down)
        .arg(state.control)
        .arg(state.shift)
        .arg(state.option)
        .arg(state.armed)
        .arg(state.aPressed)
        .arg(state.jPressed)
        .toUtf8();
}

} // namespace

Q_DECLARE_METATYPE(Commands)

class PenChordsTest : public QObject {
    Q_OBJECT

private slots:
    void everyChordHasItsMeaning_data();
    void everyChordHasItsMeaning();
    void everyKeyInEveryStateWithAllModifiersDoesWhatTheTableSays();
    void releaseOfAWithoutChordedPressDoesNothing();
    void plainAOnTheKeyboardDoesNothing();
    void aActsOnTheReleaseEvenAfterTheModifiersAreGone();
    void annotationTogglesOnceUntilIIsReleased();
    void annotationTogglesAgainAfterTheArmingChord();
    void annotationTogglesAgainAfterASettingArmedIt();
    void plainPressOfIDoesNotArm();
    void key3ActionKeepsItsMarkWhileNotArmed();
    void codesFrom60OnNeverChangeTheModifiers();
    void anyNonZeroStateIsDown();
};

void PenChordsTest::everyChordHasItsMeaning_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("slideShow");
    QTest::addColumn<bool>("annotation");
    QTest::addColumn<bool>("blackboard");
    QTest::addColumn<Commands>("onPress");
    QTest::addColumn<Commands>("onRelease");

    using C = PenCommand;
    QTest::newRow("A") << int(kVK_ANSI_A) << false << false << false << Commands{}
                       << Commands{C::RunKey2Action};
    QTest::newRow("S") << int(kVK_ANSI_S) << false << false << false << Commands{C::CloseHeldTools}
                       << Commands{};
    QTest::newRow("D") << int(kVK_ANSI_D) << false << false << false << Commands{C::RunKey4Action}
                       << Commands{};
    QTest::newRow("G") << int(kVK_ANSI_G) << false << false << false << Commands{C::OpenHeldTool}
                       << Commands{};
    QTest::newRow("G in a slide show") << int(kVK_ANSI_G) << true << false << false
                                       << Commands{C::CancelRefocus, C::OpenHeldTool} << Commands{};
    QTest::newRow("Y") << int(kVK_ANSI_Y) << false << false << false << Commands{} << Commands{};
    QTest::newRow("Y, annotation") << int(kVK_ANSI_Y) << false << true << false
                                   << Commands{C::StepAnnotationColour} << Commands{};
    QTest::newRow("Y, blackboard") << int(kVK_ANSI_Y) << false << false << true
                                   << Commands{C::StepBlackboardColour} << Commands{};
    QTest::newRow("Y, both") << int(kVK_ANSI_Y) << false << true << true
                             << Commands{C::StepAnnotationColour, C::StepBlackboardColour} << Commands{};
    QTest::newRow("I") << int(kVK_ANSI_I) << false << false << false << Commands{C::ToggleAnnotation}
                       << Commands{};
    QTest::newRow("J") << int(kVK_ANSI_J) << false << false << false << Commands{}
                       << Commands{C::RunKey3Action};
    QTest::newRow("M") << int(kVK_ANSI_M) << false << false << false << Commands{} << Commands{};
    QTest::newRow("another letter") << 3 << true << true << true << Commands{} << Commands{};
}

void PenChordsTest::everyChordHasItsMeaning() {
    QFETCH(int, key);
    QFETCH(bool, slideShow);
    QFETCH(bool, annotation);
    QFETCH(bool, blackboard);
    const Surroundings around{slideShow, annotation, blackboard};
    PenChords chords;
    hold(chords, true, true, true);
    QTEST(chords.receive(key, 1, around), "onPress");
    QTEST(chords.receive(key, 0, around), "onRelease");
}

void PenChordsTest::everyKeyInEveryStateWithAllModifiersDoesWhatTheTableSays() {
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

void PenChordsTest::releaseOfAWithoutChordedPressDoesNothing() {
    PenChords chords;
    QVERIFY(chords.receive(kVK_ANSI_A, 0, {}).empty());
    hold(chords, true, true, true);
    QVERIFY(chords.receive(kVK_ANSI_A, 0, {}).empty());
}

void PenChordsTest::plainAOnTheKeyboardDoesNothing() {
    PenChords chords;
    QVERIFY(chords.receive(kVK_ANSI_A, 1, {}).empty());
    QVERIFY(chords.receive(kVK_ANSI_A, 0, {}).empty());
}

void PenChordsTest::aActsOnTheReleaseEvenAfterTheModifiersAreGone() {
    PenChords chords;
    hold(chords, true, true, true);
    QVERIFY(chords.receive(kVK_ANSI_A, 1, {}).empty());
    hold(chords, false, false, false);
    QCOMPARE(chords.receive(kVK_ANSI_A, 0, {}), Commands{PenCommand::RunKey2Action});
    QVERIFY(chords.receive(kVK_ANSI_A, 0, {}).empty());
}

void PenChordsTest::annotationTogglesOnceUntilIIsReleased() {
    PenChords chords;
    hold(chords, true, true, true);
    QCOMPARE(chords.receive(kVK_ANSI_I, 1, {}), Commands{PenCommand::ToggleAnnotation});
    QVERIFY(chords.receive(kVK_ANSI_I, 1, {}).empty());
    QVERIFY(chords.receive(kVK_ANSI_I, 0, {}).empty());
    QCOMPARE(chords.receive(kVK_ANSI_I, 1, {}), Commands{PenCommand::ToggleAnnotation});
}

void PenChordsTest::annotationTogglesAgainAfterTheArmingChord() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(kVK_ANSI_I, 1, {});
    QVERIFY(chords.receive(kVK_ANSI_M, 1, {}).empty());
    QCOMPARE(chords.receive(kVK_ANSI_I, 1, {}), Commands{PenCommand::ToggleAnnotation});
}

void PenChordsTest::annotationTogglesAgainAfterASettingArmedIt() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(kVK_ANSI_I, 1, {});
    chords.arm();
    QCOMPARE(chords.receive(kVK_ANSI_I, 1, {}), Commands{PenCommand::ToggleAnnotation});
}

void PenChordsTest::plainPressOfIDoesNotArm() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(kVK_ANSI_I, 1, {});
    hold(chords, false, false, false);
    chords.receive(kVK_ANSI_I, 1, {});
    hold(chords, true, true, true);
    QVERIFY(chords.receive(kVK_ANSI_I, 1, {}).empty());
}

void PenChordsTest::key3ActionKeepsItsMarkWhileNotArmed() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(kVK_ANSI_I, 1, {}); // uses the permission up
    chords.receive(kVK_ANSI_J, 1, {});
    QVERIFY(chords.receive(kVK_ANSI_J, 0, {}).empty());
    chords.receive(kVK_ANSI_M, 1, {});
    QCOMPARE(chords.receive(kVK_ANSI_J, 0, {}), Commands{PenCommand::RunKey3Action});
    QVERIFY(chords.receive(kVK_ANSI_J, 0, {}).empty());
}

void PenChordsTest::codesFrom60OnNeverChangeTheModifiers() {
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

void PenChordsTest::anyNonZeroStateIsDown() {
    PenChords chords;
    chords.receive(control, 2, {});
    chords.receive(shift, -1, {});
    chords.receive(option, 7, {});
    QCOMPARE(chords.receive(1, 3, {}), Commands{PenCommand::CloseHeldTools});
}

QTEST_APPLESS_MAIN(PenChordsTest)
#include "PenChordsTest.moc"
