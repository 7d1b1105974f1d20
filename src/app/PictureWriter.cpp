// SPDX-License-Identifier: MIT
#include "app/PictureWriter.h"

#include "base/FileReplacement.h"

#include <QBuffer>
#include <QByteArray>
#include <QFileInfo>
#include <QImageWriter>
#include <QMutexLocker>

#include <algorithm>
#include <utility>

namespace vexa {

namespace {

constexpr int quality = 50;

/// Empty when the picture has no such form.
QByteArray encoded(const QImage &picture, const QByteArray &format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    return writer.write(picture) ? bytes : QByteArray();
}

void writePicture(const QString &path, const QImage &picture) {
    // Not straight into the file: when that fails the encoder complains on the standard error stream.
    const QByteArray bytes = encoded(picture, QFileInfo(path).suffix().toLatin1());
    if (!bytes.isEmpty())
        replaceFile(path, bytes);
}

} // namespace

PictureWriter::PictureWriter() {
    m_thread.setMaxThreadCount(1); // this keeps the order
}

PictureWriter::~PictureWriter() {
    flush();
}

void PictureWriter::write(const QString &path, const QImage &picture) {
    const QMutexLocker lock(&m_mutex);
    const auto same =
        std::find_if(m_waiting.begin(), m_waiting.end(), [&](const Job &job) { return job.path == path; });
    if (same != m_waiting.end())
        m_waiting.erase(same);
    m_waiting.push_back({path, picture});
    if (std::exchange(m_writing, true))
        return;
    m_thread.start([this] { writeAll(); });
}

void PictureWriter::flush() {
    m_thread.waitForDone();
}

void PictureWriter::writeAll() {
    for (;;) {
        Job job;
        {
            const QMutexLocker lock(&m_mutex);
            if (m_waiting.empty()) {
                m_writing = false;
                return;
            }
            job = std::move(m_waiting.front());
            m_waiting.pop_front();
        }
        writePicture(job.path, job.picture);
    }
}

} // namespace vexa
