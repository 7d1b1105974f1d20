// SPDX-License-Identifier: MIT
// CMake wants one source file in a library; the rest of this one is generated from the .qrc files.
