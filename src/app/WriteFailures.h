// SPDX-License-Identifier: MIT
#pragma once

namespace vexa {

/// Lets a write that cannot be carried out fail, as everybody here expects, instead of ending the program:
/// into a file beyond the size that the user's shell allows, or to a standard stream that nobody reads any
/// more. And gives a standard stream that is closed a place to go to, before something else is opened under
/// its number and gets the words meant for it. What the program starts is not affected. First thing in main.
void outliveWriteFailures();

} // namespace vexa
