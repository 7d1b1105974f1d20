// SPDX-License-Identifier: MIT
//
// ink-bench: what a sample of a stroke costs, and what drawing takes of a processor core. Times are processor
// times of this program alone, so that a busy machine does not change them much. Needs a screen
// (scripts/with-display) and xdotool, which moves the mouse.
#include "annotation/InkLayer.h"
#include "annotation/PizhuForm.h"
#include "platform/OverlayWindow.h"
#include "settings/ZrToolXmlClass.h"
#include "support/RecordedStrokes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPainter>
#include <QProcess>
#include <QScreen>
#include <QTimer>

#include <cstdio>
#include <ctime>

using namespace vexa::test;

namespace {

constexpr QSize layer(1920, 1080);
constexpr int checkpoints[] = {300, 1000, 5000};
constexpr int around = 100; // samples before and after a checkpoint that are averaged

double processorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

QPen pen() {
    return {QColor("#009EF8"), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// The cost of one more sample, in milliseconds, when the whole path is drawn again.
double wholePathCost(const std::vector<QPoint> &stroke, int samples) {
    QPainterPath path(stroke[0]);
    for (std::size_t i = 1; i < static_cast<std::size_t>(samples); ++i)
        path.quadTo(stroke[i - 1], (stroke[i - 1] + stroke[i]) / 2);
    QImage image(layer, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    constexpr int rounds = 5;
    const double begin = processorMilliseconds();
    for (int i = 0; i < rounds; ++i) {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(pen());
        painter.drawPath(path);
    }
    return (processorMilliseconds() - begin) / rounds;
}

std::vector<double> ownCosts(const std::vector<QPoint> &stroke) {
    vexa::InkLayer ink(layer, 1);
    ink.setPen(pen());
    ink.begin(stroke[0]);
    std::vector<double> costs;
    for (std::size_t i = 1; i < stroke.size(); ++i) {
        const double begin = processorMilliseconds();
        ink.extend(stroke[i]);
        costs.push_back(processorMilliseconds() - begin);
    }
    return costs;
}

double meanAround(const std::vector<double> &costs, int sample) {
    double sum = 0;
    for (int i = sample - around; i < sample + around; ++i)
        sum += costs[static_cast<std::size_t>(i)];
    return sum / (2 * around);
}

void costPerSample() {
    std::printf("Cost of a sample in ms of processor time, pen of 5 pixels, 1920x1080\n");
    std::printf("%-10s %22s %30s %14s\n", "", "whole path", "this program", "5000 / 300");
    std::printf("%-10s %7s %7s %7s %9s %9s %9s\n", "stroke", "300", "1000", "5000", "300", "1000", "5000");
    for (const char *kind : {"wave", "shaky", "zigzag", "scribble"}) {
        const auto stroke = recordedStroke(QString::fromLatin1(kind), 5000 + around + 1, layer);
        const auto costs = ownCosts(stroke);
        std::printf("%-10s", kind);
        for (const int samples : checkpoints)
            std::printf(" %7.2f", wholePathCost(stroke, samples));
        for (const int samples : checkpoints)
            std::printf(" %9.3f", meanAround(costs, samples));
        std::printf(" %13.2f\n", meanAround(costs, 5000) / meanAround(costs, 300));
    }
}

/// Draws with the real window and a real mouse: ten seconds at 125 samples a second, as one stroke.
void shareOfACore() {
    ZrToolXmlClass::PenThickness = 1;
    auto *form = new PizhuForm;
    auto *picture = new QPixmap(QGuiApplication::primaryScreen()->grabWindow(0));
    form->Setbackground(picture);
    vexa::platform::showOverPrimaryScreen(*form);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    const auto stroke = recordedStroke(QStringLiteral("wave"), 1250, {screen.width(), screen.height() - 220});

    QStringList hand{"mousemove", QString::number(stroke[0].x()), QString::number(stroke[0].y()), "mousedown",
                     "1"};
    for (const QPoint &point : stroke)
        hand << "mousemove" << QString::number(point.x()) << QString::number(point.y()) << "sleep"
             << "0.008";
    hand << "mouseup"
         << "1";
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec();

    QProcess mouse;
    QObject::connect(&mouse, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    QElapsedTimer wall;
    wall.start();
    const double begin = processorMilliseconds();
    mouse.start("xdotool", hand);
    loop.exec();
    const double used = processorMilliseconds() - begin;
    std::printf("\nDrawing %.1f s at %.0f samples a second on %dx%d: %.1f %% of a core\n",
                static_cast<double>(wall.elapsed()) / 1e3, 1250.0 * 1e3 / static_cast<double>(wall.elapsed()),
                screen.width(), screen.height(), used / static_cast<double>(wall.elapsed()) * 100);
    form->close();
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    costPerSample();
    shareOfACore();
    return 0;
}
