// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::test {

/// Whether the address sanitizer watches this build. It keeps freed memory for a while, so that measuring a
/// process says nothing about it, and looks for leaks itself.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool addressSanitized = true;
#elif defined(__has_feature)
constexpr bool addressSanitized = __has_feature(address_sanitizer);
#else
constexpr bool addressSanitized = false;
#endif

} // namespace vexa::test
