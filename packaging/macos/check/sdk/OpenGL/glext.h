// SPDX-License-Identifier: MIT
#pragma once

#include <OpenGL/gl.h>
