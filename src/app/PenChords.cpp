// SPDX-License-Identifier: MIT
#include "app/PenChords.h"

#include <optional>

namespace vexa {

namespace {

/// Everything an event's meaning can depend on, one bit each.
enum Fact : unsigned {
    Control = 1U << 0U,
    Shift = 1U << 1U,
    Option = 1U << 2U,
    Armed = 1U << 3U,
    Key2Pressed = 1U << 4U,
    Key3Pressed = 1U << 5U,
    // The facts above are remembered from event to event, those below belong to one.
    Down = 1U << 6U,
    SlideShow = 1U << 7U,
    Annotation = 1U << 8U,
    Blackboard = 1U << 9U,

    Nothing = 0,
    Chord = Control | Shift | Option | Down,
};

/// Virtual key codes, which name places on the keyboard, not letters of its layout.
enum Key {
    KeyA = 0,
    KeyS = 1,
    KeyD = 2,
    KeyG = 5,
    KeyY = 16,
    KeyI = 34,
    KeyJ = 38,
    KeyM = 46,
    KeyLeftShift = 56,
    KeyLeftOption = 58,
    KeyLeftControl = 59,
};

/// One line of the dispatch: it applies to an event of its key when all facts of `all` hold and, if `notAll`
/// names any, not all of those do. Then it clears and sets facts and gives its command.
struct Rule {
    Key key;
    unsigned all;
    unsigned notAll;
    unsigned clear;
    unsigned set;
    std::optional<PenCommand> command;
};

constexpr auto none = std::nullopt;

const Rule rules[] = {
    {KeyLeftControl, Down, Nothing, Nothing, Control, none},
    {KeyLeftControl, Nothing, Down, Control, Nothing, none},
    {KeyLeftShift, Down, Nothing, Nothing, Shift, none},
    {KeyLeftShift, Nothing, Down, Shift, Nothing, none},
    {KeyLeftOption, Down, Nothing, Nothing, Option, none},
    {KeyLeftOption, Nothing, Down, Option, Nothing, none},
    {KeyA, Chord, Nothing, Nothing, Key2Pressed, none},
    {KeyA, Key2Pressed, Chord, Key2Pressed, Nothing, PenCommand::RunKey2Action},
    {KeyS, Chord, Nothing, Nothing, Nothing, PenCommand::CloseHeldTools},
    {KeyD, Chord, Nothing, Nothing, Nothing, PenCommand::RunKey4Action},
    {KeyG, Chord | SlideShow, Nothing, Nothing, Nothing, PenCommand::CancelRefocus},
    {KeyG, Chord, Nothing, Nothing, Nothing, PenCommand::OpenHeldTool},
    {KeyY, Chord | Annotation, Nothing, Nothing, Nothing, PenCommand::StepAnnotationColour},
    {KeyY, Chord | Blackboard, Nothing, Nothing, Nothing, PenCommand::StepBlackboardColour},
    {KeyI, Chord | Armed, Nothing, Armed, Nothing, PenCommand::ToggleAnnotation},
    {KeyI, Nothing, Down, Nothing, Armed, none},
    {KeyJ, Chord, Nothing, Nothing, Key3Pressed, none},
    {KeyJ, Key3Pressed | Armed, Down, Key3Pressed | Armed, Nothing, PenCommand::RunKey3Action},
    {KeyM, Chord, Nothing, Nothing, Armed, none},
};

bool applies(const Rule &rule, int key, unsigned facts) {
    const bool excluded = rule.notAll != Nothing && (facts & rule.notAll) == rule.notAll;
    return rule.key == key && (facts & rule.all) == rule.all && !excluded;
}

} // namespace

PenChords::PenChords() : m_memory(Armed) {}

std::vector<PenCommand> PenChords::receive(int key, int state, const Surroundings &surroundings) {
    const unsigned facts = m_memory | (state != 0 ? Down : Nothing) |
                           (surroundings.slideShow ? SlideShow : Nothing) |
                           (surroundings.annotationOpen ? Annotation : Nothing) |
                           (surroundings.blackboardOpen ? Blackboard : Nothing);
    std::vector<PenCommand> commands;
    // Every rule sees the facts as they were when the event came, so that the order of the table decides
    // nothing but the order of the commands.
    for (const Rule &rule : rules) {
        if (!applies(rule, key, facts))
            continue;
        m_memory = (m_memory & ~rule.clear) | rule.set;
        if (rule.command)
            commands.push_back(*rule.command);
    }
    return commands;
}

void PenChords::arm() {
    m_memory |= Armed;
}

} // namespace vexa
