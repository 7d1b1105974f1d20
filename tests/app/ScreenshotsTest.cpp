// SPDX-License-Identifier: MIT
#include "app/Screenshots.h"

#include "support/PatternWindow.h"
#include "support/Table.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <memory>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace vexa::test;

using vexa::Screenshots;

namespace {

QByteArray systemsHome;

/// Makes the user one who writes digits of another script, before the toolkit looks.
const bool otherDigits = [] {
    qunsetenv("LC_ALL");
    return qputenv("LC_CTYPE", "C.UTF-8") && qputenv("LANG", "ar_EG.UTF-8");
}();

constexpr auto usualTime = "2024-01-31 09:30:05.000";
const QString usualFile = "Desktop/Vexa Orbilo/20240131/20240131093005.png";

/// A clock that says these times, one after the other.
Screenshots::Clock saying(QStringList times) {
    return [times]() mutable {
        return QDateTime::fromString(times.size() > 1 ? times.takeFirst() : times.first(),
                                     QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    };
}

/// Takes shots at these times and waits for the files.
void shoot(const QStringList &times = {usualTime}, int shots = 1) {
    Screenshots screenshots(saying(times));
    for (int i = 0; i < shots; ++i)
        screenshots.take();
    screenshots.flush();
}

/// A folder whose name is not UTF-8. The toolkit cannot remove one, nor what it lies in.
class OddFolder {
public:
    explicit OddFolder(QByteArray name)
        : m_name(std::move(name)), m_isValid(mkdir(m_name.constData(), 0755) == 0) {}
    ~OddFolder() { rmdir(m_name.constData()); }
    Q_DISABLE_COPY_MOVE(OddFolder)

    bool isValid() const { return m_isValid; }

private:
    const QByteArray m_name;
    const bool m_isValid;
};

} // namespace

/// What the system knows of the user, for a test that must not write into the user's own home.
extern "C" passwd *getpwuid(uid_t) {
    static passwd user{};
    user.pw_dir = systemsHome.data();
    return &user;
}

class ScreenshotsTest : public QObject {
    Q_OBJECT

    using Shots = Table<QStringList, QStringList>; // what the clock says, first of the day, then for the name

private slots:
    void initTestCase() {
        QVERIFY(m_pattern.display());
        QVERIFY(otherDigits && QLocale::system().zeroDigit() != '0');
    }
    void init() {
        m_home = std::make_unique<QTemporaryDir>();
        QVERIFY(m_home->isValid());
        qputenv("HOME", QFile::encodeName(m_home->path()));
    }
    void cleanup() { QVERIFY(m_home->remove()); }

    void everyShotLiesWhereTheClockSays_data() {
        Shots::begin();
        const auto row = [](const char *name, const QStringList &times, const QStringList &files) {
            QTest::newRow(name) << times << files;
        };
        row("first of a day", {usualTime}, {"20240131/20240131093005.png"});
        row("later ones", {usualTime, usualTime, "2024-01-31 17:00:00.000"},
            {"20240131/20240131093005.png", "20240131/20240131170000.png"});
        row("hours count to 24", {"2024-12-01 00:00:09.000"}, {"20241201/20241201000009.png"});
        row("midnight in between", {"2023-12-31 23:59:59.999", "2024-01-01 00:00:00.000"},
            {"20231231/20240101000000.png"});
        row("next day", {"2024-02-28 23:59:59.000", "2024-02-28 23:59:59.000", "2024-02-29 00:00:00.000"},
            {"20240228/20240228235959.png", "20240229/20240229000000.png"});
    }
    void everyShotLiesWhereTheClockSays() {
        auto [times, expected] = Shots::row();
        shoot(times, expected.size());
        QCOMPARE(files(), expected.replaceInStrings(QRegularExpression("^"), "Desktop/Vexa Orbilo/"));
    }

    void fileHoldsTheScreenPixelByPixel() {
        shoot();
        const QImage shot(m_home->filePath(usualFile));
        QCOMPARE(shot.size(), QGuiApplication::primaryScreen()->size());
        QCOMPARE(shot.convertToFormat(QImage::Format_RGB32), pattern(shot.size()));
    }

    void secondShotInTheSameSecondReplacesTheFirst() {
        Screenshots screenshots(saying({usualTime}));
        screenshots.take();

        QWidget patch;
        patch.setWindowFlags(Qt::BypassWindowManagerHint);
        patch.setPalette(QColor(12, 200, 34));
        patch.setGeometry(100, 100, 50, 50);
        patch.show();
        QTRY_COMPARE(
            QGuiApplication::primaryScreen()->grabWindow(0, 120, 120, 1, 1).toImage().pixelColor(0, 0),
            QColor(12, 200, 34));
        screenshots.take();
        screenshots.flush();

        QCOMPARE(files().size(), 1);
        const QImage shot(m_home->filePath(files().constFirst()));
        QCOMPARE(shot.pixelColor(120, 120), QColor(12, 200, 34));
    }

