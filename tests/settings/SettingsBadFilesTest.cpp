// SPDX-License-Identifier: MIT
#include "support/Disk.h"
#include "support/UserFile.h"

#include <QTest>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace vexa::test;

using Store = ZrToolXmlClass;

namespace {

void assignMarks() {
    Store::Key2P = 41;
    Store::Language = 42;
    Store::ShowPrivacyWindow = 43;
    Store::ifirstRun = true;
}

bool marksStand() {
    return Store::Key2P == 41 && Store::Language == 42 && Store::ShowPrivacyWindow == 43 && Store::ifirstRun;
}

QByteArray nested(int levels) {
    return QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
}

QByteArray entityBomb() {
    QByteArray text = "<?xml version=\"1.0\"?><!DOCTYPE b [<!ENTITY e0 \"boom boom boom boom\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ';';
        text += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    return text + "]><PenSetting><Setting><Key2P>&e11;</Key2P></Setting></PenSetting>";
}

QByteArray withDeclaration(const QByteArray &declaration, const QByteArray &settings) {
    return "<!DOCTYPE a [" + declaration + "]><a FirstRun=\"0\"><b>" + settings + "</b></a>";
}

QByteArray crowdedTag(int attributes, const QByteArray &assignment) {
    QByteArray text = "<a><b";
    for (int i = 0; i < attributes; ++i)
        text += " c" + QByteArray::number(i) + assignment + '"';
    return text + "><Key2P>4</Key2P></b></a>";
}

/// The most memory the process has ever held, in MiB.
long peakMemory() {
    struct rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

/// Whatever lies at the place of the settings file: the values in memory stay, nothing crashes or waits, and
/// nothing of the user's is lost by the next save.
class SettingsBadFilesTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::startAfresh();
        assignMarks();
    }

    void cleanup() { userfile::clear(); }

