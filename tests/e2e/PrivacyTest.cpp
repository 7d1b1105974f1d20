// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

#include <array>
#include <csignal>
#include <unistd.h>

using namespace vexa::test;

namespace {

/// The letters of the three rows, in an order of their own, as X key codes: what a password would be.
constexpr int secret[] = {24, 55, 33, 52, 26, 40, 46, 41, 57, 32, 28, 54, 38, 56, 45, 30, 27, 43, 53, 25};

/// All of them within what the panel can show, so that it leaves them as they are.
e2e::Program::Settings choices() {
    e2e::Program::Settings choices;
    for (const auto &[name, value] : {std::pair{"Key2P", 1},
                                      {"Key3P", 3},
                                      {"Key4C", 4},
                                      {"Key4P", 2},
                                      {"PenColor0", 2},
                                      {"PenColor1", 1},
                                      {"PenColor2", 0},
                                      {"PenThickness", 1},
                                      {"LaserPenSize", 13},
                                      {"LaserPenColor", 22},
                                      {"MagnifierSize", 177},
                                      {"MagnifierColor", 890},
                                      {"SportLightSize", 183},
                                      {"SportLightTran", 132},
                                      {"AutoStart", 0},
                                      {"Language", 0},
                                      {"ShowPrivacyWindow", 0}})
        choices.insert(QLatin1String(name), value);
    return choices;
}

/// Every file below the folder with its content, so that a new one shows as well as a changed one.
QMap<QString, QByteArray> filesBelow(const QString &folder) {
    QMap<QString, QByteArray> files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        QFile file(all.next());
        if (QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly))
            files.insert(file.fileName(), QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha1));
    }
    return files;
}

/// The sockets that a process holds, by the system's numbers.
QSet<QByteArray> socketsOf(qint64 pid) {
    static const QRegularExpression socket(QStringLiteral("^socket:\\[(\\d+)\\]$"));
    QSet<QByteArray> sockets;
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(pid));
    for (const QString &name : descriptors.entryList(QDir::AllEntries | QDir::System)) {
        std::array<char, 100> target{};
        const QByteArray path = QFile::encodeName(descriptors.filePath(name));
        if (readlink(path.constData(), target.data(), target.size() - 1) < 0)
            continue;
        const auto match = socket.match(QString::fromLatin1(target.data()));
        if (match.hasMatch())
            sockets.insert(match.captured(1).toLatin1());
    }
    return sockets;
}

/// The sockets of all processes that do not leave this machine.
QSet<QByteArray> localSockets() {
    constexpr int numberColumn = 6;
    QFile table(QStringLiteral("/proc/net/unix"));
    QSet<QByteArray> sockets;
    if (!table.open(QIODevice::ReadOnly))
        return sockets;
    for (const QByteArray &line : table.readAll().split('\n'))
        sockets.insert(line.simplified().split(' ').value(numberColumn));
    return sockets;
}

bool hasOpenTool(const e2e::Program &program) {
    return e2e::visibleWindowOfSize(program.pid(), QSize(1920, 1080)).id != 0;
}

} // namespace

/// The program sees all that is typed, passwords too. Nothing of it may be left anywhere.
class PrivacyTest : public QObject {
    Q_OBJECT

private slots:
    void whatIsTypedLeavesNoTrace() {
        e2e::Program program(choices());
        const QByteArray written = program.settingsFile();
        QVERIFY(e2e::startAndSettle(program));
        // The panel echoes the choices it is shown. The first echo brings the file into the program's own
        // form, in which no later one finds anything to change.
        QTRY_VERIFY_WITH_TIMEOUT(program.settingsFile() != written, patience);
        const auto before = filesBelow(program.folder());
        QVERIFY(!before.isEmpty());
        const auto homeBefore = filesBelow(QDir::homePath());

        for (const int key : secret)
            typeKey(key);
        // Keys are heard in their order: when the pen's has been, so have those before it.
        typeChord(PenKey::G);
        const auto toolIsOpen = [&] { return hasOpenTool(program); };
        QTRY_VERIFY_WITH_TIMEOUT(toolIsOpen(), patience);
        typeChord(PenKey::S);
        QTRY_VERIFY_WITH_TIMEOUT(!toolIsOpen(), patience);

        QCOMPARE(filesBelow(program.folder()), before);
        QCOMPARE(filesBelow(QDir::homePath()), homeBefore);
        program.signal(SIGTERM);
        const auto end = program.waitForEnd();
        QCOMPARE(end.errors, QByteArray());
        QCOMPARE(end.output, QByteArray());
        QCOMPARE(filesBelow(program.folder()), before);
        QCOMPARE(filesBelow(QDir::homePath()), homeBefore);
    }

    void itHasNoConnectionToAnyNetwork() {
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        typeChord(PenKey::G);
        const auto toolIsOpen = [&] { return hasOpenTool(program); };
        QTRY_VERIFY_WITH_TIMEOUT(toolIsOpen(), patience);

        // All it has are those of this machine: to the X server and to the session bus.
        const QSet<QByteArray> sockets = socketsOf(program.pid());
        QVERIFY(!sockets.isEmpty());
        const QSet<QByteArray> local = localSockets();
        for (const QByteArray &socket : sockets)
            QVERIFY2(local.contains(socket), socket.constData());
    }
};

VEXA_WIDGET_TEST_MAIN(PrivacyTest)
#include "PrivacyTest.moc"
