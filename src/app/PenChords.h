// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace vexa {

/// What a chord of the pen means.
enum class PenCommand {
    CloseHeldTools,
    OpenHeldTool,
    CancelRefocus,
    StepAnnotationColour,
    StepBlackboardColour,
    ToggleAnnotation,
    RunKey2Action,
    RunKey3Action,
    RunKey4Action,
};

/// Recognises the chords of the pen in the session's stream of keys and says what they mean. It knows no
/// windows, timers or settings, and remembers of the keys only what the next chord depends on.
class PenChords {
public:
    /// Nothing is held, and the first annotation toggle or key 3 action is permitted.
    PenChords();

    /// What an event's meaning depends on besides the keys.
    struct Surroundings {
        bool slideShow = false;
        bool annotationOpen = false;
        bool blackboardOpen = false;
    };

    /// Takes the next key event: `key` is a virtual key code, `state` is 0 for up or released and anything
    /// else for down or held. Returns the commands to carry out, in this order.
    std::vector<PenCommand> receive(int key, int state, const Surroundings &surroundings);

    /// Permits the next annotation toggle or key 3 action. Each of them uses the permission up.
    void arm();

private:
    unsigned m_memory; ///< the facts that outlast an event
};

} // namespace vexa
