// SPDX-License-Identifier: MIT
#include "support/ForeignWindow.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace vexa::test {
namespace {

void setAtom(Display *display, Window window, const char *property, const char *value) {
    const Atom atom = XInternAtom(display, value, False);
    XChangeProperty(display, window, XInternAtom(display, property, False), XA_ATOM, 32, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(&atom), 1);
}

} // namespace

struct ForeignWindow::Private {
    Display *display = XOpenDisplay(nullptr);
    Window window = 0;
    int presses = 0;
};

ForeignWindow::ForeignWindow(Kind kind, const QRect &geometry, const QColor &colour)
    : d(std::make_unique<Private>()) {
    XSetWindowAttributes attributes{};
    attributes.background_pixel = colour.rgb() & RGB_MASK;
    attributes.override_redirect = kind == Kind::Unmanaged ? True : False;
    attributes.event_mask = ButtonPressMask | ExposureMask;
    d->window =
        XCreateWindow(d->display, DefaultRootWindow(d->display), geometry.x(), geometry.y(),
                      unsigned(geometry.width()), unsigned(geometry.height()), 0, CopyFromParent, InputOutput,
                      nullptr, CWBackPixel | CWOverrideRedirect | CWEventMask, &attributes);
    if (kind == Kind::FullScreen)
        setAtom(d->display, d->window, "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN");
    if (kind == Kind::Panel)
        setAtom(d->display, d->window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK");
    XSizeHints hints{};
    hints.flags = USPosition | USSize;
    XSetWMNormalHints(d->display, d->window, &hints);
    XMapRaised(d->display, d->window);
    XSync(d->display, False);
}

ForeignWindow::~ForeignWindow() {
    XDestroyWindow(d->display, d->window);
    XCloseDisplay(d->display);
}

void ForeignWindow::focus() {
    XSetInputFocus(d->display, d->window, RevertToPointerRoot, CurrentTime);
    XSync(d->display, False);
}

bool ForeignWindow::isViewable() const {
    XWindowAttributes attributes;
    return XGetWindowAttributes(d->display, d->window, &attributes) && attributes.map_state == IsViewable;
}

bool ForeignWindow::hasFocus() const {
    Window focused = 0;
    int revert = 0;
    XGetInputFocus(d->display, &focused, &revert);
    return focused == d->window;
}

bool ForeignWindow::mayGrabMouse() const {
    const int status = XGrabPointer(d->display, d->window, False, NoEventMask, GrabModeAsync, GrabModeAsync,
                                    None, None, CurrentTime);
    XUngrabPointer(d->display, CurrentTime);
    XSync(d->display, False);
    return status == GrabSuccess;
}

int ForeignWindow::presses() {
    XSync(d->display, False);
    while (XPending(d->display) > 0) {
        XEvent event;
        XNextEvent(d->display, &event);
        if (event.type == ButtonPress)
            ++d->presses;
    }
    return d->presses;
}

} // namespace vexa::test
