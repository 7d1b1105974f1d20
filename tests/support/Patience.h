// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::test {

/// How long to wait for what must come, in milliseconds: long, as the machine may be busy. Only a test that
/// fails waits to the end.
constexpr int patience = 60000;

} // namespace vexa::test
