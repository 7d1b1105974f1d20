// SPDX-License-Identifier: MIT
#pragma once

#include "app/MainWindow.h"

#include <QJSValue>
#include <QQuickItem>
#include <QQuickWidget>

/// One call of the view's function "setvalue".
using Call = QVariantList;

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
    void send(int id, int var1, int var2 = 0) {
        QMetaObject::invokeMethod(root, "qmlSignal1", Q_ARG(int, id), Q_ARG(int, var1), Q_ARG(int, var2));
    }
    template<typename Widget> Widget *part(const char *name) {
        return window.findChild<Widget *>(QLatin1String(name));
    }
};
