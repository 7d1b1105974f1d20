// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/VirtualKeys.h"

#include <cstdint>

/// Which key is which, by its position on the keyboard and whatever the layout: X numbers positions as the
/// kernel does, plus 8.
namespace vexa::x11 {

using XKeyCode = std::uint8_t;

constexpr int noKey = -1;

/// The virtual key code of a position; noKey for a key that no Apple keyboard has.
int virtualKeyOf(XKeyCode position);

/// The X key code of a virtual key; 0, which is no key, when there is none.
XKeyCode positionOf(int virtualKey);

/// True for the keys whose changes are reported as such: command, shift, caps lock, option and control.
constexpr bool isModifier(int virtualKey) {
    return virtualKey >= kVK_RightCommand && virtualKey <= kVK_RightControl;
}

} // namespace vexa::x11
