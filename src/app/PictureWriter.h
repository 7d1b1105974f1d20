// SPDX-License-Identifier: MIT
#pragma once

#include "app/AbruptExit.h"

#include <QImage>
#include <QString>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace vexa {

/// Writes pictures to files in the background, one at a time, in the order in which they were given. A file
/// appears whole or not at all; one that cannot be written is skipped silently. An abrupt exit waits for the
/// files, too. Made and destroyed on the main thread.
class PictureWriter {
public:
    PictureWriter();

    /// Waits until everything is written.
    ~PictureWriter();

    PictureWriter(const PictureWriter &) = delete;
    PictureWriter &operator=(const PictureWriter &) = delete;

    /// Takes a picture; the path's suffix names the format. It replaces a picture that still waits to be
    /// written to the same path. Returns at once; only when no thread can be started does it write the
    /// picture itself. Any thread.
    void write(const QString &path, const QImage &picture);

    /// Waits until nothing is left to write. Any thread.
    void flush();

private:
    struct Job {
        QString path;
        QImage picture;
    };

    void run();

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_changed;
    std::deque<Job> m_waiting;
    bool m_writing = false;
    bool m_ending = false;
    std::thread m_thread; ///< started by the first picture
    std::optional<LastWork> m_lastWork;
};

} // namespace vexa
