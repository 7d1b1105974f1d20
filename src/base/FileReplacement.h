// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace vexa {

/// Brings what was written to an open file onto the disk; false when the disk has refused it.
using DiskSync = std::function<bool(int descriptor)>;

/// Waits until the disk has it all, as long as that takes.
bool syncToDisk(int descriptor);

/// Replaces the file's content whole, or leaves the file as it was: another process, and one that ends in
/// the middle, sees the old or the new content. A full disk, a quota or a folder that is gone leave the old
/// one. A new file is made where there is none; permissions of an existing one stay, and a link stays a link.
///
/// A file whose folder takes no new file is overwritten in its place. That is not safe against a process that
/// ends in the middle, but a write that fails is taken back.
///
/// Blocks for the time of the write and of `sync`, which sees the complete file before it takes its place.
/// Any thread, one at a time for each file. False when the file was left as it was.
bool replaceFile(const QString &path, const QByteArray &bytes, const DiskSync &sync = syncToDisk);

} // namespace vexa
