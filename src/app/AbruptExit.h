// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// Turns exit() into an end on the spot, with 1, as long as it lives. The toolkit calls exit() from the depth
/// of the event loop when the X server goes, and that destroys what the listener thread still works with.
///
/// Make one when the other threads are at work, and everything static that they use exists; one at a time.
/// The ordinary end of main is not an exit() any more by then: objects go in their order. Main thread.
class AbruptExit {
public:
    AbruptExit();
    ~AbruptExit();

    AbruptExit(const AbruptExit &) = delete;
    AbruptExit &operator=(const AbruptExit &) = delete;
};

} // namespace vexa
