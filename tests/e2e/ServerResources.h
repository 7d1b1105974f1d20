// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

namespace e2e {

/// How many of each kind the X server keeps for a process ("WINDOW", "PIXMAP", ...), over all of its
/// connections; and "bytes of pixmaps".
using ServerResources = QMap<QByteArray, qint64>;
ServerResources serverResourcesOf(qint64 pid);

/// What there is more of than before, in words.
QStringList grown(const ServerResources &before, const ServerResources &now);

} // namespace e2e
