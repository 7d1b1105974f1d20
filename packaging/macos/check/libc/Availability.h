// SPDX-License-Identifier: MIT
// Version numbers and availability marks without effect: the check compiles, it does not deploy.
#pragma once

#define __MAC_10_13 101300
#define __MAC_10_14 101400
#define __MAC_10_15 101500
#define __MAC_11_0 110000
#define __MAC_OS_X_VERSION_MIN_REQUIRED __ENVIRONMENT_MAC_OS_X_VERSION_MIN_REQUIRED__
#define __MAC_OS_X_VERSION_MAX_ALLOWED __MAC_11_0
#define __OSX_AVAILABLE_STARTING(mac, phone)
#define __OSX_AVAILABLE(version)
#define __API_AVAILABLE(...)
#define __API_UNAVAILABLE(...)
