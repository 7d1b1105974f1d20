// SPDX-License-Identifier: MIT
#include "app/Screenshots.h"

#include "support/PatternWindow.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <pwd.h>
#include <sys/stat.h>

using namespace vexa::test;

using vexa::Screenshots;

namespace {

QDateTime at(const char *moment) {
    return QDateTime::fromString(QLatin1String(moment), QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
}

QByteArray systemsHome;

/// A clock that says these times, one after the other.
Screenshots::Clock saying(QList<QDateTime> times) {
    return [times]() mutable { return times.size() > 1 ? times.takeFirst() : times.first(); };
}

} // namespace

/// What the system knows of the user, for a test that must not write into the user's own home.
extern "C" passwd *getpwuid(uid_t) {
    static passwd user{};
    user.pw_dir = systemsHome.data();
    return &user;
}

class ScreenshotsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void firstShotOfADayMakesTheFolders();
    void laterShotsOfTheDayUseTheSameFolder();
    void fileHoldsTheScreenPixelByPixel();
    void hoursCountTo24();
    void shotAtMidnightMayLieInTheOldDaysFolder();
    void nextDayHasAFolderOfItsOwn();
    void secondShotInTheSameSecondReplacesTheFirst();
    void folderThatCannotBeMadeLeavesNoFile();
    void aHomeThatIsNoFolderLeavesNoFileThere_data();
    void aHomeThatIsNoFolderLeavesNoFileThere();
    void withoutAClockTheNameIsTheMoment();
    void makesAllMissingFolders();
    void leavesExistingFoldersAlone();
    void leavesAFileInTheWayAlone();
    void emptyNamesAreNoFolders();

private:
    QString desktop() const { return m_home->filePath(QStringLiteral("Desktop")); }
    QStringList files() const {
        QStringList found;
        QDirIterator all(m_home->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext())
            found += QDir(m_home->path()).relativeFilePath(all.next());
        found.sort();
        return found;
    }

    QStringList everything() const {
        QStringList found;
        QDirIterator all(m_home->path(),
                         QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                         QDirIterator::Subdirectories);
        while (all.hasNext())
            found += all.next();
        found.sort();
        return found;
    }

    std::unique_ptr<QTemporaryDir> m_home;
    PatternWindow m_pattern;
};

void ScreenshotsTest::initTestCase() {
    QVERIFY(m_pattern.display());
}

void ScreenshotsTest::init() {
    m_home = std::make_unique<QTemporaryDir>();
    QVERIFY(m_home->isValid());
    qputenv("HOME", QFile::encodeName(m_home->path()));
}

void ScreenshotsTest::firstShotOfADayMakesTheFolders() {
    Screenshots screenshots(saying({at("2024-01-31 09:30:05.000")}));
    screenshots.take();
    screenshots.flush();
    QCOMPARE(files(), QStringList{QStringLiteral("Desktop/Vexa Orbilo/20240131/20240131093005.png")});
}

void ScreenshotsTest::laterShotsOfTheDayUseTheSameFolder() {
    const QDateTime first = at("2024-01-31 09:30:05.000");
    const QDateTime second = at("2024-01-31 17:00:00.000");
    Screenshots screenshots(saying({first, first, second}));
    screenshots.take();
    screenshots.take();
    screenshots.flush();
    QCOMPARE(files(), (QStringList{QStringLiteral("Desktop/Vexa Orbilo/20240131/20240131093005.png"),
                                   QStringLiteral("Desktop/Vexa Orbilo/20240131/20240131170000.png")}));
}

void ScreenshotsTest::fileHoldsTheScreenPixelByPixel() {
    Screenshots screenshots(saying({at("2024-01-31 09:30:05.000")}));
    screenshots.take();
    screenshots.flush();
    const QImage shot(m_home->filePath(QStringLiteral("Desktop/Vexa Orbilo/20240131/20240131093005.png")));
    QCOMPARE(shot.size(), QGuiApplication::primaryScreen()->size());
    QCOMPARE(shot.convertToFormat(QImage::Format_RGB32), pattern(shot.size()));
}

void ScreenshotsTest::hoursCountTo24() {
    Screenshots screenshots(saying({at("2024-12-01 00:00:09.000")}));
    screenshots.take();
    screenshots.flush();
    QCOMPARE(files(), QStringList{QStringLiteral("Desktop/Vexa Orbilo/20241201/20241201000009.png")});
}

void ScreenshotsTest::shotAtMidnightMayLieInTheOldDaysFolder() {
    Screenshots screenshots(saying({at("2023-12-31 23:59:59.999"), at("2024-01-01 00:00:00.000")}));
    screenshots.take();
    screenshots.flush();
    QCOMPARE(files(), QStringList{QStringLiteral("Desktop/Vexa Orbilo/20231231/20240101000000.png")});
}

void ScreenshotsTest::nextDayHasAFolderOfItsOwn() {
    const QDateTime evening = at("2024-02-28 23:59:59.000");
    const QDateTime night = at("2024-02-29 00:00:00.000");
    Screenshots screenshots(saying({evening, evening, night}));
    screenshots.take();
    screenshots.take();
    screenshots.flush();
    QCOMPARE(files(), (QStringList{QStringLiteral("Desktop/Vexa Orbilo/20240228/20240228235959.png"),
                                   QStringLiteral("Desktop/Vexa Orbilo/20240229/20240229000000.png")}));
}

