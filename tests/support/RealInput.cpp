// SPDX-License-Identifier: MIT
#include "support/RealInput.h"

#include <initializer_list>
#include <memory>

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace vexa::test {
namespace {

constexpr int control = 37;
constexpr int shift = 50;
constexpr int option = 64;

/// A connection of its own: the test's toolkit must not find these events in its queue.
Display *connection() {
    static const std::unique_ptr<Display, decltype(&XCloseDisplay)> display(XOpenDisplay(nullptr),
                                                                            &XCloseDisplay);
    return display.get();
}

void key(int keyCode, bool down) {
    XTestFakeKeyEvent(connection(), static_cast<unsigned>(keyCode), down ? True : False, CurrentTime);
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

QPoint mousePosition() {
    Window root = 0;
    Window child = 0;
    int x = 0;
    int y = 0;
    int innerX = 0;
    int innerY = 0;
    unsigned state = 0;
    XQueryPointer(connection(), DefaultRootWindow(connection()), &root, &child, &x, &y, &innerX, &innerY,
                  &state);
    return {x, y};
}

void pressMouse() {
    button(true);
}

void releaseMouse() {
    button(false);
}

void click() {
    pressMouse();
    releaseMouse();
}

void clickAt(const QPoint &position) {
    moveMouse(position);
    click();
}

void typeKey(int keyCode) {
    key(keyCode, true);
    key(keyCode, false);
    XSync(connection(), False);
}

void typeChord(PenKey letter) {
    for (const int modifier : {control, shift, option})
        key(modifier, true);
    key(static_cast<int>(letter), true);
    key(static_cast<int>(letter), false);
    for (const int modifier : {option, shift, control})
        key(modifier, false);
    XSync(connection(), False);
}

} // namespace vexa::test
