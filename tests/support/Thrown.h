// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <system_error>

namespace vexa::test {

/// What the exception says that these steps throw; null when they throw none of that type.
template<typename Exception, typename Steps> QByteArray textThrownBy(Steps steps) {
    try {
        steps();
    } catch (const Exception &error) {
        return error.what();
    }
    return {};
}

/// The error code of the exception that these steps throw; none when they throw none of that type.
template<typename Exception, typename Steps> std::error_code codeThrownBy(Steps steps) {
    try {
        steps();
    } catch (const Exception &error) {
        return error.code();
    }
    return {};
}

} // namespace vexa::test
