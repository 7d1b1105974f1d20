// SPDX-License-Identifier: MIT
#include "base/BackgroundSync.h"

#include "support/NoThreads.h"

#include <QTemporaryFile>
#include <QTest>
#include <QThread>

#include <future>
#include <memory>
#include <sys/stat.h>
#include <vector>

using vexa::BackgroundSync;
using namespace std::chrono_literals;
using vexa::test::NoThreads;

namespace {

ino_t fileOf(int descriptor) {
    struct stat status {};
    fstat(descriptor, &status);
    return status.st_ino;
}

/// A disk that writes down which files it has got, and takes the first one only when it is let go.
struct SlowDisk {
    std::promise<void> letGo;
    std::vector<ino_t> files; // of the sync's thread until that has ended

    vexa::DiskSync sync() {
        return [this, gate = letGo.get_future().share()](int descriptor) {
            gate.wait();
            files.push_back(fileOf(descriptor));
            return true;
        };
    }
};

} // namespace

class BackgroundSyncTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_files.clear();
        for (int i = 0; i < 3; ++i) {
            m_files.push_back(std::make_unique<QTemporaryFile>());
            QVERIFY(m_files.back()->open());
        }
    }

    void aDiskInTimeIsBelieved_data() {
        QTest::addColumn<bool>("answer");
        QTest::newRow("takes it") << true;
        QTest::newRow("refuses it") << false;
    }

    void aDiskInTimeIsBelieved() {
        QFETCH(bool, answer);
        ino_t got = 0;
        BackgroundSync sync(60s, [&](int descriptor) {
            got = fileOf(descriptor);
            return answer;
        });
        for (std::size_t i = 0; i < 3; ++i) {
            QCOMPARE(sync(file(i)), answer);
            QCOMPARE(got, fileOf(file(i)));
        }
    }

    void aSlowDiskIsNotWaitedFor() {
        SlowDisk disk;
        BackgroundSync sync(1ms, disk.sync());
        QVERIFY(sync(file(0))); // would never return if it waited
        disk.letGo.set_value();
    }

    void theLatestFileComesToTheDisk() {
        SlowDisk disk;
        std::promise<void> reached;
        {
            BackgroundSync sync(1ms, [&reached, busy = false, next = disk.sync()](int descriptor) mutable {
                if (!std::exchange(busy, true))
                    reached.set_value();
                return next(descriptor);
            });
            QVERIFY(sync(file(0)));
            reached.get_future().wait();
            QVERIFY(sync(file(1)));
            QVERIFY(sync(file(2)));
            disk.letGo.set_value();
        }
        QCOMPARE(disk.files, (std::vector<ino_t>{fileOf(file(0)), fileOf(file(2))}));
    }

    void theEndWaitsForTheDisk() {
        SlowDisk disk;
        std::future<void> release;
        {
            BackgroundSync sync(1ms, disk.sync());
            QVERIFY(sync(file(0)));
            m_files[0]->close(); // the caller's; the disk still gets it
            release = std::async(std::launch::async, [&disk] { disk.letGo.set_value(); });
        }
        QCOMPARE(disk.files.size(), std::size_t(1));
    }

    void withoutAThreadTheDiskIsWaitedFor_data() { aDiskInTimeIsBelieved_data(); }
    void withoutAThreadTheDiskIsWaitedFor() {
        QFETCH(bool, answer);
        const NoThreads noThreads;
        int files = 0;
        BackgroundSync sync(1ms, [&](int) {
            QThread::msleep(20);
            ++files;
            return answer;
        });
        QCOMPARE(sync(file(0)), answer);
        QCOMPARE(sync(file(1)), answer);
        QCOMPARE(files, 2);
    }

    void whatWasNeverUsedEndsAtOnce() { const BackgroundSync sync(1ms); }

private:
    int file(std::size_t index) const { return m_files.at(index)->handle(); }

    std::vector<std::unique_ptr<QTemporaryFile>> m_files;
};

QTEST_GUILESS_MAIN(BackgroundSyncTest)
#include "BackgroundSyncTest.moc"
