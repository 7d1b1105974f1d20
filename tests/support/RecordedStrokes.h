// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

#include <vector>

namespace vexa::test {

/// The mouse samples of one stroke, the same at every run. Kinds: straight, curved, slow, fast (these
/// do not cross themselves); shaky, tremor, zigzag, spiral, wave, scribble. They stay within a layer of the
/// given size, but for "leaving", which goes over its edges and comes back.
std::vector<QPoint> recordedStroke(const QString &kind, std::size_t samples, const QSize &layer);

} // namespace vexa::test
