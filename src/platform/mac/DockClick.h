// SPDX-License-Identifier: MIT
#pragma once

#include <objc/objc.h>

/// The application delegate's answer to a click on the dock icon: shows Window1, if there is one, and returns
/// false, so that the system does nothing more. What follows the selector is of no interest. GUI thread.
bool dockClickHandler(id self, SEL selector, ...);
