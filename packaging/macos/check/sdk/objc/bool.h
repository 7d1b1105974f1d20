// SPDX-License-Identifier: MIT
// The truth values of Objective-C, whose type depends on the processor on macOS.
#pragma once

#ifdef __x86_64__
typedef signed char BOOL;
#else
typedef bool BOOL;
#endif
