// SPDX-License-Identifier: MIT
#pragma once

#include "app/MainWindow.h"
#include "support/ViewNumbers.h"

#include <QJSValue>
#include <QQuickItem>
#include <QQuickWidget>

/// One call of the view's function "setvalue".
using Call = QVariantList;
inline Call call(ViewMessage message, const QVariant &value, const QVariant &note = 0) {
    return {int(message), value, note};
}

/// The main window over a view that only remembers what it is told (views/MainWindow.qml).
struct Panel {
    MainWindow window;
    QQuickItem *root = window.findChild<QQuickWidget *>(QStringLiteral("quickWidget"))->rootObject();

    QList<Call> calls() const {
        QList<Call> all;
        for (const QVariant &call : root->property("calls").value<QJSValue>().toVariant().toList())
            all += call.toList();
        return all;
    }
    void forgetCalls() { QMetaObject::invokeMethod(root, "forget"); }
    void send(ViewMessage message, vexa::test::Number value, vexa::test::Number note = 0) {
        QMetaObject::invokeMethod(root, "qmlSignal1", Q_ARG(int, int(message)), Q_ARG(int, value),
                                  Q_ARG(int, note));
    }
    template<typename Widget> Widget *part(const char *name) {
        return window.findChild<Widget *>(QLatin1String(name));
    }
};
