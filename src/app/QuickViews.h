// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QQuickWidget;

namespace vexa {

/// Lets Qt Quick draw in software where no graphics card does, and also where OpenGL cannot be used, with a
/// line in the log: the toolkit's own choice ends the process there. Called once, after the application
/// object is made and before the first view. GUI thread.
void chooseRenderer(bool graphicsCard);

/// Shows a compiled-in document in the widget, without the cache that the toolkit keeps on the disk of the
/// documents it has translated: a damaged file in it would end every start. A document that cannot be loaded
/// leaves the widget empty. GUI thread.
void loadView(QQuickWidget &widget, const QString &address);

} // namespace vexa