    void folderThatCannotBeMadeLeavesNoFile() {
        QFile obstacle(desktop());
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
        obstacle.close();
        shoot();
        QCOMPARE(files(), QStringList{QStringLiteral("Desktop")});
        QCOMPARE(QFileInfo(desktop()).size(), 0);
    }

    void aHomeThatIsNoFolderLeavesNoFileThere_data() {
        QTest::addColumn<QByteArray>("home"); // below the test's own folder
        QTest::newRow("not there") << QByteArray("/nobody");
        QTest::newRow("not UTF-8") << QByteArray("/h\xF6me");
        QTest::newRow("a file") << QByteArray("/file");
    }

    // The system's own word on the user's home would come next. It is no place for a test's files.
    void aHomeThatIsNoFolderLeavesNoFileThere() {
        QFETCH(QByteArray, home);
        systemsHome = QFile::encodeName(m_home->path()) + "/also missing";
        const QByteArray below = QFile::encodeName(m_home->path()) + home;
        QVERIFY(QFile(m_home->filePath(QStringLiteral("file"))).open(QIODevice::WriteOnly));
        const OddFolder oddFolder(QFile::encodeName(m_home->path()) + "/h\xF6me");
        QVERIFY(oddFolder.isValid());
        qputenv("HOME", below);
        const QStringList before = everything();
        Screenshots screenshots(saying({usualTime}));
        screenshots.take();
        screenshots.flush();
        QCOMPARE(everything(), before);

        // With a home that the system knows, that is where the desktop is.
        QVERIFY(QDir(m_home->path()).mkdir(QStringLiteral("known")));
        systemsHome = QFile::encodeName(m_home->filePath(QStringLiteral("known")));
        screenshots.take();
        screenshots.flush();
        QVERIFY(files().contains("known/" + usualFile));
    }

    void aHomeWithAnAccentIsAHome_data() {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("one character") << QByteArray("/j\xC3\xB3zef");
        QTest::newRow("a letter and its accent") << QByteArray("/jo\xCC\x81zef");
    }

    // Some systems write such names one way and read them the other.
    void aHomeWithAnAccentIsAHome() {
        QFETCH(QByteArray, name);
        const QByteArray home = QFile::encodeName(m_home->path()) + name;
        const OddFolder folder(home);
        QVERIFY(folder.isValid());
        qputenv("HOME", home);
        shoot();
        QCOMPARE(files().size(), 1);
    }

    void withoutAClockTheNameIsTheMoment() {
        const QDateTime before = QDateTime::currentDateTime();
        Screenshots screenshots;
        screenshots.take();
        const QDateTime after = QDateTime::currentDateTime();
        screenshots.flush();
        QCOMPARE(files().size(), 1);
        const QString name = QFileInfo(files().constFirst()).completeBaseName();
        const auto nameAt = [](const QDateTime &time) {
            return QLocale::c().toString(time, "yyyyMMddHHmmss");
        };
        QVERIFY(name >= nameAt(before));
        QVERIFY(name <= nameAt(after));
    }

    void makesAllMissingFoldersAndLeavesOthersAlone() {
        for (const char *name : {"a/b c/d", "a/b c/d", "new/"}) {
            const QString path = m_home->filePath(name);
            QCOMPARE(Screenshots::makeFolder(path), path);
            QVERIFY(QFileInfo(path).isDir());
        }
        QCOMPARE(Screenshots::makeFolder(QString()), QString());
        QCOMPARE(everything(), (QStringList{"a", "a/b c", "a/b c/d", "new"}));
        const QString path = m_home->path();
        const QDateTime changed = QFileInfo(path).lastModified();
        QCOMPARE(Screenshots::makeFolder(path), path);
        QCOMPARE(Screenshots::makeFolder(path + '/'), path + '/');
        QCOMPARE(QFileInfo(path).lastModified(), changed);
    }

    void leavesAFileInTheWayAlone() {
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

private:
    QString desktop() const { return m_home->filePath(QStringLiteral("Desktop")); }
    /// What lies below the home.
    QStringList files(QDir::Filters filters = QDir::Files | QDir::Hidden) const {
        QStringList found;
        QDirIterator all(m_home->path(), filters, QDirIterator::Subdirectories);
        while (all.hasNext())
            found += QDir(m_home->path()).relativeFilePath(all.next());
        found.sort();
        return found;
    }
    QStringList everything() const {
        return files(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_home;
    PatternWindow m_pattern;
};

VEXA_WIDGET_TEST_MAIN(ScreenshotsTest)
#include "ScreenshotsTest.moc"
