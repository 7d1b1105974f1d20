// SPDX-License-Identifier: MIT
#error only Linux has this header
