// SPDX-License-Identifier: MIT
// The part of the Objective-C runtime's types that this program uses, declared after Apple's documentation.
// For checking and testing without Apple's development kit; a real build never sees this file.
#pragma once

#include <objc/bool.h>

typedef struct objc_class *Class;
typedef struct objc_object *id;
typedef struct objc_selector *SEL;
typedef void (*IMP)(void);
