// SPDX-License-Identifier: MIT
#pragma once

/// X key codes: of what the pen has, of what is posted, and a few of their neighbours.
namespace vexa::test {

constexpr int control = 37, shift = 50, option = 64, rightControl = 105, capsLock = 66;
constexpr int letterA = 38, letterC = 54, letterG = 42, letterS = 39;
constexpr int f5 = 71, escape = 9, space = 65, pageUp = 112, returnKey = 36;
constexpr int penModifiers[] = {control, shift, option};

} // namespace vexa::test
