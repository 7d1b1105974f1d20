// SPDX-License-Identifier: MIT
//
// overlays-bench: what the held tools cost on the screen this is run on: the processor's share while the
// pointer moves and while it rests, the time from a key's command to the first pixel, and what is left in
// memory. Prints a table.
#include "Median.h"
#include "overlays/LightPen.h"
#include "overlays/Magnifie.h"
#include "overlays/ScreenPicture.h"
#include "overlays/Spolight2.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/ProcessMeter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QScreen>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

constexpr int seconds = 5;
constexpr int mouseInterval = 8; // 125 times a second
constexpr int openings = 20;
constexpr int manyOpenings = 200;
constexpr int warmUp = 10;

double processorSeconds() {
    return vexa::test::processorSeconds(QCoreApplication::applicationPid());
}

double residentMebibytes() {
    return vexa::test::residentMebibytes(QCoreApplication::applicationPid());
}

void runFor(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

QImage pixelAt(const QPoint &at) {
    return QGuiApplication::primaryScreen()->grabWindow(0, at.x(), at.y(), 1, 1).toImage();
}

template<typename Tool> Tool *open(QPixmap &picture) {
    auto *tool = new Tool;
    tool->Setbackground(&picture);
    tool->SetMousePress(true);
    vexa::platform::showOverPrimaryScreen(*tool);
    return tool;
}

template<typename Tool> double shareOfACore(bool moving) {
    QPixmap picture = vexa::pictureOfPrimaryScreen();
    QPointer<Tool> tool = open<Tool>(picture);
    runFor(500);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    double turn = 0;
    QTimer mouse;
    QObject::connect(&mouse, &QTimer::timeout, [&] {
        // Round and round at some 1,000 points a second, as far as the edges at times.
        turn += 0.012;
        tool->SetMouseMove(int(screen.width() * (0.5 + 0.45 * std::sin(turn))),
                           int(screen.height() * (0.5 + 0.45 * std::sin(1.3 * turn))));
    });
    if (moving)
        mouse.start(mouseInterval);
    QElapsedTimer time;
    const double before = processorSeconds();
    time.start();
    runFor(seconds * 1000);
    const double share = (processorSeconds() - before) / (double(time.elapsed()) / 1000);
    mouse.stop();
    tool->close();
    runFor(100);
    return 100 * share;
}

/// From the command (capture included) until the screen's pixel at the pointer is another one.
template<typename Tool> double millisecondsToFirstPixel(const QPoint &at) {
    std::vector<double> times;
    for (int round = 0; round < openings; ++round) {
        const QImage before = pixelAt(at);
        QElapsedTimer time;
        time.start();
        QPixmap picture = vexa::pictureOfPrimaryScreen();
        QPointer<Tool> tool = open<Tool>(picture);
        while (pixelAt(at) == before)
            QCoreApplication::processEvents();
        times.push_back(double(time.nsecsElapsed()) / 1e6);
        tool->close();
        runFor(100);
    }
    return bench::median(times);
}

double millisecondsToCapture() {
    std::vector<double> times;
    for (int round = 0; round < openings; ++round) {
        QElapsedTimer time;
        time.start();
        const QPixmap picture = vexa::pictureOfPrimaryScreen();
        times.push_back(double(time.nsecsElapsed()) / 1e6);
    }
    return bench::median(times);
}

template<typename Tool> double mebibytesLeft() {
    double early = 0;
    for (int round = 0; round < manyOpenings; ++round) {
        if (round == warmUp)
            early = residentMebibytes();
        QPixmap picture = vexa::pictureOfPrimaryScreen();
        QPointer<Tool> tool = open<Tool>(picture);
        tool->SetMouseMove(100 + round, 200);
        runFor(40);
        tool->close();
        while (tool)
            runFor(1);
    }
    return residentMebibytes() - early;
}

template<typename Tool> void row(const char *name, const QPoint &changed) {
    std::printf("%-22s %8.2f %% %8.2f %% %9.1f ms %9.1f MiB\n", name, shareOfACore<Tool>(true),
                shareOfACore<Tool>(false), millisecondsToFirstPixel<Tool>(changed), mebibytesLeft<Tool>());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ZrToolXmlClass::LaserPenSize = 13;
    ZrToolXmlClass::LaserPenColor = 22;
    ZrToolXmlClass::SportLightSize = 183;
    ZrToolXmlClass::SportLightTran = 132;
    ZrToolXmlClass::MagnifierSize = 177;
    ZrToolXmlClass::MagnifierColor = 890;

    // Something to capture: a flat screen would look like the tools' own pictures.
    QWidget desktop(nullptr, Qt::FramelessWindowHint);
    QLinearGradient gradient(0, 0, QGuiApplication::primaryScreen()->size().width(), 700);
    gradient.setColorAt(0, Qt::white);
    gradient.setColorAt(1, QColor(40, 160, 90));
    QPalette palette;
    palette.setBrush(QPalette::Window, gradient);
    desktop.setPalette(palette);
    vexa::platform::showOverPrimaryScreen(desktop);
    runFor(300);

    const QSize screen = QGuiApplication::primaryScreen()->size();
    const QPoint middle(screen.width() / 2, screen.height() / 2);
    QCursor::setPos(middle);
    std::printf("%d x %d, capture alone %.1f ms (median of %d)\n", screen.width(), screen.height(),
                millisecondsToCapture(), openings);
    std::printf("%-22s %10s %10s %12s %13s\n", "", "moving", "still", "first pixel", "200 openings");
    row<LightPen>("laser, 13", middle);
    row<Spolight2>("spotlight, 183", middle + QPoint(300, 0));
    row<Magnifie>("magnifier, 177", middle + QPoint(178, 0));
    return 0;
}