    void whatIsNotWellFormedChangesNothingAndIsKept_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("blank") << QByteArray("  \n");
        QTest::newRow("only a byte-order mark") << QByteArray("\xEF\xBB\xBF");
        QTest::newRow("only the declaration") << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        QTest::newRow("words") << QByteArray("Key2P=4\nLanguage=1\n");
        QTest::newRow("noise") << QByteArray::fromHex("00ff13fe80817f00deadbeef").repeated(50);
        QTest::newRow("zeros") << QByteArray(700, '\0');
        QTest::newRow("cut off") << QByteArray("<PenSetting FirstRun=\"0\"><Setting><Key2P>4</Key2P><Langu");
        QTest::newRow("not closed") << QByteArray(
            "<PenSetting FirstRun=\"0\"><Setting><Key2P>4</Key2P></Setting>");
        QTest::newRow("two roots") << QByteArray("<a><b><Key2P>4</Key2P></b></a><a/>");
        QTest::newRow("unknown entity") << QByteArray("<a><b><Key2P>&nothing;</Key2P></b></a>");
        QTest::newRow("wrong bytes for its encoding")
            << QByteArray("<a><b><Key2P>4</Key2P></b>\xFF\xFE\xFA</a>");
        QTest::newRow("65 levels") << nested(65);
        QTest::newRow("500,000 levels, not closed") << QByteArray("<a>").repeated(340000);
        QTest::newRow("100,000 levels") << nested(100000);
        QTest::newRow("entity bomb") << entityBomb();
        // None of these is large, and each is the short form of one that would keep a reader busy for
        // minutes.
        QTest::newRow("entity of its own") << withDeclaration("<!ENTITY e \"4\">", "<Key2P>&e;</Key2P>");
        QTest::newRow("long entity, often used")
            << withDeclaration("<!ENTITY e \"" + QByteArray(3000, 'x') + "\">",
                               "<c>" + QByteArray("&e;").repeated(1000) + "</c>");
        QTest::newRow("entity of its own, in an encoding that hides it")
            << "<?xml version=\"1.0\" encoding=\"UTF-7\"?>" +
                   withDeclaration("<!ENTITY e \"4\">", "<Key2P>&e;</Key2P>").replace("<", "+ADw-");
        QTest::newRow("attributes by default")
            << withDeclaration("<!ATTLIST c d CDATA \"x\">", "<Key2P>4</Key2P><c/>");
        QTest::newRow("crowded tag") << crowdedTag(257, "=\"");
        QTest::newRow("crowded tag, wide") << crowdedTag(257, " =\n \"");
        const QString wide = QString::fromLatin1(crowdedTag(257, "=\""));
        QTest::newRow("crowded tag of two bytes a letter")
            << QByteArray("\xFF\xFE", 2) +
                   QByteArray(reinterpret_cast<const char *>(wide.utf16()), wide.size() * 2);
        QTest::newRow("one byte over a mebibyte") << "<a>" + QByteArray(1024 * 1024 + 1 - 7, ' ') + "</a>";
    }

    void whatIsNotWellFormedChangesNothingAndIsKept() {
        QFETCH(QByteArray, bytes);
        QVERIFY(userfile::write(bytes));
        Store::ZrXmlRead();
        QVERIFY(marksStand());
        QCOMPARE(userfile::read(), bytes);
        QVERIFY(!QFileInfo::exists(userfile::badPath()));

        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(userfile::badPath()), bytes);
        userfile::forgetSettings();
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 41);
    }

    void whatIsUnusualButSoundIsRead_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("64 levels") << "<a><b><Key2P>4</Key2P>" + nested(62) + "</b></a>";
        const QByteArray head = "<a><b><Key2P>4</Key2P></b>";
        QTest::newRow("a mebibyte") << head + QByteArray(1024 * 1024 - head.size() - 4, ' ') + "</a>";
        // In one tag as many as there may be, in all of them more, and no end of what only looks like one.
        const QByteArray lines =
            "<!-- " + QByteArray("=").repeated(1000) + QByteArray("\"").repeated(1000) + " -->";
        QTest::newRow("many attributes") << "<all>" + lines + crowdedTag(256, "=\"") +
                                                crowdedTag(200, "='").replace('"', '\'') +
                                                "<b><Key2P>4</Key2P></b></all>";
        QTest::newRow("document type")
            << QByteArray("<!DOCTYPE a SYSTEM \"a.dtd\" [<!ELEMENT a ANY>]><a><b><Key2P>4</Key2P></b></a>");
    }

    void whatIsUnusualButSoundIsRead() {
        QFETCH(QByteArray, bytes);
        QVERIFY(userfile::write(bytes));
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 4);
    }

    void aHugeFileIsNotTakenIn() {
        QVERIFY(userfile::write("<a><b><Key2P>4</Key2P></b></a>"));
        QVERIFY(QFile::resize(userfile::path(), 100LL * 1024 * 1024));
        const long before = peakMemory();
        Store::ZrXmlRead();
        QVERIFY(marksStand());
        Store::ZrXmlWrite();
        QCOMPARE(QFileInfo(userfile::badPath()).size(), 100LL * 1024 * 1024);
        QVERIFY2(peakMemory() - before < 50, "a file of 100 MiB was read into memory");
    }

    void manySmallElementsStayBounded() {
        const long before = peakMemory();
        QVERIFY(userfile::write("<a><b>" + QByteArray("<c/>").repeated(262000) + "<Key2P>4</Key2P></b></a>"));
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 4);
        QVERIFY2(peakMemory() - before < 300, "a file of 1 MiB took more than 300 MiB of memory");
    }

    void onlyTheFirstSaveKeepsTheFileAside() {
        QVERIFY(userfile::write("broken"));
        Store::ZrXmlWrite();
        Store::Key3P = 77;
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(userfile::badPath()), QByteArray("broken"));
        QVERIFY(userfile::read().contains("<Key3P>77</Key3P>"));
    }

    void aNewerBadFileTakesTheOldOnesPlace() {
        QVERIFY(userfile::write("broken"));
        Store::ZrXmlWrite();
        QVERIFY(userfile::write("broken again"));
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(userfile::badPath()), QByteArray("broken again"));
        QVERIFY(userfile::read().contains("<Key2P>41</Key2P>"));
    }

    void aBadLinkIsMovedAside() {
        const QString target = QCoreApplication::applicationDirPath() + QStringLiteral("/elsewhere.xml");
        QVERIFY(userfile::write("broken", target));
        QVERIFY(QFile::link(target, userfile::path()));

        Store::ZrXmlRead();
        QVERIFY(marksStand());
        Store::ZrXmlWrite();
        QCOMPARE(userfile::read(userfile::badPath()), QByteArray("broken"));
        QVERIFY(userfile::read().contains("<Key2P>41</Key2P>"));
        QVERIFY(QFile::remove(target));
    }

    void aBadLinkStaysWhereNothingCanBeWritten() {
        const QString target = QCoreApplication::applicationDirPath() + QStringLiteral("/elsewhere.xml");
        QVERIFY(userfile::write("broken", target));
        QVERIFY(QFile::link(target, userfile::path()));
        {
            const disk::Full full(0);
            Store::ZrXmlWrite();
        }
        QCOMPARE(QFileInfo(userfile::path()).symLinkTarget(), target);
        QCOMPARE(userfile::read(), QByteArray("broken"));
        QVERIFY(!QFileInfo::exists(userfile::badPath()));
        QVERIFY(QFile::remove(target));
    }

    void aFolderCountsAsNoFile() {
        QVERIFY(QDir().mkdir(userfile::path()));
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 1); // the built-in file's
        QCOMPARE(Store::ShowPrivacyWindow, 43);
        Store::ZrXmlWrite();
        QVERIFY(QFileInfo(userfile::path()).isDir());
        QVERIFY(!QFileInfo::exists(userfile::badPath()));
    }

    void aFileThatMayNotBeReadCountsAsNone() {
        const QByteArray bytes = "<a><b><Key2P>4</Key2P></b></a>";
        QVERIFY(userfile::write(bytes));
        QVERIFY(QFile::setPermissions(userfile::path(), QFile::Permissions()));
        const QString folder = QCoreApplication::applicationDirPath();
        const QFile::Permissions ofFolder = QFile::permissions(folder);
        {
            // With a folder to write in, nothing but the file's own permissions keeps it from being replaced.
            QVERIFY(QFile::setPermissions(folder, ofFolder | QFile::WriteGroup | QFile::WriteOther));
            const disk::OrdinaryUser user;
            Store::ZrXmlRead();
            QCOMPARE(Store::Key2P, 1); // the built-in file's
            QCOMPARE(Store::ShowPrivacyWindow, 43);
            Store::ZrXmlWrite();
        }
        QVERIFY(QFile::setPermissions(folder, ofFolder));
        QVERIFY(QFile::setPermissions(userfile::path(), QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(userfile::read(), bytes);
    }

    void aDanglingLinkCountsAsNoFile() {
        QVERIFY(QFile::link(QStringLiteral("/nowhere/at/all.xml"), userfile::path()));
        Store::ZrXmlRead();
        QCOMPARE(Store::Key2P, 1); // the built-in file's
        Store::ZrXmlWrite();
        QVERIFY(QFileInfo(userfile::path()).isSymLink());
    }

    void aPipeIsNeitherReadNorReplaced() {
        QCOMPARE(mkfifo(QFile::encodeName(userfile::path()).constData(), 0600), 0);
        Store::ZrXmlRead();
        QVERIFY(marksStand());
        Store::ZrXmlWrite();
        struct stat status {};
        QCOMPARE(stat(QFile::encodeName(userfile::path()).constData(), &status), 0);
        QVERIFY(S_ISFIFO(status.st_mode));
    }

    void aDeviceIsNeitherReadNorReplaced() {
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), userfile::path()));
        Store::ZrXmlRead();
        QVERIFY(marksStand());
        Store::ZrXmlWrite();
        QVERIFY(!QFileInfo(QStringLiteral("/dev/zero")).isFile());
        QVERIFY(QFileInfo(userfile::path()).isSymLink());
    }
};

QTEST_GUILESS_MAIN(SettingsBadFilesTest)
#include "SettingsBadFilesTest.moc"
