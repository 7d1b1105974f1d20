// SPDX-License-Identifier: MIT
#pragma once

#include <objc/objc.h>

extern "C" void objc_msgSend(void); // without arguments, so that nobody calls it uncast
