// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

/// The mouse of the X session, as a user's hand moves it: what is under the pointer gets the events.
/// Positions are device pixels of the whole desktop. Each function returns when the server has taken it.
namespace vexa::test {

void moveMouse(const QPoint &position);
void pressMouse();
void releaseMouse();
void clickAt(const QPoint &position);

} // namespace vexa::test
