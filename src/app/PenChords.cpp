// SPDX-License-Identifier: MIT
#include "app/PenChords.h"

#include "platform/quartz/VirtualKeys.h"

#include <optional>

namespace vexa {

namespace {

/// The facts that an event's meaning can depend on, one bit each.
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

/// One line of the dispatch: it applies to an event of its key when all facts of `all` hold and, if `notAll`
/// names any, not all of those do. Then it clears and sets facts and gives its command.
struct Rule {
    int key; ///< virtual key code
    unsigned all;
    unsigned notAll;
    unsigned clear;
    unsigned set;
    std::optional<PenCommand> command;
};

constexpr auto none = std::nullopt;

const Rule rules[] = {
    {kVK_Control, Down, Nothing, Nothing, Control, none},
    {kVK_Control, Nothing, Down, Control, Nothing, none},
    {kVK_Shift, Down, Nothing, Nothing, Shift, none},
    {kVK_Shift, Nothing, Down, Shift, Nothing, none},
    {kVK_Option, Down, Nothing, Nothing, Option, none},
    {kVK_Option, Nothing, Down, Option, Nothing, none},
    {kVK_ANSI_A, Chord, Nothing, Nothing, Key2Pressed, none},
    {kVK_ANSI_A, Key2Pressed, Chord, Key2Pressed, Nothing, PenCommand::RunKey2Action},
    {kVK_ANSI_S, Chord, Nothing, Nothing, Nothing, PenCommand::CloseHeldTools},
    {kVK_ANSI_D, Chord, Nothing, Nothing, Nothing, PenCommand::RunKey4Action},
    {kVK_ANSI_G, Chord | SlideShow, Nothing, Nothing, Nothing, PenCommand::CancelRefocus},
    {kVK_ANSI_G, Chord, Nothing, Nothing, Nothing, PenCommand::OpenHeldTool},
    {kVK_ANSI_Y, Chord | Annotation, Nothing, Nothing, Nothing, PenCommand::StepAnnotationColour},
    {kVK_ANSI_Y, Chord | Blackboard, Nothing, Nothing, Nothing, PenCommand::StepBlackboardColour},
    {kVK_ANSI_I, Chord | Armed, Nothing, Armed, Nothing, PenCommand::ToggleAnnotation},
    {kVK_ANSI_I, Nothing, Down, Nothing, Armed, none},
    {kVK_ANSI_J, Chord, Nothing, Nothing, Key3Pressed, none},
    {kVK_ANSI_J, Key3Pressed | Armed, Down, Key3Pressed | Armed, Nothing, PenCommand::RunKey3Action},
    {kVK_ANSI_M, Chord, Nothing, Nothing, Armed, none},
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
