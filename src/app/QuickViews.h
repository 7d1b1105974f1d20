// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QQuickWidget;

namespace vexa {

/// Lets Qt Quick draw in software when no graphics card draws, and also when OpenGL cannot be used: Qt Quick
/// would abort the process there. The second case is logged. Call once, after the application object is made
/// and before the first view. GUI thread.
void chooseRenderer(bool graphicsCard);

/// Shows a compiled-in document in the widget, without the disk cache in which Qt Quick keeps compiled
/// documents: a damaged file there would crash every start. A document that cannot be loaded leaves the
/// widget empty. GUI thread.
void loadView(QQuickWidget &widget, const QString &address);

} // namespace vexa
