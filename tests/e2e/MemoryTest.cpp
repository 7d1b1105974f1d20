// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Sanitized.h"
#include "support/TestMain.h"

#include <QFile>

using namespace vexa::test;

namespace {

QByteArray processFile(qint64 pid, const char *name) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// What the process itself has in memory, in MiB. Pages of files count whole, however many programs use them.
double residentMebibytes(qint64 pid) {
    for (const QByteArray &line : processFile(pid, "smaps_rollup").split('\n'))
        if (line.startsWith("Rss:"))
            return line.mid(4).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

} // namespace

/// The memory of the real program, on a server without a graphics card.
class MemoryTest : public QObject {
    Q_OBJECT

private slots:
    void openGlIsNotLoadedWithoutACard();
    void hiddenPanelTakesLittle();
};

void MemoryTest::openGlIsNotLoadedWithoutACard() {
    e2e::Program program;
    QVERIFY(e2e::startAndSettle(program));
    const QByteArray loaded = processFile(program.pid(), "maps");
    QVERIFY(loaded.contains("libQt5Quick"));
    for (const char *library : {"libLLVM", "_dri.so", "libGLX_", "libqtgraphicaleffects"})
        QVERIFY2(!loaded.contains(library), library);
}

void MemoryTest::hiddenPanelTakesLittle() {
    e2e::Program program;
    QVERIFY(e2e::startAndSettle(program));
    const double taken = residentMebibytes(program.pid());
    qInfo("%.1f MiB", taken);
    QVERIFY(taken > 20);
    QVERIFY(addressSanitized || taken < 100);
}

VEXA_WIDGET_TEST_MAIN(MemoryTest)
#include "MemoryTest.moc"
