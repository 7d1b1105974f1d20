// SPDX-License-Identifier: MIT
#include "app/PictureWriter.h"

#include "support/Disk.h"
#include "support/NoThreads.h"
#include "support/Table.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <memory>
#include <sys/stat.h>

using namespace vexa::test;

using vexa::PictureWriter;

namespace {

QImage plain(const QColor &colour) {
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(colour);
    return picture;
}

/// A picture that takes its time to compress.
QImage noise(int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    QRandomGenerator(7).fillRange(reinterpret_cast<quint32 *>(picture.bits()), picture.sizeInBytes() / 4);
    return picture;
}

/// Counts what this process says on its log, from any thread.
class Listener {
public:
    Listener() {
        lines = 0;
        m_before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) { ++lines; });
    }
    ~Listener() { qInstallMessageHandler(m_before); }

    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    static inline std::atomic<int> lines = 0;

private:
    QtMessageHandler m_before;
};

} // namespace

class PictureWriterTest : public QObject {
    Q_OBJECT

    /// A picture, how many bytes of it the disk takes, and whether there is a file of that name.
    using FullDisks = Table<QImage, int, bool>;

private slots:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }

    void writesThePictureInTheFormatOfItsSuffix() {
        PictureWriter writer;
        const QImage picture = noise(61, 43);
        writer.write(file("a.png"), picture);
        writer.flush();
        QCOMPARE(files(), QStringList{QStringLiteral("a.png")});
        QFile written(file("a.png"));
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.read(8), QByteArray("\x89PNG\r\n\x1a\n"));
        QCOMPARE(QImage(file("a.png")).convertToFormat(QImage::Format_RGB32), picture);
    }

    void compressesHalfway() {
        PictureWriter writer;
        const QImage picture = plain(Qt::red).scaled(500, 400);
        writer.write(file("a.png"), picture);
        writer.flush();
        QVERIFY(picture.save(file("quality 50.png"), "PNG", 50));
        QFile ours(file("a.png"));
        QFile expected(file("quality 50.png"));
        QVERIFY(ours.open(QIODevice::ReadOnly) && expected.open(QIODevice::ReadOnly));
        QCOMPARE(ours.readAll(), expected.readAll());
    }

    void laterPictureOfTheSamePathReplacesTheEarlierOne() {
        PictureWriter writer;
        for (const QColor colour : {Qt::red, Qt::green, Qt::blue})
            writer.write(file("same.png"), plain(colour));
        writer.flush();
        QCOMPARE(files(), QStringList{QStringLiteral("same.png")});
        QCOMPARE(QImage(file("same.png")).pixelColor(3, 3), QColor(Qt::blue));
    }

    void writesInTheOrderInWhichItWasGiven() {
        PictureWriter writer;
        // A large one first: with more than one thread, the small ones would overtake it.
        writer.write(file("0.png"), noise(1000, 1000));
        for (const char *name : {"1.png", "2.png", "3.png"})
            writer.write(file(name), plain(Qt::red));
        writer.flush();
        QCOMPARE(files().size(), 4);
        for (int i = 1; i < 4; ++i)
            QVERIFY(QFileInfo(m_folder->filePath(QStringLiteral("%1.png").arg(i - 1))).lastModified() <=
                    QFileInfo(m_folder->filePath(QStringLiteral("%1.png").arg(i))).lastModified());
    }

    void returnsWhilePicturesAreBeingWritten() {
        PictureWriter writer;
        const QImage large = noise(1920, 1080);
        for (const char *name : {"a.png", "b.png", "c.png", "d.png"})
            writer.write(file(name), large);
        bool answered = false;
        QTimer::singleShot(0, this, [&answered] { answered = true; });
        QCoreApplication::processEvents();
        QVERIFY(answered);
        QVERIFY(!QFileInfo::exists(file("d.png")));
        writer.flush();
        QCOMPARE(files().size(), 4);
    }

    void endOfTheWriterWaitsForAllFiles() {
        {
            PictureWriter writer;
            for (const char *name : {"a.png", "b.png", "c.png"})
                writer.write(file(name), noise(800, 600));
        }
        QCOMPARE(files().size(), 3);
        for (const QString &name : files())
            QCOMPARE(QImage(m_folder->filePath(name)).size(), QSize(800, 600));
    }

    void withoutAThreadThePictureIsWrittenAtOnce() {
        QCOMPARE(chmod(QFile::encodeName(m_folder->path()).constData(), 0777), 0);
        PictureWriter writer;
        {
            const NoThreads noThreads;
            writer.write(file("a.png"), noise(800, 600));
            QCOMPARE(QImage(file("a.png")).size(), QSize(800, 600));
        }
        writer.write(file("b.png"), plain(Qt::red)); // there are threads again
        writer.flush();
        QCOMPARE(files().size(), 2);
    }

    void fullDiskLeavesWhatWasThereAndNoHalfFile_data() {
        FullDisks::begin();
        // A small one fits into the buffer of the file that it is written to.
        for (const bool fileBefore : {false, true}) {
            QTest::addRow("large, file before %d", fileBefore) << noise(800, 600) << 20000 << fileBefore;
            QTest::addRow("small, file before %d", fileBefore) << plain(Qt::blue) << 100 << fileBefore;
        }
    }
    void fullDiskLeavesWhatWasThereAndNoHalfFile() {
        const auto [picture, space, fileBefore] = FullDisks::row();
        if (fileBefore)
            QVERIFY(plain(Qt::red).save(file("a.png")));
        const Listener listener;
        {
            const disk::Full full(space);
            PictureWriter writer;
            writer.write(file("a.png"), picture);
        }
        QCOMPARE(files(), fileBefore ? QStringList("a.png") : QStringList());
        if (fileBefore)
            QCOMPARE(QImage(file("a.png")).pixelColor(3, 3), QColor(Qt::red));
        QCOMPARE(Listener::lines.load(), 0);
    }

    void folderThatCannotBeWrittenGetsNoFile() {
        const Listener listener;
        QCOMPARE(chmod(QFile::encodeName(m_folder->path()).constData(), 0555), 0);
        {
            const disk::OrdinaryUser user;
            PictureWriter writer;
            writer.write(file("a.png"), plain(Qt::red));
        }
        QCOMPARE(files(), QStringList());
        QCOMPARE(Listener::lines.load(), 0);
        QCOMPARE(chmod(QFile::encodeName(m_folder->path()).constData(), 0755), 0);
    }

    void missingFolderGetsNoFile() {
        const Listener listener;
        PictureWriter writer;
        writer.write(file("missing/a.png"), plain(Qt::red));
        writer.flush();
        QVERIFY(!QFileInfo::exists(file("missing")));
        QCOMPARE(Listener::lines.load(), 0);
    }

private:
    QString file(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QStringList files() const {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(PictureWriterTest)
#include "PictureWriterTest.moc"
