// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QMutex>
#include <QString>
#include <QThreadPool>

#include <deque>

namespace vexa {

/// Writes pictures to files in the background, one after the other, in the order in which they were given. A
/// file is there whole or not at all; one that cannot be written is left out without a word.
class PictureWriter {
public:
    PictureWriter();

    /// Waits until everything is written.
    ~PictureWriter();

    PictureWriter(const PictureWriter &) = delete;
    PictureWriter &operator=(const PictureWriter &) = delete;

    /// Takes a picture; the format is that of the path's suffix. Returns at once, from any thread. A picture
    /// that still waits to be written to the same path is given up for this one.
    void write(const QString &path, const QImage &picture);

    /// Waits until everything given so far is written.
    void flush();

private:
    struct Job {
        QString path;
        QImage picture;
    };

    void writeAll();

    QMutex m_mutex; ///< guards the two below
    std::deque<Job> m_waiting;
    bool m_writing = false;
    QThreadPool m_thread;
};

} // namespace vexa
