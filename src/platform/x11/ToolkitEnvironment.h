// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What the toolkit is told through the environment while it starts. Everything that this process starts
/// inherits the environment, so it is ours only until then. Main thread.
namespace vexa::platform {

void tellToolkit(const char *name, const QByteArray &value);

/// Does nothing when the user has set the variable.
void tellToolkitUnlessUserDoes(const char *name, const QByteArray &value);

/// Every variable is again what it was before the toolkit was told.
void restoreUserEnvironment();

} // namespace vexa::platform
