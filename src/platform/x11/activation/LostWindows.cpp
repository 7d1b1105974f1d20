// SPDX-License-Identifier: MIT
#include "platform/x11/activation/LostWindows.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QWidget>

#include <xcb/xcb.h>

namespace vexa::platform {

namespace {

/// To a widget, its native window is its own affair.
struct NativeWindow : QWidget {
    static void drop(QWidget &widget) { (widget.*&NativeWindow::destroy)(true, true); }
};

} // namespace

LostWindows::LostWindows() {
    QCoreApplication::instance()->installNativeEventFilter(this);
}

bool LostWindows::nativeEventFilter(const QByteArray & /*eventType*/, void *message, long * /*result*/) {
    const auto *const event = static_cast<const xcb_generic_event_t *>(message);
    // A notice that some client made up has another bit set, and no window has gone.
    if (event->response_type != XCB_DESTROY_NOTIFY)
        return false;
    const auto *const end = reinterpret_cast<const xcb_destroy_notify_event_t *>(event);
    // A window that the toolkit has destroyed itself is none of a widget any more. That of a tray icon goes
    // with the tray, and the toolkit waits for the next one.
    QWidget *const widget = QWidget::find(end->window);
    if (!widget || !widget->isWindow() || widget->inherits("QSystemTrayIconSys"))
        return false;
    const auto close = [widget] {
        widget->close();
        NativeWindow::drop(*widget);
    };
    QMetaObject::invokeMethod(widget, close, Qt::QueuedConnection);
    return false;
}

} // namespace vexa::platform
