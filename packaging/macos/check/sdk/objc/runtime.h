// SPDX-License-Identifier: MIT
#pragma once

#include <objc/objc.h>

typedef struct objc_method *Method;

extern "C" {
Class objc_getClass(const char *name);
SEL sel_registerName(const char *name);
Class class_getSuperclass(Class type);
Method class_getInstanceMethod(Class type, SEL selector);
IMP class_replaceMethod(Class type, SEL selector, IMP implementation, const char *encoding);
BOOL class_addMethod(Class type, SEL selector, IMP implementation, const char *encoding);
}
