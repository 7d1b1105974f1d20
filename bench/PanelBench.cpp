// SPDX-License-Identifier: MIT
//
// panel-bench: what the settings panel costs: its start next to that of an empty view with the same imports,
// and the time of the GUI thread that opening a view, moving a slider and a storm of changes take. Prints
// tables and judges nothing.
//
// The start is that of a process of its own, which is why the program calls itself with the view to show.
#include "Median.h"
#include "app/QuickViews.h"
#include "platform/GraphicsCard.h"
#include "platform/Session.h"
#include "settings/Choices.h"
#include "settings/ViewMessage.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QProcess>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

const QString panelDocument = QStringLiteral("qrc:/MainWindow.qml");
const QString emptyDocument = QStringLiteral("file:" EMPTY_PANEL);
using bench::median;
using vexa::HeldToolChoice;
using vexa::ViewMessage;

constexpr int starts = 15;
constexpr int repetitions = 40;

/// Milliseconds of processor time that this thread has used: what it would take on a machine left alone.
double threadTime() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1e3 * static_cast<double>(now.tv_sec) + 1e-6 * static_cast<double>(now.tv_nsec);
}

void push(QObject *root, ViewMessage message, int value) {
    QMetaObject::invokeMethod(root, "setvalue", Q_ARG(QVariant, int(message)), Q_ARG(QVariant, value),
                              Q_ARG(QVariant, 0));
}

void fill(QObject *root) {
    const std::vector<int> values = {132, 183, 890, 177, 22, 13, 2, 1, 0, 1, 1, 3, 4, 0, 0, 1};
    for (std::size_t i = 0; i < values.size(); ++i)
        push(root, ViewMessage(static_cast<int>(vexa::firstSettingMessage) + static_cast<int>(i)),
             values.at(i));
}

/// Shows a view in this process until its first complete frame.
int showOnce(const QString &document) {
    QQuickWidget view;
    vexa::loadView(view, document);
    if (view.rootObject() == nullptr)
        return 1;
    if (document == panelDocument)
        fill(view.rootObject());
    QObject::connect(view.quickWindow(), &QQuickWindow::afterRendering, &view, [] {
        std::puts("drawn");
        std::fflush(stdout);
        QApplication::quit();
    });
    view.show();
    return QApplication::exec();
}

double startOf(const QString &document) {
    QElapsedTimer clock;
    clock.start();
    QProcess process;
    process.start(QApplication::applicationFilePath(), {document});
    const bool drawn = process.waitForReadyRead();
    const double milliseconds = static_cast<double>(clock.nsecsElapsed()) * 1e-6;
    process.waitForFinished();
    if (!drawn) {
        std::fprintf(stderr, "panel-bench: %s does not start\n", qPrintable(document));
        std::exit(1);
    }
    return milliseconds;
}

void measureStart() {
    std::vector<double> panel;
    std::vector<double> empty;
    std::vector<double> ratio;
    startOf(panelDocument); // fills the caches of files and shaders for both
    startOf(emptyDocument);
    for (int i = 0; i < starts; ++i) {
        panel.push_back(startOf(panelDocument));
        empty.push_back(startOf(emptyDocument));
        ratio.push_back(panel.back() / empty.back());
    }
    std::printf("start of the process to its first frame (%d times, side by side)\n", starts);
    for (const auto &[name, values] : {std::pair("panel", &panel), std::pair("empty view", &empty)})
        std::printf("  %-12s median %6.1f   least %6.1f ms\n", name, median(*values),
                    *std::min_element(values->begin(), values->end()));
    std::printf("  ratio        %.2f\n\n", median(ratio));
}

/// One view, on the screen, and what its GUI thread spends on what is done to it.
class Bench {
public:
    Bench() {
        vexa::loadView(m_view, panelDocument);
        QObject::connect(m_view.quickWindow(), &QQuickWindow::afterRendering, &m_view,
                         [this] { ++m_frames; });
        m_view.show();
        fill(root());
        untilDrawn();
        // A frame with what the first one left to do is not the price of what is measured next.
        m_frames = 0;
        m_view.quickWindow()->update();
        untilDrawn();
    }

    QObject *root() { return m_view.rootObject(); }

    void mouse(QEvent::Type type, const QPoint &place, Qt::MouseButtons buttons) {
        QMouseEvent event(type, place, m_view.mapToGlobal(place),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, {});
        QApplication::sendEvent(&m_view, &event);
    }
    void click(const QPoint &place) {
        mouse(QEvent::MouseButtonPress, place, Qt::LeftButton);
        mouse(QEvent::MouseButtonRelease, place, {});
    }

    /// Milliseconds from an action until its frame is drawn, waiting not counted.
    template<typename Action> double cost(Action action) {
        const double begin = threadTime();
        m_frames = 0;
        action();
        untilDrawn();
        return threadTime() - begin;
    }

private:
    void untilDrawn() {
        while (m_frames == 0)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    QQuickWidget m_view;
    int m_frames = 0;
};

void report(const char *what, const std::vector<double> &values) {
    std::printf("  %-36s first %6.2f   median %6.2f   most of the others %6.2f ms\n", what, values.front(),
                median(values), *std::max_element(values.begin() + 1, values.end()));
}

void measureFrames() {
    const QPoint key1(691, 469);
    const QPoint key4(308, 208);
    Bench bench;
    std::vector<double> openKey1;
    std::vector<double> openKey4;
    std::vector<double> close;
    for (int i = 0; i < repetitions; ++i) {
        openKey1.push_back(bench.cost([&] { bench.click(key1); }));
        openKey4.push_back(bench.cost([&] { bench.click(key4); }));
        close.push_back(bench.cost([&] { bench.click(key4); }));
    }
    std::printf("GUI thread, action to drawn frame (processor time, %d times)\n", repetitions);
    report("opening key 1's view", openKey1);
    report("opening key 4's view in its place", openKey4);
    report("closing it", close);

    bench.click(key4);
    for (const auto &[tool, name] : {std::pair(HeldToolChoice::Spotlight, "spotlight darkness"),
                                     std::pair(HeldToolChoice::Magnifier, "lens colour"),
                                     std::pair(HeldToolChoice::Laser, "laser colour")}) {
        push(bench.root(), ViewMessage::Key4P, static_cast<int>(tool));
        std::vector<double> moves;
        moves.reserve(repetitions);
        bench.mouse(QEvent::MouseButtonPress, {80, 474}, Qt::LeftButton);
        for (int i = 0; i < repetitions; ++i) {
            moves.push_back(bench.cost([&] {
                bench.mouse(QEvent::MouseMove, {84 + 3 * i, 474}, Qt::LeftButton);
            }));
        }
        bench.mouse(QEvent::MouseButtonRelease, {84 + 3 * repetitions, 474}, {});
        report(name, moves);
    }

    const double storm = bench.cost([&] {
        for (int value = 1; value <= 1000; ++value)
            push(bench.root(), ViewMessage::LaserPenColor, value);
    });
    std::printf("  a storm of 1,000 slider changes and its frame %.1f ms in all\n", storm);
}

} // namespace

int main(int argc, char *argv[]) {
    vexa::platform::prepareSession();
    QApplication application(argc, argv);
    vexa::platform::releaseEnvironment();
    vexa::chooseRenderer(vexa::platform::graphicsCardDraws());
    if (argc == 2)
        return showOnce(QString::fromLocal8Bit(argv[1]));
    measureStart();
    measureFrames();
    return 0;
}
