// SPDX-License-Identifier: MIT
// Stands before the program's own header of this name: the sources that include it see Apple's names, as on
// macOS.
#pragma once

#include <ApplicationServices/ApplicationServices.h>
