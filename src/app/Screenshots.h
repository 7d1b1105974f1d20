// SPDX-License-Identifier: MIT
#pragma once

#include "app/PictureWriter.h"

#include <QDateTime>
#include <QString>

#include <functional>

namespace vexa {

/// The pictures of the screen that the user keeps: one folder a day on the desktop, one file a shot, named
/// after the moment. GUI thread only.
class Screenshots {
public:
    using Clock = std::function<QDateTime()>;

    explicit Screenshots(Clock clock = &QDateTime::currentDateTime);

    /// Takes the picture of the primary screen now and leaves the writing to the background. A folder or file
    /// that cannot be made leaves no file, nor does a user without a home folder. The destructor waits for
    /// the files still to be written.
    void take();

    /// Waits until all shots taken so far are written.
    void flush() { m_writer.flush(); }

    /// Makes the directory and all its missing parents; returns its path, also when it could not be made.
    static QString makeFolder(const QString &path);

private:
    Clock m_clock;
    PictureWriter m_writer;
};

} // namespace vexa
