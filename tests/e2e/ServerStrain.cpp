// SPDX-License-Identifier: MIT
#include "e2e/ServerStrain.h"

#include <QElapsedTimer>
#include <QThread>

#include <memory>
#include <sys/socket.h>

// Xlib last: its macros break the toolkit's headers.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace e2e {
namespace {

using Connection = std::unique_ptr<Display, int (*)(Display *)>;

Connection connection() {
    return {XOpenDisplay(nullptr), XCloseDisplay};
}

} // namespace

int serverPid() {
    const Connection own = connection();
    ucred peer{};
    socklen_t size = sizeof peer;
    getsockopt(ConnectionNumber(own.get()), SOL_SOCKET, SO_PEERCRED, &peer, &size);
    return peer.pid;
}

void grabServerWhileTyping(int keyCode, int milliseconds) {
    constexpr unsigned modifiers[] = {37, 50, 64}; // left control, shift, alt
    const Connection own = connection();
    XTestGrabControl(own.get(), True);
    XGrabServer(own.get());
    for (const unsigned modifier : modifiers)
        XTestFakeKeyEvent(own.get(), modifier, True, CurrentTime);
    XTestFakeKeyEvent(own.get(), static_cast<unsigned>(keyCode), True, CurrentTime);
    XTestFakeKeyEvent(own.get(), static_cast<unsigned>(keyCode), False, CurrentTime);
    for (const unsigned modifier : modifiers)
        XTestFakeKeyEvent(own.get(), modifier, False, CurrentTime);
    XSync(own.get(), False);
    QThread::msleep(static_cast<unsigned long>(milliseconds));
    XUngrabServer(own.get());
    XSync(own.get(), False);
}

int floodWithMoves(int perSecond, int milliseconds) {
    constexpr int batch = 100;
    const Connection own = connection();
    int moves = 0;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        for (int i = 0; i < batch; ++i, ++moves)
            XTestFakeMotionEvent(own.get(), -1, 300 + moves % 400, 300 + moves % 300, CurrentTime);
        XSync(own.get(), False);
        const qint64 ahead = qint64(moves) * 1000 / perSecond - timer.elapsed();
        if (ahead > 0)
            QThread::msleep(static_cast<unsigned long>(ahead));
    }
    return moves;
}

} // namespace e2e
