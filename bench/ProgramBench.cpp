// SPDX-License-Identifier: MIT
//
// program-bench: the real program on the current display, from the pen's chord to the pixel, as a table. Run
// it through scripts/bench, which brings displays of 1080p and 4K.
#include "Median.h"
#include "ProcessMeter.h"

#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/RealInput.h"

#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QPixmap>
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

using bench::median;

constexpr int rounds = 20;
constexpr double watchedSeconds = 5;
constexpr int pointerRate = 125; // Hertz
constexpr double patience = 30;  // seconds

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

double medianCaptureMilliseconds() {
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        QGuiApplication::primaryScreen()->grabWindow(0);
        times.push_back(seconds(timer) * 1000);
    }
    return median(times);
}

/// One held tool: where a pixel tells that it is there, seen from the pointer.
struct Tool {
    const char *name;
    int code;
    QPoint tellTale;
};

const Tool tools[] = {{"laser", 2, {0, 0}}, {"spotlight", 0, {400, 0}}, {"magnifier", 1, {178, 0}}};

/// The share of one core that the process uses while something is done, in percent.
double share(qint64 pid, const std::function<void()> &something) {
    QElapsedTimer timer;
    timer.start();
    const double before = bench::processorSeconds(pid);
    something();
    return 100 * (bench::processorSeconds(pid) - before) / seconds(timer);
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

class Session {
public:
    explicit Session(int toolCode)
        : m_program({{QStringLiteral("ShowPrivacyWindow"), 0},
                     {QStringLiteral("Key4P"), toolCode},
                     {QStringLiteral("LaserPenSize"), 13},
                     {QStringLiteral("LaserPenColor"), 600},
                     {QStringLiteral("Key3P"), 3},
                     {QStringLiteral("Key4C"), 4},
                     {QStringLiteral("MagnifierSize"), 177},
                     {QStringLiteral("MagnifierColor"), 600},
                     {QStringLiteral("SportLightSize"), 183},
                     {QStringLiteral("SportLightTran"), 132}}) {
        m_ready = m_program.start() &&
                  until([this] { return e2e::windowsOf(m_program.pid()).size() >= 3; }) >= 0 &&
                  until([this] { return e2e::panelOf(m_program.pid()).id == 0; }) >= 0;
        rest(4000); // the start-up prompt fades for three seconds
    }

    bool isReady() const { return m_ready; }
    qint64 pid() const { return m_program.pid(); }
    bool hasOverlay() const { return e2e::visibleWindowOfSize(pid(), screenSize()).id != 0; }

    /// From the chord to the first pixel, in milliseconds, or -1.
    double open(const Tool &tool, const QPoint &at = middle()) const {
        moveMouse(at);
        const QPoint probe = at + tool.tellTale;
        const QRgb before = e2e::pixelAt(probe);
        QElapsedTimer timer;
        timer.start();
        typeChord(PenKey::G);
        const double waited = until([probe, before] { return e2e::pixelAt(probe) != before; });
        return waited < 0 ? -1 : seconds(timer) * 1000;
    }

    bool close() const {
        typeChord(PenKey::S);
        return until([this] { return !hasOverlay(); }) >= 0;
    }

private:
    e2e::Program m_program;
    bool m_ready = false;
};

bool benchTool(const Tool &tool, double capture) {
    const Session session(tool.code);
    if (!session.isReady())
        return false;
    const double idle = share(session.pid(), doNothing);

    std::vector<double> openings;
    for (int round = 0; round < rounds; ++round) {
        openings.push_back(session.open(tool));
        if (openings.back() < 0 || !session.close())
            return false;
    }
    const double opening = median(openings);

    session.open(tool);
    rest(1200);
    const double still = share(session.pid(), doNothing);
    const double moving = share(session.pid(), circle);
    if (!session.close())
        return false;
    std::printf("%-10s %9.1f %9.1f %+9.1f %8.2f %8.2f %8.2f\n", tool.name, capture, opening,
                opening - capture, idle, still, moving);
    return true;
}

QStringList shots() {
    QStringList files;
    QDirIterator found(QDir::homePath() + QStringLiteral("/Desktop/Vexa Orbilo"), {QStringLiteral("*.png")},
                       QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext())
        files += found.next();
    return files;
}

/// The laser once more, while a picture of the screen is on its way to the disk.
bool benchOpeningDuringAShot() {
    const Tool &laser = tools[0];
    const Session session(laser.code);
    if (!session.isReady() || !shots().isEmpty())
        return false;
    std::vector<double> openings;
    int inTime = 0;
    for (int round = 0; round < rounds; ++round) {
        const QRgb before = e2e::pixelAt(middle());
        typeChord(PenKey::D);
        // The prompt tells that the picture has been taken.
        if (until([before] { return e2e::pixelAt(middle()) != before; }) < 0)
            return false;
        openings.push_back(session.open(laser, middle() - QPoint(600, 300)));
        inTime += shots().isEmpty() ? 1 : 0;
        if (openings.back() < 0 || !session.close() || until([] { return !shots().isEmpty(); }) < 0)
            return false;
        QFile::remove(shots().constFirst());
        rest(1500); // the prompt fades
    }
    std::printf(
        "\nThe laser's chord to pixel while a screenshot is written: %.1f (the file came later in %d of "
        "%d)\n",
        median(openings), inTime, rounds);
    return true;
}

/// A tool by the key that opens it and the place where a click closes it.
struct Opening {
    const char *name;
    PenKey key;
    int heldTool;
    QPoint wayOut;
};

std::vector<Opening> allOpenings() {
    const QPoint exitButton((screenSize().width() - 60) / 2 + 80 + 30, screenSize().height() - 100 + 30);
    return {{"laser", PenKey::G, 2, middle()},
            {"spotlight", PenKey::G, 0, middle()},
            {"magnifier", PenKey::G, 1, middle()},
            {"annotation", PenKey::I, 2, exitButton},
            {"blackboard", PenKey::J, 2, exitButton}};
}

bool openAndClose(const Session &session, const Opening &tool, bool byClick) {
    typeChord(PenKey::M);
    typeChord(tool.key);
    if (until([&] { return session.hasOverlay(); }) < 0)
        return false;
    moveMouse(tool.wayOut);
    rest(100); // a held tool follows the pointer, and its window is there for the click
    if (byClick) {
        click();
    } else {
        typeChord(PenKey::M);
        typeChord(tool.key == PenKey::G ? PenKey::S : tool.key);
    }
    return until([&] { return !session.hasOverlay(); }) >= 0;
}

bool benchMemory(const Opening &tool) {
    const Session session(tool.heldTool);
    if (!session.isReady())
        return false;
    std::printf("%-10s", tool.name);
    for (int round = 1; round <= 200; ++round) {
        if (!openAndClose(session, tool, round % 10 != 0))
            return false;
        if (round == 10 || round == 50 || round == 100 || round == 200) {
            rest(500); // the window is off the screen before it is gone
            std::printf(" %8.1f", bench::residentMebibytes(session.pid()));
        }
    }
    std::printf("\n");
    std::fflush(stdout);
    return true;
}

bool benchMemory() {
    std::printf(
        "\nResident memory in MiB after so many openings, every tenth closed by the pen and the others "
        "by a click\n%-10s %8d %8d %8d %8d\n",
        "", 10, 50, 100, 200);
    const std::vector<Opening> openings = allOpenings();
    return std::all_of(openings.begin(), openings.end(),
                       [](const Opening &tool) { return benchMemory(tool); });
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    // A wall that a veil can be told from, and that the server repaints by itself.
    QProcess::execute(QStringLiteral("xsetroot"), {QStringLiteral("-solid"), QStringLiteral("#8090A0")});
    std::printf("The program on a screen of %d x %d; times in milliseconds (medians of %d), shares in %% of "
                "one core\n\n",
                screenSize().width(), screenSize().height(), rounds);
    std::printf("%-10s %9s %9s %9s %8s %8s %8s\n", "tool", "capture", "chord to", "less the", "idle",
                "pointer", "pointer");
    std::printf("%-10s %9s %9s %9s %8s %8s %8s\n", "", "alone", "pixel", "capture", "", "still", "moving");
    const double capture = medianCaptureMilliseconds();
    for (const Tool &tool : tools) {
        if (!benchTool(tool, capture)) {
            std::fprintf(stderr, "program-bench: the %s did not come or go\n", tool.name);
            return 1;
        }
    }
    if (!benchOpeningDuringAShot()) {
        std::fprintf(stderr, "program-bench: a screenshot or the laser did not come\n");
        return 1;
    }
    if (!benchMemory()) {
        std::fprintf(stderr, "program-bench: an opening or closing failed\n");
        return 1;
    }
    return 0;
}
