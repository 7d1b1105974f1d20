// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>

namespace vexa {

/// A PNG picture of the resources as a brush for the primary screen, whose scale it has. The file holds a
/// pixel for each point and is shown as it is at scale 1; above, the one of the same name with "@2x" is, with
/// two for each, brought to the screen's scale. A brush's picture is painted without smoothing, so only one
/// of that very scale has no steps. GUI thread.
QBrush brushPicture(const QString &file);

} // namespace vexa
