// SPDX-License-Identifier: MIT
#include "app/PenChords.h"

#include <QtTest>

using vexa::PenChords;
using vexa::PenCommand;
using Commands = std::vector<PenCommand>;
using Surroundings = PenChords::Surroundings;

namespace {

constexpr int control = 59;
constexpr int shift = 56;
constexpr int option = 58;

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
        chords.receive(0, 1, {});
    if (state.jPressed)
        chords.receive(38, 1, {});
    if (!state.armed)
        chords.receive(34, 1, {});
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
        1, 1);
    state.shift = answers(
        close,
        [](PenChords &copy) {
            copy.receive(control, 1, {});
            copy.receive(option, 1, {});
        },
        1, 1);
    state.option = answers(
        close,
        [](PenChords &copy) {
            copy.receive(control, 1, {});
            copy.receive(shift, 1, {});
        },
        1, 1);
    state.armed = answers(
        {PenCommand::ToggleAnnotation}, [](PenChords &copy) { hold(copy, true, true, true); }, 34, 1);
    state.aPressed = answers(
        {PenCommand::RunKey2Action}, [](PenChords &) {}, 0, 0);
    state.jPressed = answers(
        {PenCommand::RunKey3Action}, [](PenChords &copy) { copy.arm(); }, 38, 0);
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
    if (key == 0) {
        if (chord) {
            state.aPressed = true;
        } else if (state.aPressed) {
            state.aPressed = false;
            commands = {PenCommand::RunKey2Action};
        }
    }
    if (key == 1 && chord)
        commands = {PenCommand::CloseHeldTools};
    if (key == 2 && chord)
        commands = {PenCommand::RunKey4Action};
    if (key == 5 && chord) {
        commands = {PenCommand::OpenHeldTool};
        if (around.slideShow)
            commands = {PenCommand::CancelRefocus, PenCommand::OpenHeldTool};
    }
    if (key == 16 && chord) {
        if (around.annotationOpen)
            commands.push_back(PenCommand::StepAnnotationColour);
        if (around.blackboardOpen)
            commands.push_back(PenCommand::StepBlackboardColour);
    }
    if (key == 34) {
        if (chord && state.armed) {
            state.armed = false;
            commands = {PenCommand::ToggleAnnotation};
        } else if (!down) {
            state.armed = true;
        }
    }
    if (key == 38) {
        if (chord) {
            state.jPressed = true;
        } else if (!down && state.jPressed && state.armed) {
            state.armed = false;
            state.jPressed = false;
            commands = {PenCommand::RunKey3Action};
        }
    }
    if (key == 46 && chord)
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
    QTest::newRow("A") << 0 << false << false << false << Commands{} << Commands{C::RunKey2Action};
    QTest::newRow("S") << 1 << false << false << false << Commands{C::CloseHeldTools} << Commands{};
    QTest::newRow("D") << 2 << false << false << false << Commands{C::RunKey4Action} << Commands{};
    QTest::newRow("G") << 5 << false << false << false << Commands{C::OpenHeldTool} << Commands{};
    QTest::newRow("G in a slide show")
        << 5 << true << false << false << Commands{C::CancelRefocus, C::OpenHeldTool} << Commands{};
    QTest::newRow("Y") << 16 << false << false << false << Commands{} << Commands{};
    QTest::newRow("Y, annotation") << 16 << false << true << false << Commands{C::StepAnnotationColour}
                                   << Commands{};
    QTest::newRow("Y, blackboard") << 16 << false << false << true << Commands{C::StepBlackboardColour}
                                   << Commands{};
    QTest::newRow("Y, both") << 16 << false << true << true
                             << Commands{C::StepAnnotationColour, C::StepBlackboardColour} << Commands{};
    QTest::newRow("I") << 34 << false << false << false << Commands{C::ToggleAnnotation} << Commands{};
    QTest::newRow("J") << 38 << false << false << false << Commands{} << Commands{C::RunKey3Action};
    QTest::newRow("M") << 46 << false << false << false << Commands{} << Commands{};
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
    QVERIFY(chords.receive(0, 0, {}).empty());
    hold(chords, true, true, true);
    QVERIFY(chords.receive(0, 0, {}).empty());
}

void PenChordsTest::plainAOnTheKeyboardDoesNothing() {
    PenChords chords;
    QVERIFY(chords.receive(0, 1, {}).empty());
    QVERIFY(chords.receive(0, 0, {}).empty());
}

void PenChordsTest::aActsOnTheReleaseEvenAfterTheModifiersAreGone() {
    PenChords chords;
    hold(chords, true, true, true);
    QVERIFY(chords.receive(0, 1, {}).empty());
    hold(chords, false, false, false);
    QCOMPARE(chords.receive(0, 0, {}), Commands{PenCommand::RunKey2Action});
    QVERIFY(chords.receive(0, 0, {}).empty());
}

void PenChordsTest::annotationTogglesOnceUntilIIsReleased() {
    PenChords chords;
    hold(chords, true, true, true);
    QCOMPARE(chords.receive(34, 1, {}), Commands{PenCommand::ToggleAnnotation});
    QVERIFY(chords.receive(34, 1, {}).empty());
    QVERIFY(chords.receive(34, 0, {}).empty());
    QCOMPARE(chords.receive(34, 1, {}), Commands{PenCommand::ToggleAnnotation});
}

void PenChordsTest::annotationTogglesAgainAfterTheArmingChord() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(34, 1, {});
    QVERIFY(chords.receive(46, 1, {}).empty());
    QCOMPARE(chords.receive(34, 1, {}), Commands{PenCommand::ToggleAnnotation});
}

void PenChordsTest::annotationTogglesAgainAfterASettingArmedIt() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(34, 1, {});
    chords.arm();
    QCOMPARE(chords.receive(34, 1, {}), Commands{PenCommand::ToggleAnnotation});
}

void PenChordsTest::plainPressOfIDoesNotArm() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(34, 1, {});
    hold(chords, false, false, false);
    chords.receive(34, 1, {});
    hold(chords, true, true, true);
    QVERIFY(chords.receive(34, 1, {}).empty());
}

void PenChordsTest::key3ActionKeepsItsMarkWhileNotArmed() {
    PenChords chords;
    hold(chords, true, true, true);
    chords.receive(34, 1, {}); // uses the permission up
    chords.receive(38, 1, {});
    QVERIFY(chords.receive(38, 0, {}).empty());
    chords.receive(46, 1, {});
    QCOMPARE(chords.receive(38, 0, {}), Commands{PenCommand::RunKey3Action});
    QVERIFY(chords.receive(38, 0, {}).empty());
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
        QCOMPARE(chords.receive(1, 1, {}), Commands{PenCommand::CloseHeldTools});
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
