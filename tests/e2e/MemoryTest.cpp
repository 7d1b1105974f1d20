// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/ServerResources.h"
#include "support/Patience.h"
#include "support/ProcessMeter.h"
#include "support/RealInput.h"
#include "support/Sanitized.h"
#include "support/TestMain.h"

#include <QFile>

using namespace vexa::test;

namespace {

const QSize screen(1920, 1080);
constexpr double screenPicture = 1920.0 * 1080 * 4 / (1 << 20); // MiB

// MiB.
constexpr double allowedWhileHidden = 100;
constexpr double allowedWithATool = 130;
constexpr double allowedAfterUse = 2.5;

/// The toolkit keeps the last eight cursors that were made of pictures.
e2e::ServerResources onServerFor(const e2e::Program &program) {
    constexpr int keptCursors = 8, usualCursors = 4;
    e2e::ServerResources resources = e2e::serverResourcesOf(program.pid());
    if (resources.value("CURSOR") <= keptCursors + usualCursors)
        resources.remove("CURSOR");
    return resources;
}

bool isAnyToolOpen(const e2e::Program &program) {
    return e2e::visibleWindowOfSize(program.pid(), screen).id != 0;
}

/// A burst: tools that are opened before any of them closes.
struct Use {
    PenKey key;
    int heldTool;
    int tools;
};

void open(const Use &use) {
    for (int tool = 0; tool < use.tools; ++tool) {
        typeChord(PenKey::M);
        typeChord(use.key);
    }
}

void close(const Use &use) {
    typeChord(PenKey::M);
    typeChord(use.key == PenKey::G ? PenKey::S : use.key);
}

} // namespace

Q_DECLARE_METATYPE(Use)

/// The memory of the real program and what the server keeps for it, on a server without a graphics card. The
/// sanitizers' own memory says nothing about the program's: with them only the server is looked at.
class MemoryTest : public QObject {
    Q_OBJECT

private slots:
    void openGlIsNotLoadedWithoutACard() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        QFile maps(QStringLiteral("/proc/%1/maps").arg(program.pid()));
        QVERIFY(maps.open(QIODevice::ReadOnly));
        const QByteArray loaded = maps.readAll();
        QVERIFY(loaded.contains("libQt5Quick"));
        for (const char *library : {"libLLVM", "_dri.so", "libGLX_", "libqtgraphicaleffects"})
            QVERIFY2(!loaded.contains(library), library);
    }

    void memoryReturnsAfterUse_data() {
        QTest::addColumn<Use>("use");
        QTest::newRow("annotation") << Use{PenKey::I, 2, 1};
        QTest::newRow("blackboard") << Use{PenKey::J, 2, 1};
        QTest::newRow("spotlight") << Use{PenKey::G, 0, 1};
        QTest::newRow("magnifier") << Use{PenKey::G, 1, 1};
        QTest::newRow("laser") << Use{PenKey::G, 2, 1};
        QTest::newRow("thirty spotlights") << Use{PenKey::G, 0, 30};
    }
    void memoryReturnsAfterUse() {
        QFETCH(Use, use);
        e2e::Program program({{"Key4P", use.heldTool}, {"Key3P", 3}});
        QVERIFY(e2e::startAndSettle(program));
        const double hidden = residentMebibytes(program.pid());
        QVERIFY(hidden > screenPicture);
        QVERIFY(addressSanitized || hidden < allowedWhileHidden);

        e2e::ServerResources onServer;
        for (int round = 0; round < 3; ++round) {
            open(use);
            QTRY_VERIFY_WITH_TIMEOUT(isAnyToolOpen(program), patience);
            const double opened = residentMebibytes(program.pid());
            QVERIFY(addressSanitized || use.tools > 1 || opened < allowedWithATool);
            close(use);
            QTRY_VERIFY_WITH_TIMEOUT(!isAnyToolOpen(program), patience);
            QTRY_VERIFY_WITH_TIMEOUT(
                addressSanitized || residentMebibytes(program.pid()) < hidden + allowedAfterUse, patience);
            qInfo("hidden %.1f, open %.1f, hidden again %.1f MiB", hidden, opened,
                  residentMebibytes(program.pid()));
            // What the first tool of all leaves behind is there to stay.
            if (round == 0)
                onServer = onServerFor(program);
            QTRY_COMPARE_WITH_TIMEOUT(e2e::grown(onServer, onServerFor(program)), QStringList(), patience);
        }
    }
};

VEXA_WIDGET_TEST_MAIN(MemoryTest)
#include "MemoryTest.moc"
