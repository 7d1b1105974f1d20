// SPDX-License-Identifier: MIT
#pragma once

// As on the processor that the tests pretend to, whatever they run on.
#ifdef VEXA_FAKE_INTEL
typedef signed char BOOL;
#else
typedef bool BOOL;
#endif
