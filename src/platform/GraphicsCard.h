// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Whether a graphics card draws for OpenGL. Where none does, OpenGL would cost as much memory and start-up
/// time as another program, for what the toolkit can draw by itself. Does not load OpenGL. Any thread.
bool graphicsCardDraws();

} // namespace vexa::platform
