// SPDX-License-Identifier: MIT
#include "support/UserFile.h"

#include <QTest>

#include <atomic>
#include <future>
#include <thread>

using namespace vexa::test;

using Store = ZrToolXmlClass;

namespace {

const std::thread::id guiThread = std::this_thread::get_id();
std::atomic<int> waitsOfTheGuiThread = 0;
std::promise<void> letGo;
const std::shared_future<void> gate = letGo.get_future().share();

} // namespace

/// The program's own calls arrive here: a disk that takes a file when it is let go, and not before.
extern "C" int fsync(int /*descriptor*/) {
    if (std::this_thread::get_id() == guiThread)
        ++waitsOfTheGuiThread;
    else
        gate.wait();
    return 0;
}

class SettingsSlowDiskTest : public QObject {
    Q_OBJECT

private slots:
    void savesAreThereAtOnceAndInOrder() {
        userfile::clear();
        for (int size = 20; size < 60; ++size) { // as a slider's drag does
            Store::LaserPenSize = size;
            Store::ZrXmlWrite();
            QVERIFY(
                userfile::read().contains("<LaserPenSize>" + QByteArray::number(size) + "</LaserPenSize>"));
            Store::LaserPenSize = 0;
            Store::ZrXmlRead();
            QCOMPARE(Store::LaserPenSize, size);
        }
        QCOMPARE(waitsOfTheGuiThread.load(), 0);
        letGo.set_value();
        const QDir folder(QCoreApplication::applicationDirPath());
        QCOMPARE(folder.entryList({QStringLiteral("VexaPen*")}, QDir::Files | QDir::Hidden).size(), 1);
    }

    void cleanupTestCase() { userfile::clear(); }
};

QTEST_GUILESS_MAIN(SettingsSlowDiskTest)
#include "SettingsSlowDiskTest.moc"
