// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/ServerResources.h"
#include "support/Patience.h"
#include "support/ProcessMeter.h"
#include "support/RealInput.h"
#include "support/Sanitized.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTest>

#include <cmath>
#include <functional>

using namespace vexa::test;

namespace {

constexpr int roundsToWarmUp = 6; ///< every tool twice, every language twice
constexpr int fewestRounds = 6;
constexpr double growth = 10; // MiB
const QSize wholeScreen(1920, 1080);

/// How long to go on after that.
int minutesToSoak = 0;

} // namespace

/// One process through a long day of presenting, without the pauses: what it takes of the machine stays.
class SoakTest : public QObject {
    Q_OBJECT

private slots:
    void whatItTakesOfTheMachineStays() {
        e2e::Program program({{"Key3P", 3}, {"Key4C", 4}, {"Key4P", 2}, {"Language", 2}});
        QVERIFY(e2e::startAndSettle(program));
        m_program = &program;
        const qint64 pid = program.pid();
        for (int round = 0; round < roundsToWarmUp; ++round)
            if (!present(round))
                QFAIL(m_failure.constData());
        const double memory = proportionalMebibytes(pid);
        const int descriptors = descriptorsOf(pid);
        const int threads = threadsOf(pid);
        const e2e::ServerResources inServer = e2e::serverResourcesOf(pid);
        qInfo("at first: %.1f MiB, %d descriptors, %d threads, %lld windows and %lld bytes of pixmaps in the "
              "server",
              memory, descriptors, threads, inServer.value("WINDOW"), inServer.value("bytes of pixmaps"));

        QElapsedTimer timer;
        timer.start();
        int rounds = 0;
        for (; rounds < fewestRounds || timer.elapsed() < minutesToSoak * 60000LL; ++rounds) {
            if (!present(rounds))
                QFAIL(m_failure.constData());
            if (rounds % 20 == 19)
                qInfo("%d rounds in %lld s: %.1f MiB", rounds + 1, timer.elapsed() / 1000,
                      proportionalMebibytes(pid));
        }
        const auto grown = [&] { return e2e::grown(inServer, e2e::serverResourcesOf(pid)); };
        QVERIFY2(QTest::qWaitFor([&] { return grown().isEmpty(); }, patience), qPrintable(grown().join(';')));
        QTRY_VERIFY_WITH_TIMEOUT(noMore(descriptors, descriptorsOf(pid)), patience);
        QTRY_VERIFY_WITH_TIMEOUT(noMore(threads, threadsOf(pid)), patience);
        qInfo("after %d rounds in %lld s: %.1f MiB", rounds, timer.elapsed() / 1000,
              proportionalMebibytes(pid));
        if (!addressSanitized)
            QTRY_VERIFY_WITH_TIMEOUT(proportionalMebibytes(pid) < memory + growth, patience);
        QVERIFY(program.isRunning());
    }

private:
    bool present(int round) {
        return choose(round) && hold() && draw(PenKey::I) && draw(PenKey::J) && shoot();
    }

    bool await(const char *what, const std::function<bool()> &condition) {
        if (QTest::qWaitFor(condition, patience))
            return true;
        m_failure = QByteArray("no ") + what;
        return false;
    }

    bool toolIsOpen() const { return e2e::visibleWindowOfSize(m_program->pid(), wholeScreen).id != 0; }

    /// The panel: another language, another held tool.
    bool choose(int round) {
        const qint64 pid = m_program->pid();
        if (m_program->runToTheEnd().how != "ended with 0" ||
            !await("panel", [=] { return e2e::panelOf(pid).id != 0; }))
            return false;
        const QPoint panel = e2e::panelOf(pid).geometry.topLeft();
        const QPoint tools = panel + QPoint(130, 238);
        const QPoint languages = panel + QPoint(875, 352);
        const bool chosen = press("key 4", panel + QPoint(308, 208), tools) &&
                            choose("Key4P", tools, round % 3) &&
                            press("settings", panel + QPoint(960, 607), languages) &&
                            choose("Language", languages, round % 3);
        clickAt(panel + QPoint(974, 24));
        return chosen && await("hidden panel", [=] { return e2e::panelOf(pid).id == 0; });
    }

    /// Clicks, and waits for an answer at another place, where neither the pointer nor a prompt changes
    /// anything.
    bool press(const char *what, const QPoint &place, const QPoint &answer) {
        const auto look = [&] {
            return e2e::grabScreen().copy(QRect(answer - QPoint(40, 10), QSize(80, 20)));
        };
        const QImage before = look();
        clickAt(place);
        return await(what, [&] { return look() != before; });
    }

    /// Opens a list and chooses one of its rows.
    bool choose(const char *setting, const QPoint &list, int value) {
        const QPoint row = list + QPoint(0, 30 * (value + 1));
        if (!press("list", list, row))
            return false;
        clickAt(row);
        return await(setting, [=] { return saved(setting, value); });
    }

    bool saved(const char *name, int value) const {
        return m_program->settingsFile().contains(QByteArray("<") + name + '>' + QByteArray::number(value) +
                                                  '<');
    }

    bool hold() {
        typeChord(PenKey::G);
        if (!await("held tool", [=] { return toolIsOpen(); }))
            return false;
        for (int i = 0; i < 40; ++i)
            moveMouse({300 + 30 * i, 540 + int(300 * std::sin(i / 5.0))});
        typeChord(PenKey::S);
        return await("end of the held tool", [=] { return !toolIsOpen(); });
    }

    /// Annotation or blackboard, with a stroke in each of two colours.
    bool draw(PenKey key) {
        typeChord(PenKey::M);
        typeChord(key);
        if (!await("drawing", [=] { return toolIsOpen(); }))
            return false;
        for (int stroke = 0; stroke < 2; ++stroke) {
            moveMouse({300, 300 + 200 * stroke});
            pressMouse();
            for (int i = 0; i < 40; ++i)
                moveMouse({300 + 20 * i, 300 + 200 * stroke + int(80 * std::sin(i / 3.0))});
            releaseMouse();
            typeChord(PenKey::Y);
        }
        typeChord(PenKey::M);
        typeChord(key);
        return await("end of the drawing", [=] { return !toolIsOpen(); });
    }

    bool shoot() {
        typeChord(PenKey::D);
        // Until it has the whole picture, the file goes by another name.
        const auto isWhole = [] {
            const QStringList files = e2e::screenshots();
            return files.size() == 1 && files.constFirst().endsWith(QLatin1String(".png")) &&
                   QImage(files.constFirst()).size() == wholeScreen;
        };
        const bool shot = await("screenshot", isWhole);
        return QDir(QDir::homePath() + QStringLiteral("/Desktop")).removeRecursively() && shot;
    }

    e2e::Program *m_program = nullptr;
    QByteArray m_failure;
};

/// A number of minutes may come first; the suite has no time for any.
int main(int argc, char *argv[]) {
    qputenv("QT_FONT_DPI", "72");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QStringList arguments = QApplication::arguments();
    if (arguments.size() > 1)
        minutesToSoak = arguments.takeAt(1).toInt();
    SoakTest test;
    return QTest::qExec(&test, arguments);
}
#include "SoakTest.moc"
