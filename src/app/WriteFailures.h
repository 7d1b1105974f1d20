// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// Makes a write that cannot be carried out fail, as all callers expect, instead of raising a signal that
/// ends the program: a file beyond the limit of the user's shell (SIGXFSZ), a standard stream without a
/// reader (SIGPIPE). Opens /dev/null for standard streams that are closed, so that no other file gets their
/// numbers and the log with them. Child processes are not affected. First thing in main.
void outliveWriteFailures();

} // namespace vexa
