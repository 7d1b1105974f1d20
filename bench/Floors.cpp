// SPDX-License-Identifier: MIT
#include "Floors.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include <poll.h>

// Xlib last: its macros break the toolkit's headers.
#include <X11/Xlib.h>
#include <X11/Xlibint.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/record.h>

namespace bench {

namespace {

constexpr unsigned leftShift = 50; // a key that types nothing
constexpr int patience = 5000;     // milliseconds

double milliseconds(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void countRecord(XPointer count, XRecordInterceptData *record) {
    if (record->category == XRecordFromServer)
        ++*reinterpret_cast<int *>(count);
    XRecordFreeData(record);
}

/// Waits for one record more; false when none comes.
bool awaitRecord(Display *records, const int &count) {
    const int before = count;
    pollfd readable{ConnectionNumber(records), POLLIN, 0};
    while (count == before) {
        XRecordProcessReplies(records);
        if (count == before && poll(&readable, 1, patience) <= 0)
            return false;
    }
    return true;
}

Samples series(const std::function<double()> &measure) {
    Samples samples;
    while (!samples.areEnough() && samples.take(measure)) {
    }
    return samples;
}

} // namespace

Samples captures() {
    return series([] {
        QElapsedTimer timer;
        timer.start();
        QGuiApplication::primaryScreen()->grabWindow(0);
        return milliseconds(timer);
    });
}

Samples roundTrips() {
    Display *keys = XOpenDisplay(nullptr);
    Display *records = XOpenDisplay(nullptr);
    XRecordRange *range = XRecordAllocRange();
    range->device_events.first = KeyPress;
    range->device_events.last = KeyRelease;
    XRecordClientSpec everyone = XRecordAllClients;
    const XRecordContext context = XRecordCreateContext(keys, 0, &everyone, 1, &range, 1);
    XSync(keys, False);
    int count = 0;
    XRecordEnableContextAsync(records, context, countRecord, reinterpret_cast<XPointer>(&count));

    bool down = false;
    Samples times = series([keys, records, &count, &down] {
        QElapsedTimer timer;
        timer.start();
        down = !down;
        XTestFakeKeyEvent(keys, leftShift, down ? True : False, CurrentTime);
        XFlush(keys);
        return awaitRecord(records, count) ? milliseconds(timer) : -1;
    });
    if (down)
        XTestFakeKeyEvent(keys, leftShift, False, CurrentTime);
    XRecordDisableContext(keys, context);
    XFree(range);
    XCloseDisplay(keys);
    XCloseDisplay(records);
    return times;
}

Samples repaints() {
    QWidget window(nullptr, Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    QPixmap picture(QGuiApplication::primaryScreen()->size());
    picture.fill(Qt::darkCyan);
    QPalette palette;
    palette.setBrush(QPalette::Window, picture);
    window.setPalette(palette);
    window.setGeometry(QGuiApplication::primaryScreen()->geometry());
    window.show();
    const auto repaint = [&window] {
        QCoreApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        window.repaint();
        QGuiApplication::primaryScreen()->grabWindow(0, 0, 0, 1, 1); // answered when the server has painted
        return milliseconds(timer);
    };
    for (int first = 0; first < 3; ++first)
        repaint();
    return series(repaint);
}

} // namespace bench
