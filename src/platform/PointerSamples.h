// SPDX-License-Identifier: MIT
#pragma once

/// How the desktop delivers a mouse that moves faster than its moves are handled. GUI thread only.
namespace vexa::platform {

/// Whether the desktop may drop all but the newest of the moves that wait, as it does by default. Returns
/// whether it might before. Does nothing where the desktop always delivers them all.
bool setPointerSamplesMerged(bool merged);

} // namespace vexa::platform
