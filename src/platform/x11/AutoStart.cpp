// SPDX-License-Identifier: MIT
#include "platform/AutoStart.h"

#include <QCoreApplication>

namespace vexa::platform {

namespace {

/// Between single quotes the shell leaves everything alone but the single quote itself.
QString quoted(QString word) {
    return '\'' + word.replace('\'', QLatin1String(R"('\'')")) + '\'';
}

} // namespace

QString autoStartCommand(bool enable) {
    const QString script =
        enable ? QStringLiteral("/setAutoStartOpen.sh") : QStringLiteral("/setAutoStartClose.sh");
    return quoted(QCoreApplication::applicationDirPath() + script);
}

std::chrono::milliseconds autoStartLimit() {
    return std::chrono::seconds(5);
}

} // namespace vexa::platform
