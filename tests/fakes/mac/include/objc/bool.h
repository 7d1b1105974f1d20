// SPDX-License-Identifier: MIT
#pragma once

// As on arm64, whatever the processor the tests run on.
typedef bool BOOL;
