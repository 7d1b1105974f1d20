// SPDX-License-Identifier: MIT
// The virtual key codes that this program uses, declared after Apple's documentation. For checking without
// Apple's development kit; a real build never sees this file.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

enum {
    kVK_ANSI_A = 0x00,
    kVK_ANSI_S = 0x01,
    kVK_ANSI_D = 0x02,
    kVK_ANSI_G = 0x05,
    kVK_ANSI_Y = 0x10,
    kVK_ANSI_I = 0x22,
    kVK_ANSI_J = 0x26,
    kVK_ANSI_M = 0x2E,
    kVK_Return = 0x24,
    kVK_Space = 0x31,
    kVK_Escape = 0x35,
    kVK_Shift = 0x38,
    kVK_Option = 0x3A,
    kVK_Control = 0x3B,
    kVK_PageUp = 0x74,
};
