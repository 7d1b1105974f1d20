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

/// Writes pictures to files in the background, one after the other, in the order in which they were given. A
/// file is there whole or not at all; one that cannot be written is left out silently. An abrupt end
/// waits for them, too. Made and destroyed on the main thread.
class PictureWriter {
public:
    PictureWriter();

    /// Waits until everything is written.
    ~PictureWriter();

    PictureWriter(const PictureWriter &) = delete;
    PictureWriter &operator=(const PictureWriter &) = delete;

    /// Takes a picture; the format is that of the path's suffix. Returns at once, or when it is written if
    /// the system has no thread to give; any thread. A picture that still waits to be written to the same
    /// path is given up for this one.
    void write(const QString &path, const QImage &picture);

    /// Waits until everything given so far is written.
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
    std::thread m_thread; ///< since the first picture
    std::optional<LastWork> m_lastWork;
};

} // namespace vexa
