// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"
#include "app/QuickViews.h"
#include "fuzz/Target.h"
#include "settings/SettingsTable.h"
#include "settings/ZrToolXmlClass.h"

#include <QApplication>
#include <QQuickItem>
#include <QQuickWidget>

#include <cstring>

namespace {

constexpr int autoStart = int(vexa::ViewMessage::AutoStart); // runs a script: left to the tests of that

MainWindow *window = nullptr;
QQuickItem *view = nullptr;

vexa::SettingValues settings() {
    vexa::SettingValues values;
    for (const vexa::Setting &setting : vexa::settingsTable)
        values[vexa::indexOf(setting)] = *setting.value;
    return values;
}

/// One value of every kind that QML knows.
QVariant valueFrom(fuzz::Bytes &bytes) {
    switch (bytes.below(7)) {
    case 0:
        return bytes.number();
    case 1: {
        quint64 bits = quint64(quint32(bytes.number())) << 32U | quint32(bytes.number());
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    case 2:
        return QString::number(bytes.number());
    case 3:
        return bytes.below(2) != 0;
    case 4:
        return QVariantList{bytes.number(), QStringLiteral("words")};
    case 5:
        return QVariantMap{{QStringLiteral("id"), bytes.number()}};
    default:
        return {};
    }
}

int idFrom(fuzz::Bytes &bytes) {
    return bytes.below(4) == 0 ? bytes.number() : bytes.below(20);
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    new QApplication(*argc, *argv); // lives as long as the process, like the window
    QApplication::setQuitOnLastWindowClosed(false);
    window = new MainWindow;
    view = window->findChild<QQuickWidget *>(QStringLiteral("quickWidget"))->rootObject();
    fuzz::require(view != nullptr);
    return 0;
}

/// Any messages between the settings view and its host, in both directions, with any values.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    fuzz::Bytes bytes(data, size);
    while (!bytes.atEnd()) {
        if (bytes.below(2) == 0) {
            window->SetValue(view, bytes.below(2) == 0 ? QVariant(idFrom(bytes)) : valueFrom(bytes),
                             valueFrom(bytes), valueFrom(bytes));
            continue;
        }
        const int id = idFrom(bytes);
        if (id == autoStart)
            continue;
        const int value = bytes.number();
        vexa::SettingValues expected = settings();
        if (const vexa::Setting *setting = vexa::settingOfMessage(vexa::ViewMessage(id)))
            expected[vexa::indexOf(*setting)] = value;
        QMetaObject::invokeMethod(view, "qmlSignal1", Q_ARG(int, id), Q_ARG(int, value),
                                  Q_ARG(int, bytes.number()));
        fuzz::require(settings() == expected);
    }
    QCoreApplication::processEvents();
    return 0;
}
