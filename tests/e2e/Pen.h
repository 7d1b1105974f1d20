// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

/// The presentation pen, and the hand that moves the pointer: real key codes and motion, posted into the X
/// server.
namespace e2e {

/// What the pen's letters are called on the key cap, as X key codes.
enum class PenKey { A = 38, S = 39, D = 40, G = 42, Y = 29, I = 31, J = 44, M = 58 };

/// Types the letter with control, shift and option held: modifiers down, letter down and up, modifiers up.
void typeChord(PenKey key);

/// One key, pressed and released without modifiers.
void typeKey(int keyCode);

/// Device pixels of the root window.
void movePointer(const QPoint &position);
QPoint pointerPosition();

/// A click of the left button where the pointer is.
void click();

} // namespace e2e
