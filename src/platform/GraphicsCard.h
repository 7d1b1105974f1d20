// SPDX-License-Identifier: MIT
#pragma once

namespace vexa::platform {

/// Whether a graphics card stands behind OpenGL. Where none does, OpenGL is another program's worth of memory
/// and of start-up time for what the toolkit draws by itself. Does not touch OpenGL. Any thread.
bool graphicsCardDraws();

} // namespace vexa::platform
