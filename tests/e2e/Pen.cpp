// SPDX-License-Identifier: MIT
#include "e2e/Pen.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <initializer_list>
#include <memory>

namespace e2e {

namespace {

constexpr unsigned control = 37;
constexpr unsigned shift = 50;
constexpr unsigned option = 64;

/// A connection of its own: the test's toolkit must not find these events in its queue.
Display *server() {
    static const std::unique_ptr<Display, decltype(&XCloseDisplay)> display(XOpenDisplay(nullptr),
                                                                            &XCloseDisplay);
    return display.get();
}

void post(unsigned keyCode, bool down) {
    XTestFakeKeyEvent(server(), keyCode, down, CurrentTime);
}

} // namespace

void typeChord(PenKey key) {
    const auto letter = static_cast<unsigned>(key);
    for (const unsigned modifier : {control, shift, option})
        post(modifier, true);
    post(letter, true);
    post(letter, false);
    for (const unsigned modifier : {option, shift, control})
        post(modifier, false);
    XSync(server(), False);
}

void typeKey(int keyCode) {
    post(static_cast<unsigned>(keyCode), true);
    post(static_cast<unsigned>(keyCode), false);
    XSync(server(), False);
}

void movePointer(const QPoint &position) {
    XTestFakeMotionEvent(server(), -1, position.x(), position.y(), CurrentTime);
    XSync(server(), False);
}

QPoint pointerPosition() {
    ::Window root = 0;
    ::Window child = 0;
    int x = 0;
    int y = 0;
    int innerX = 0;
    int innerY = 0;
    unsigned state = 0;
    XQueryPointer(server(), DefaultRootWindow(server()), &root, &child, &x, &y, &innerX, &innerY, &state);
    return {x, y};
}

void click() {
    XTestFakeButtonEvent(server(), 1, True, CurrentTime);
    XTestFakeButtonEvent(server(), 1, False, CurrentTime);
    XSync(server(), False);
}

} // namespace e2e
