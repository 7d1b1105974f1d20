// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// While one of these exists, every sample of the mouse arrives as an event of its own. By default the
/// toolkit, and on some systems the desktop too, drops all but the newest when they come faster than they are
/// handled, which would turn the curves of a fast mouse into chords. GUI thread only.
class EveryPointerSample {
public:
    EveryPointerSample();
    ~EveryPointerSample();
    EveryPointerSample(const EveryPointerSample &) = delete;
    EveryPointerSample &operator=(const EveryPointerSample &) = delete;
};

} // namespace vexa
