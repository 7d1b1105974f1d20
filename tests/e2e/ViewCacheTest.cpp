// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Disk.h"
#include "support/Patience.h"
#include "support/TestMain.h"

#include <QDir>
#include <QQmlComponent>
#include <QQmlEngine>

#include <sys/inotify.h>
#include <unistd.h>

namespace {

/// Notes everything that is done with the files of a folder.
class FolderWatch {
public:
    explicit FolderWatch(const QString &folder) : m_descriptor(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (inotify_add_watch(m_descriptor, QFile::encodeName(folder).constData(), IN_ALL_EVENTS) < 0)
            qFatal("cannot watch %s", qPrintable(folder));
    }
    ~FolderWatch() { close(m_descriptor); }

    bool sawAnything() const {
        char events[4096];
        return read(m_descriptor, events, sizeof events) > 0;
    }

private:
    int m_descriptor;
};

/// What another program of this name leaves there when it lets the toolkit do as it likes.
void fillCache() {
    const QString name = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(QStringLiteral("VexaOrbilo"));
    QQmlEngine engine;
    QQmlComponent view(&engine);
    view.setData(
        "import QtQuick 2.15\n"
        "import QtQuick.Controls 1.4 as Controls1\n"
        "import QtQuick.Templates 2.15\n"
        "import QtGraphicalEffects 1.15\n"
        "Item { ComboBox {} Switch {} Slider {} Popup {} LinearGradient {} DropShadow {} OpacityMask {} }",
        QUrl());
    if (!view.isReady())
        qFatal("the view is wrong: %s", qPrintable(view.errorString()));
    delete view.create();
    QCoreApplication::setApplicationName(name);
}

} // namespace

/// The toolkit can keep what it has translated of the views in the user's cache, and trusts what it finds
/// there. The program keeps nothing there and believes nothing, so no state of the cache matters to it.
class ViewCacheTest : public QObject {
    Q_OBJECT

private slots:
    void filesThatWereCutAreNotEvenOpened() {
        QTemporaryDir cache;
        qputenv("XDG_CACHE_HOME", QFile::encodeName(cache.path()));
        fillCache();
        const QDir files(cache.filePath(QStringLiteral("VexaOrbilo/qmlcache")));
        const QFileInfoList kept = files.entryInfoList(QDir::Files);
        QVERIFY(!kept.isEmpty());
        for (const QFileInfo &file : kept)
            QVERIFY(QFile::resize(file.filePath(), file.size() / 2));

        const FolderWatch watch(files.path());
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        QVERIFY(!watch.sawAnything());
        qunsetenv("XDG_CACHE_HOME");
    }

    void aCacheThatCannotBeUsedIsNotMissed_data() {
        QTest::addColumn<QString>("place");
        QTest::addColumn<bool>("full");
        QTest::newRow("takes no folder") << QStringLiteral("/proc") << false;
        QTest::newRow("below a file") << QStringLiteral("/dev/null/cache") << false;
        QTest::newRow("on a full disk") << QDir::homePath() << true;
    }

    void aCacheThatCannotBeUsedIsNotMissed() {
        QFETCH(QString, place);
        QFETCH(bool, full);
        e2e::Program program;
        program.setEnvironment(QStringLiteral("XDG_CACHE_HOME"), place);
        {
            std::unique_ptr<vexa::test::disk::Full> disk;
            if (full)
                disk = std::make_unique<vexa::test::disk::Full>(0); // the program inherits it
            QVERIFY(program.start());
        }
        QTRY_VERIFY_WITH_TIMEOUT(e2e::hasWithdrawn(program.pid()), vexa::test::patience);
        QVERIFY(program.isRunning());
    }
};

VEXA_WIDGET_TEST_MAIN(ViewCacheTest)
#include "ViewCacheTest.moc"
