// SPDX-License-Identifier: MIT
// The target of the headers that all tests share precompiled needs a source; the headers are all there is to
// it.
