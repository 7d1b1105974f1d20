// SPDX-License-Identifier: MIT
#pragma once

/// What makes the X server of the test hard to live with, done over connections of their own.
namespace e2e {

/// The server's process, on the same machine.
int serverPid();

/// Keeps the server for one client alone: nobody else is answered, while `key` is pressed and released and
/// the time runs.
void grabServerWhileTyping(int keyCode, int milliseconds);

/// Moves the pointer to and fro as fast as asked for, or as the server can; how many moves it took.
int floodWithMoves(int perSecond, int milliseconds);

} // namespace e2e
