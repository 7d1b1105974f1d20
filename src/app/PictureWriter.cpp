// SPDX-License-Identifier: MIT
#include "app/PictureWriter.h"

#include "base/FileReplacement.h"
#include "base/ThreadStart.h"

#include <QBuffer>
#include <QByteArray>
#include <QFileInfo>
#include <QImageWriter>

#include <algorithm>
#include <utility>

namespace vexa {

namespace {

constexpr int quality = 50;

/// Empty when the picture cannot be encoded in that format.
QByteArray encoded(const QImage &picture, const QByteArray &format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    return writer.write(picture) ? bytes : QByteArray();
}

void writePicture(const QString &path, const QImage &picture) {
    // Encoded in memory: straight into a file, the encoder would print its write errors on stderr.
    const QByteArray bytes = encoded(picture, QFileInfo(path).suffix().toLatin1());
    if (!bytes.isEmpty())
        replaceFile(path, bytes);
}

} // namespace

PictureWriter::PictureWriter() {
    // The toolkit makes its static list of encoders at the first use. It has to exist before the last work is
    // registered, or exit() would destroy it before that work runs.
    QImageWriter::supportedImageFormats();
    m_lastWork.emplace([this] { flush(); });
}

PictureWriter::~PictureWriter() {
    {
        const std::lock_guard lock(m_mutex);
        m_ending = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void PictureWriter::write(const QString &path, const QImage &picture) {
    const std::lock_guard lock(m_mutex);
    if (!m_thread.joinable() && !tryToStart(m_thread, [this] { run(); })) {
        writePicture(path, picture);
        return;
    }
    const auto same =
        std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Job &job) { return job.path == path; });
    if (same != m_waiting.end())
        m_waiting.erase(same);
    m_waiting.push_back({path, picture});
    m_changed.notify_all();
}

void PictureWriter::flush() {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_waiting.empty() && !m_writing; });
}

void PictureWriter::run() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return !m_waiting.empty() || m_ending; });
        if (m_waiting.empty())
            return;
        const Job job = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_writing = true;
        lock.unlock();
        writePicture(job.path, job.picture);
        lock.lock();
        m_writing = false;
        m_changed.notify_all();
    }
}

} // namespace vexa
