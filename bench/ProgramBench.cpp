// SPDX-License-Identifier: MIT
//
// program-bench: the real program on the current display, from the pen's chord to the pixel, its share of the
// processor and its memory, beside what no program can go below. Prints one figure a line: the screen, what
// was measured, its unit, the median, the lowest and the highest, between tabs; for times of those that the
// host did not disturb (see Samples.h), and how many that are of how many taken. scripts/bench makes the
// report of them.
#include "Floors.h"
#include "Median.h"
#include "Samples.h"
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/ProcessMeter.h"
#include "support/RealInput.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QScreen>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

using namespace vexa::test;

namespace {

constexpr int mostStarts = 2; // until a first opening is undisturbed
constexpr double watchedSeconds = 2.5;
constexpr int pointerRate = 125; // Hertz
constexpr double patience = 30;  // seconds

// Milliseconds.
constexpr int promptFades = 4000;
constexpr int toolSettles = 1200;
constexpr int memoryReturns = 5000;

double seconds(const QElapsedTimer &timer) {
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

/// Asks until the answer is yes; the seconds that took, or -1.
double until(const std::function<bool()> &answer) {
    QElapsedTimer timer;
    timer.start();
    while (!answer())
        if (seconds(timer) > patience)
            return -1;
    return seconds(timer);
}

void rest(int milliseconds) {
    QThread::msleep(static_cast<unsigned long>(milliseconds));
}

QSize screenSize() {
    return QGuiApplication::primaryScreen()->size();
}

QPoint middle() {
    return {screenSize().width() / 2, screenSize().height() / 2};
}

void print(const QString &what, const char *unit, double value) {
    std::printf("%dx%d\t%s\t%s\t%.2f\n", screenSize().width(), screenSize().height(), qPrintable(what), unit,
                value);
    std::fflush(stdout);
}

void print(const QString &what, const bench::Samples &samples) {
    std::vector<double> times = samples.undisturbed();
    const std::size_t count = times.size();
    if (times.empty())
        times.push_back(std::nan(""));
    const auto [low, high] = std::minmax_element(times.begin(), times.end());
    std::printf("%dx%d\t%s\tms\t%.2f\t%.2f\t%.2f\t%zu\t%d\n", screenSize().width(), screenSize().height(),
                qPrintable(what), bench::median(times), *low, *high, count, samples.taken());
    std::fflush(stdout);
}

/// A tool, the key that opens it, and where a pixel tells that it is there.
struct Tool {
    QString name;
    PenKey key;
    int heldTool;
    QPoint tellTale;

    bool isHeld() const { return key == PenKey::G; }
};

std::vector<Tool> allTools() {
    const QPoint exitButton(middle().x() + 80, screenSize().height() - 70);
    const QPoint besideItsCard = middle() + QPoint(300, 0);
    return {{"laser", PenKey::G, 2, middle()},
            {"spotlight", PenKey::G, 0, middle() + QPoint(400, 0)},
            {"magnifier", PenKey::G, 1, middle() + QPoint(178, 0)},
            {"annotation", PenKey::I, 2, exitButton},
            {"blackboard", PenKey::J, 2, besideItsCard}};
}

/// The share of one core that the process uses while something is done, in percent.
double share(qint64 pid, const std::function<void()> &something) {
    QElapsedTimer timer;
    timer.start();
    const double before = processorSeconds(pid);
    something();
    return 100 * (processorSeconds(pid) - before) / seconds(timer);
}

void circle() {
    const double radius = screenSize().height() / 3.0;
    const int steps = static_cast<int>(watchedSeconds * pointerRate);
    QElapsedTimer timer;
    timer.start();
    for (int step = 0; step < steps; ++step) {
        const double angle = 2 * M_PI * step / (2.0 * pointerRate);
        moveMouse(middle() + QPointF(radius * std::cos(angle), radius * std::sin(angle)).toPoint());
        const double due = (step + 1.0) / pointerRate - seconds(timer);
        if (due > 0)
            QThread::usleep(static_cast<unsigned long>(due * 1e6));
    }
}

void doNothing() {
    rest(static_cast<int>(watchedSeconds * 1000));
}

/// The program with the settings that a tool is measured with, hidden and at rest.
class Session {
public:
    explicit Session(const Tool &tool)
        : m_tool(tool)
        , m_program({{QStringLiteral("ShowPrivacyWindow"), 0},
                     {QStringLiteral("Key4P"), tool.heldTool},
                     {QStringLiteral("LaserPenSize"), 13},
                     {QStringLiteral("LaserPenColor"), 600},
                     {QStringLiteral("Key3P"), 3},
                     {QStringLiteral("Key4C"), 4},
                     {QStringLiteral("MagnifierSize"), 177},
                     {QStringLiteral("MagnifierColor"), 600},
                     {QStringLiteral("SportLightSize"), 183},
                     {QStringLiteral("SportLightTran"), 132}}) {
        m_ready = m_program.start() && until([this] { return e2e::hasWithdrawn(pid()); }) >= 0;
        rest(promptFades);
    }

    bool isReady() const { return m_ready; }
    qint64 pid() const { return m_program.pid(); }
    double memory() const { return proportionalMebibytes(pid()); }

    /// From the chord to the first pixel, in milliseconds, or -1.
    double open() const {
        typeChord(PenKey::M);
        moveMouse(middle());
        const QRgb before = e2e::pixelAt(m_tool.tellTale);
        QElapsedTimer timer;
        timer.start();
        typeChord(m_tool.key);
        const double waited = until([this, before] { return e2e::pixelAt(m_tool.tellTale) != before; });
        return waited < 0 ? -1 : seconds(timer) * 1000;
    }

    bool close() const {
        typeChord(PenKey::M);
        typeChord(m_tool.isHeld() ? PenKey::S : m_tool.key);
        return until([this] { return e2e::visibleWindowOfSize(pid(), screenSize()).id == 0; }) >= 0;
    }

private:
    const Tool &m_tool;
    e2e::Program m_program;
    bool m_ready = false;
};

bool takeOpening(const Session &session, bench::Samples &openings) {
    return openings.take([&session] { return session.open(); }) && session.close();
}

/// What the first opening after the start takes, from as many starts more as it needs to be undisturbed.
bool benchFirstOpening(const Tool &tool, bench::Samples &first) {
    while (first.undisturbed().empty() && first.taken() < mostStarts) {
        const Session session(tool);
        if (!session.isReady() || !takeOpening(session, first))
            return false;
    }
    print(tool.name + ", first opening", first);
    return true;
}

bool benchSession(const Tool &tool, bench::Samples &first) {
    const Session session(tool);
    if (!session.isReady())
        return false;
    const double hidden = session.memory();
    const double idle = share(session.pid(), doNothing);

    if (!takeOpening(session, first))
        return false;
    bench::Samples openings;
    while (!openings.areEnough())
        if (!takeOpening(session, openings))
            return false;
    session.open();
    rest(toolSettles);
    const double open = session.memory();
    print(tool.name + ", chord to pixel", openings);
    if (tool.isHeld()) {
        print(tool.name + ", nothing open", "% of a core", idle);
        print(tool.name + ", pointer still", "% of a core", share(session.pid(), doNothing));
        print(tool.name + ", pointer moving", "% of a core", share(session.pid(), circle));
    }
    if (!session.close())
        return false;
    rest(memoryReturns);
    print("memory before " + tool.name, "MiB", hidden);
    print("memory with " + tool.name, "MiB", open);
    print("memory after " + tool.name, "MiB", session.memory());
    return true;
}

bool benchTool(const Tool &tool) {
    bench::Samples first;
    return benchSession(tool, first) && benchFirstOpening(tool, first);
}

void benchFloors() {
    print("floor: toolkit's capture", bench::captures());
    print("floor: key to record", bench::roundTrips());
    print("floor: full repaint", bench::repaints());
    QProcess empty;
    empty.start(QStringLiteral(EMPTY_PROGRAM), QStringList());
    empty.waitForStarted();
    rest(promptFades);
    print("floor: empty program's memory", "MiB", proportionalMebibytes(empty.processId()));
    empty.kill();
    empty.waitForFinished();
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    // A wall that a veil can be told from, and that the server repaints by itself.
    QProcess::execute(QStringLiteral("xsetroot"), {QStringLiteral("-solid"), QStringLiteral("#8090A0")});
    benchFloors();
    for (const Tool &tool : allTools()) {
        if (!benchTool(tool)) {
            std::fprintf(stderr, "program-bench: the %s did not come or go\n", qPrintable(tool.name));
            return 1;
        }
    }
    return 0;
}
