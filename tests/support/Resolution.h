// SPDX-License-Identifier: MIT
#pragma once

class QSize;

/// The resolution of an X server without a monitor that a test has for itself. In pixels.
namespace vexa::test {

/// One more that it offers, from now on.
void addResolution(const QSize &pixels);

/// Returns when the X server has it; the toolkit is told of it later.
void setResolution(const QSize &pixels);

} // namespace vexa::test
