// SPDX-License-Identifier: MIT
#include "support/RealMouse.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace vexa::test {
namespace {

Display *connection() {
    static Display *const display = XOpenDisplay(nullptr);
    return display;
}

void button(bool down) {
    XTestFakeButtonEvent(connection(), Button1, down ? True : False, CurrentTime);
    XSync(connection(), False);
}

} // namespace

void moveMouse(const QPoint &position) {
    XTestFakeMotionEvent(connection(), -1, position.x(), position.y(), CurrentTime);
    XSync(connection(), False);
}

void pressMouse() {
    button(true);
}

void releaseMouse() {
    button(false);
}

void clickAt(const QPoint &position) {
    moveMouse(position);
    pressMouse();
    releaseMouse();
}

} // namespace vexa::test
