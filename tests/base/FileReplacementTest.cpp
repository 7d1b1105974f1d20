// SPDX-License-Identifier: MIT
#include "base/FileReplacement.h"

#include "support/Disk.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <sys/stat.h>

using namespace vexa::test;

using vexa::replaceFile;

namespace {

bool refuse(int /*descriptor*/) {
    return false;
}

} // namespace

/// A file is replaced whole, or it and its folder are left as they were.
class FileReplacementTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        protect(m_folder->path(), 0777);
        write("old content");
    }

    void cleanup() { protect(m_folder->path(), 0777); }

    void replacesWhatIsThere() {
        for (const QByteArray &bytes : {QByteArray("new"), QByteArray(300000, 'x'), QByteArray("")}) {
            QVERIFY(replaceFile(path(), bytes));
            QCOMPARE(content(), bytes);
            QCOMPARE(names(), QStringList{QStringLiteral("file")});
        }
    }

    void makesANewFile() {
        QVERIFY(QFile::remove(path()));
        QVERIFY(replaceFile(path(), "new"));
        QCOMPARE(content(), QByteArray("new"));
    }

    void permissionsStay() {
        protect(path(), 0640);
        QVERIFY(replaceFile(path(), "new"));
        struct stat status {};
        QCOMPARE(stat(QFile::encodeName(path()).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0640U);
    }

    void aNewFileHasTheUsersUsualPermissions() {
        const mode_t before = umask(0027);
        QVERIFY(replaceFile(path("other"), "new"));
        umask(before);
        struct stat status {};
        QCOMPARE(stat(QFile::encodeName(path("other")).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777U, 0640U);
    }

    void aLinkStaysALink() {
        QVERIFY(QFile::link(path(), path("first link")));
        QVERIFY(QFile::link(path("first link"), path("link")));
        QVERIFY(replaceFile(path("link"), "new"));
        QVERIFY(QFileInfo(path("link")).isSymLink());
        QVERIFY(QFileInfo(path("first link")).isSymLink());
        QCOMPARE(content(), QByteArray("new"));
    }

    void aLinkToNothingGetsItsFile() {
        QVERIFY(QFile::link(path(), path("link")));
        QVERIFY(QFile::remove(path()));
        QVERIFY(replaceFile(path("link"), "new"));
        QVERIFY(QFileInfo(path("link")).isSymLink());
        QCOMPARE(content(), QByteArray("new"));
    }

    void theDiskHasTheFileBeforeItTakesItsPlace() {
        QByteArray during;
        off_t size = 0;
        QVERIFY(replaceFile(path(), "new", [&](int descriptor) {
            during = content();
            struct stat status {};
            fstat(descriptor, &status);
            size = status.st_size;
            return true;
        }));
        QCOMPARE(during, QByteArray("old content"));
        QCOMPARE(size, off_t{3});
    }

    void aDiskThatRefusesLeavesTheOldFile() {
        QVERIFY(!replaceFile(path(), "new", refuse));
        QCOMPARE(content(), QByteArray("old content"));
        QCOMPARE(names(), QStringList{QStringLiteral("file")});
    }

    void aFullDiskLeavesTheOldFile_data() {
        QTest::addColumn<int>("space");
        QTest::newRow("nothing fits") << 0;
        QTest::newRow("a part fits") << 700;
        QTest::newRow("much fits") << 100000;
    }

    void aFullDiskLeavesTheOldFile() {
        QFETCH(int, space);
        {
            const disk::Full full(space);
            QVERIFY(!replaceFile(path(), QByteArray(100001, 'x')));
        }
        QCOMPARE(content(), QByteArray("old content"));
        QCOMPARE(names(), QStringList{QStringLiteral("file")});
    }

    void aFullDiskGetsNoNewFile() {
        QVERIFY(QFile::remove(path()));
        {
            const disk::Full full(0);
            QVERIFY(!replaceFile(path(), "new"));
        }
        QCOMPARE(names(), QStringList());
    }

    void aFolderThatIsGoneGetsNoFile() {
        QVERIFY(QDir(m_folder->path()).removeRecursively());
        QVERIFY(!replaceFile(path(), "new"));
        QVERIFY(!QFileInfo::exists(m_folder->path()));
        QVERIFY(QDir().mkdir(m_folder->path()));
    }

    void aClosedFolderGetsNoNewFile() {
        closeFolder();
        const disk::OrdinaryUser user;
        QVERIFY(!replaceFile(path("other"), "new"));
        QCOMPARE(names(), QStringList{QStringLiteral("file")});
    }

    void aFileInAClosedFolderIsOverwritten_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("shorter") << QByteArray("new");
        QTest::newRow("longer") << QByteArray(5000, 'x');
        QTest::newRow("empty") << QByteArray("");
    }

    void aFileInAClosedFolderIsOverwritten() {
        QFETCH(QByteArray, bytes);
        closeFolder();
        const disk::OrdinaryUser user;
        QVERIFY(replaceFile(path(), bytes));
        QCOMPARE(content(), bytes);
    }

    void aFileInAClosedFolderKeepsItsContentOnAFullDisk() {
        closeFolder();
        const disk::OrdinaryUser user;
        {
            const disk::Full full(700);
            QVERIFY(!replaceFile(path(), QByteArray(5000, 'x')));
        }
        QCOMPARE(content(), QByteArray("old content"));
    }

    void aFileInAClosedFolderKeepsItsContentWhenTheDiskRefuses() {
        closeFolder();
        const disk::OrdinaryUser user;
        QVERIFY(!replaceFile(path(), "new, and longer than the old", refuse));
        QCOMPARE(content(), QByteArray("old content"));
    }

    void aReadOnlyFileInAClosedFolderIsLeftAlone() {
        closeFolder();
        protect(path(), 0444);
        const disk::OrdinaryUser user;
        QVERIFY(!replaceFile(path(), "new"));
        QCOMPARE(content(), QByteArray("old content"));
    }

private:
    QString path(const char *name = "file") const { return m_folder->filePath(QLatin1String(name)); }

    void write(const QByteArray &bytes) const {
        QFile file(path());
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    QByteArray content() const {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    QStringList names() const {
        return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
    }
    void protect(const QString &name, unsigned mode) const {
        QCOMPARE(chmod(QFile::encodeName(name).constData(), mode), 0);
    }
    /// The folder takes no new files; its file may be written.
    void closeFolder() const {
        protect(path(), 0666);
        protect(m_folder->path(), 0555);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(FileReplacementTest)
#include "FileReplacementTest.moc"
