// SPDX-License-Identifier: MIT
#pragma once

#include "app/PictureWriter.h"

#include <QDateTime>
#include <QString>

#include <functional>

namespace vexa {

/// The user's screenshots: a folder for each day on the desktop, and in it a file for each shot, named after
/// date and time. GUI thread only.
class Screenshots {
public:
    using Clock = std::function<QDateTime()>;

    explicit Screenshots(Clock clock = &QDateTime::currentDateTime);

    /// Takes the picture of the primary screen now; the file is written in the background. If the folder or
    /// the file cannot be made, or the user has no home folder, there is no file and no error. The destructor
    /// waits for the files still to be written.
    void take();

    /// Waits until every shot is written.
    void flush() { m_writer.flush(); }

    /// Makes the directory and all its missing parents; returns its path, also when it could not be made.
    static QString makeFolder(const QString &path);

private:
    Clock m_clock;
    PictureWriter m_writer;
};

} // namespace vexa
