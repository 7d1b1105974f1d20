// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// What the toolkit is told through the environment while it starts. Everything that this process starts
/// inherits the environment, so it is ours only until then. Main thread.
namespace vexa::platform {

/// Sets a variable of the environment, and notes what it was before the first time.
void tellToolkit(const char *name, const QByteArray &value);

/// The same, but does nothing when the user has set the variable.
void tellToolkitUnlessUserDoes(const char *name, const QByteArray &value);

/// Gives every variable that was set here the value that it had before, or removes it.
void restoreUserEnvironment();

} // namespace vexa::platform
