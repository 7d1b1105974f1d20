// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// Makes an impossible write return an error, which all callers handle, instead of raising a signal that ends
/// the program: SIGXFSZ for a file beyond the size limit of the user's shell, SIGPIPE for a stream without a
/// reader. Opens /dev/null for closed standard streams, so that no file opened later gets the descriptor that
/// the log is written to. Child processes are not affected. Call it first in main.
void outliveWriteFailures();

} // namespace vexa
