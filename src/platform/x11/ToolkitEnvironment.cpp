// SPDX-License-Identifier: MIT
#include "platform/x11/ToolkitEnvironment.h"

#include <map>
#include <string>

namespace vexa::platform {

namespace {

/// By name; a null value was not set at all.
std::map<std::string, QByteArray> &userValues() {
    static std::map<std::string, QByteArray> values;
    return values;
}

} // namespace

void tellToolkit(const char *name, const QByteArray &value) {
    userValues().emplace(name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray());
    qputenv(name, value);
}

void tellToolkitUnlessUserDoes(const char *name, const QByteArray &value) {
    if (!qEnvironmentVariableIsSet(name))
        tellToolkit(name, value);
}

void restoreUserEnvironment() {
    for (const auto &[name, value] : userValues())
        if (value.isNull())
            qunsetenv(name.c_str());
        else
            qputenv(name.c_str(), value);
    userValues().clear();
}

} // namespace vexa::platform
