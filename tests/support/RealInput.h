// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

/// The mouse and the keyboard of the X session, as a user and the pen work them: what is under the
/// pointer or has the focus gets the events. Positions are device pixels of the whole desktop. Each function
/// returns when the server has taken it.
namespace vexa::test {

void moveMouse(const QPoint &position);
QPoint mousePosition();
void pressMouse();
void releaseMouse();
/// A click of the left button where the pointer is.
void click();
void clickAt(const QPoint &position);

/// One key, an X key code, pressed and released without modifiers.
void typeKey(int keyCode);

/// The pen's letters by what is on the key cap, as X key codes.
enum class PenKey { A = 38, S = 39, D = 40, G = 42, Y = 29, I = 31, J = 44, M = 58 };

/// Types the letter with control, shift and option held: modifiers down, letter down and up, modifiers up.
void typeChord(PenKey key);

} // namespace vexa::test