void ScreenshotsTest::secondShotInTheSameSecondReplacesTheFirst() {
    Screenshots screenshots(saying({at("2024-01-31 09:30:05.000")}));
    screenshots.take();

    QWidget patch;
    patch.setWindowFlags(Qt::BypassWindowManagerHint);
    patch.setPalette(QColor(12, 200, 34));
    patch.setGeometry(100, 100, 50, 50);
    patch.show();
    QTRY_COMPARE(QGuiApplication::primaryScreen()->grabWindow(0, 120, 120, 1, 1).toImage().pixelColor(0, 0),
                 QColor(12, 200, 34));
    screenshots.take();
    screenshots.flush();

    QCOMPARE(files().size(), 1);
    const QImage shot(m_home->filePath(files().constFirst()));
    QCOMPARE(shot.pixelColor(120, 120), QColor(12, 200, 34));
}

void ScreenshotsTest::folderThatCannotBeMadeLeavesNoFile() {
    QFile obstacle(desktop());
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();
    Screenshots screenshots;
    screenshots.take();
    screenshots.flush();
    QCOMPARE(files(), QStringList{QStringLiteral("Desktop")});
    QCOMPARE(QFileInfo(desktop()).size(), 0);
}

void ScreenshotsTest::aHomeThatIsNoFolderLeavesNoFileThere_data() {
    QTest::addColumn<QByteArray>("home"); // below the test's own folder
    QTest::newRow("not there") << QByteArray("/nobody");
    QTest::newRow("not UTF-8") << QByteArray("/h\xF6me");
    QTest::newRow("a file") << QByteArray("/file");
}

// The system's own word on the user's home would come next. It is no place for a test's files.
void ScreenshotsTest::aHomeThatIsNoFolderLeavesNoFileThere() {
    QFETCH(QByteArray, home);
    systemsHome = QFile::encodeName(m_home->path()) + "/also missing";
    const QByteArray below = QFile::encodeName(m_home->path()) + home;
    QVERIFY(QFile(m_home->filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly));
    QCOMPARE(mkdir((QFile::encodeName(m_home->path()) + "/h\xF6me").constData(), 0755), 0);
    qputenv("HOME", below);
    const QStringList before = everything();
    Screenshots screenshots(saying({at("2024-01-31 09:30:05.000")}));
    screenshots.take();
    screenshots.flush();
    QCOMPARE(everything(), before);

    // With a home that the system knows, that is where the desktop is.
    QVERIFY(QDir(m_home->path()).mkdir(QStringLiteral("known")));
    systemsHome = QFile::encodeName(m_home->filePath(QStringLiteral("known")));
    screenshots.take();
    screenshots.flush();
    QVERIFY(files().contains(QStringLiteral("known/Desktop/Vexa Orbilo/20240131/20240131093005.png")));
}

void ScreenshotsTest::withoutAClockTheNameIsTheMoment() {
    const QDateTime before = QDateTime::currentDateTime();
    Screenshots screenshots;
    screenshots.take();
    const QDateTime after = QDateTime::currentDateTime();
    screenshots.flush();
    QCOMPARE(files().size(), 1);
    const QString name = QFileInfo(files().constFirst()).completeBaseName();
    QVERIFY(name >= before.toString(QStringLiteral("yyyyMMddHHmmss")));
    QVERIFY(name <= after.toString(QStringLiteral("yyyyMMddHHmmss")));
}

void ScreenshotsTest::makesAllMissingFolders() {
    const QString path = m_home->filePath(QStringLiteral("a/b c/d"));
    QCOMPARE(Screenshots::makeFolder(path), path);
    QVERIFY(QFileInfo(path).isDir());
}

void ScreenshotsTest::leavesExistingFoldersAlone() {
    const QString path = m_home->path();
    const QDateTime changed = QFileInfo(path).lastModified();
    QCOMPARE(Screenshots::makeFolder(path), path);
    QCOMPARE(Screenshots::makeFolder(path + '/'), path + '/');
    QCOMPARE(QFileInfo(path).lastModified(), changed);
    QVERIFY(QDir(path).isEmpty());
}

void ScreenshotsTest::leavesAFileInTheWayAlone() {
    const QString path = m_home->filePath(QStringLiteral("file"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("kept"), 4);
    file.close();
    QCOMPARE(Screenshots::makeFolder(path), path);
    QCOMPARE(Screenshots::makeFolder(path + QStringLiteral("/below")), path + QStringLiteral("/below"));
    QCOMPARE(files(), QStringList{QStringLiteral("file")});
    QCOMPARE(QFileInfo(path).size(), 4);
}

void ScreenshotsTest::emptyNamesAreNoFolders() {
    QCOMPARE(Screenshots::makeFolder(QString()), QString());
    const QString missing = m_home->filePath(QStringLiteral("new"));
    QCOMPARE(Screenshots::makeFolder(missing + '/'), missing + '/');
    QVERIFY(QFileInfo(missing).isDir());
}

VEXA_WIDGET_TEST_MAIN(ScreenshotsTest)
#include "ScreenshotsTest.moc"
