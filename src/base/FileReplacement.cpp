// SPDX-License-Identifier: MIT
#include "base/FileReplacement.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vexa {

namespace {

constexpr int nameAttempts = 8;

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() { close(); }

    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int get() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    /// Some file systems say only here that there was no space left.
    bool close() { return !isOpen() || ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number;
};

/// At the descriptor's position, which moves on.
bool writeAll(int descriptor, const QByteArray &bytes) {
    for (int written = 0; written < bytes.size();) {
        const ssize_t step = ::write(descriptor, bytes.constData() + written,
                                     static_cast<std::size_t>(bytes.size() - written));
        if (step < 0 && errno != EINTR)
            return false;
        written += step > 0 ? static_cast<int>(step) : 0;
    }
    return true;
}

/// Puts the bytes in the place of all that an open file holds.
bool rewrite(int descriptor, const QByteArray &bytes) {
    return lseek(descriptor, 0, SEEK_SET) == 0 && writeAll(descriptor, bytes) &&
           ftruncate(descriptor, bytes.size()) == 0;
}

/// A link's target is what is replaced.
QString resolved(const QString &path) {
    const QFileInfo info(path);
    if (!info.isSymLink())
        return path;
    const QString target = info.canonicalFilePath(); // empty when there is none
    return target.isEmpty() ? info.symLinkTarget() : target;
}

/// A new file beside the one it is to replace, in the same folder because only there a rename is possible. It
/// is gone again unless it was put in its place.
class Draft {
public:
    explicit Draft(const QString &path)
        : m_target(QFile::encodeName(path)), m_file(create(m_target, m_name)) {}
    ~Draft() {
        if (exists())
            ::unlink(m_name.constData());
    }

    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;

    bool exists() const { return !m_name.isEmpty(); }

    bool fill(const QByteArray &bytes, const DiskSync &sync) {
        struct stat present {};
        if (::stat(m_target.constData(), &present) == 0) {
            // Some file systems know no permissions, which is no reason not to save.
            [[maybe_unused]] const int refused = fchmod(m_file.get(), present.st_mode & 07777U);
        }
        return writeAll(m_file.get(), bytes) && sync(m_file.get()) && m_file.close();
    }

    bool takePlace() {
        if (::rename(m_name.constData(), m_target.constData()) != 0)
            return false;
        m_name.clear();
        return true;
    }

private:
    /// `name` stays empty where no file can be made.
    static int create(const QByteArray &target, QByteArray &name) {
        for (int attempt = 0; attempt < nameAttempts; ++attempt) {
            const QByteArray candidate =
                target + '.' + QByteArray::number(QRandomGenerator::system()->generate(), 36);
            const int file = ::open(candidate.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (file >= 0)
                name = candidate;
            if (file >= 0 || errno != EEXIST)
                return file;
        }
        return -1;
    }

    const QByteArray m_target;
    QByteArray m_name;
    Descriptor m_file;
};

/// Without truncation first, so that what the old content took of the disk is there to be used.
bool overwrite(const QString &path, const QByteArray &bytes, const DiskSync &sync) {
    QFile present(path);
    if (!QFileInfo(path).isFile() || !present.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        return false;
    const QByteArray before = present.readAll();
    if (rewrite(present.handle(), bytes) && sync(present.handle()))
        return true;
    rewrite(present.handle(), before);
    return false;
}

} // namespace

bool syncToDisk(int descriptor) {
    while (fsync(descriptor) != 0)
        if (errno != EINTR)
            return errno == EINVAL || errno == ENOTSUP; // no such thing on this file system
    return true;
}

bool replaceFile(const QString &path, const QByteArray &bytes, const DiskSync &sync) {
    const QString target = resolved(path);
    Draft draft(target);
    if (!draft.exists())
        return overwrite(target, bytes, sync);
    return draft.fill(bytes, sync) && draft.takePlace();
}

} // namespace vexa
