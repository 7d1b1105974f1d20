// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <cmath>

using namespace vexa::test;

namespace {

constexpr int radius = 20;
const QRgb dotColour = qRgb(0, 255, 90); // what the slider's 600 stands for

bool setDesktopResolution(int dotsPerInch) {
    QProcess xrdb;
    xrdb.start(QStringLiteral("xrdb"),
               {QStringLiteral("-nocpp"), QStringLiteral("-load"), QStringLiteral("-")});
    xrdb.write("Xft.dpi: " + QByteArray::number(dotsPerInch) + '\n');
    xrdb.closeWriteChannel();
    return xrdb.waitForFinished(-1) && xrdb.exitCode() == 0;
}

} // namespace

/// From the pen's chord to the dot on the screen, and back.
class LaserTest : public QObject {
    Q_OBJECT

private slots:
    void holdingKeyFourPutsADotUnderThePointer_data() {
        QTest::addColumn<int>("resolution");
        QTest::addColumn<double>("pixelsPerPoint");
        QTest::newRow("usual desktop") << 96 << 1.0;
        QTest::newRow("desktop of half as much again") << 144 << 1.5;
    }

    void holdingKeyFourPutsADotUnderThePointer() {
        QFETCH(int, resolution);
        QFETCH(double, pixelsPerPoint);
        QVERIFY(setDesktopResolution(resolution));
        e2e::Program program({{"Key4P", 2}, {"LaserPenSize", radius}, {"LaserPenColor", 600}});
        QVERIFY(e2e::startAndSettle(program, pixelsPerPoint));

        const QPoint first(400, 300);
        const QPoint second(1200, 700);
        moveMouse(first);
        const QRgb empty = e2e::pixelAt(first);
        QVERIFY(empty != dotColour);

        typeChord(PenKey::G);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(first), dotColour, patience);
        const int pixels = qRound(radius * pixelsPerPoint);
        for (const QPoint &direction : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            // The first frame comes in bands of rows, one after the other.
            QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(first + direction * (pixels - 2)), dotColour, patience);
            QCOMPARE(e2e::pixelAt(first + direction * (pixels + 2)), empty);
        }

        moveMouse(second);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(second), dotColour, patience);
        QCOMPARE(e2e::pixelAt(first), empty);

        // At the edges the pointer is kept four points inside the screen, and the dot with it.
        const int margin = qRound(4 * pixelsPerPoint);
        const struct {
            QPoint pushedTo, kept;
        } edges[] = {{{1, 500}, {margin, 500}},
                     {{0, 0}, {margin, margin}},
                     {{1919, 1079}, {1920 - margin, 1080 - margin}}};
        for (const auto &edge : edges) {
            moveMouse(edge.pushedTo);
            QTRY_COMPARE_WITH_TIMEOUT(mousePosition(), edge.kept, patience);
            QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(edge.kept), dotColour, patience);
            QCOMPARE(e2e::pixelAt(edge.kept + QPoint(0, edge.kept.y() < 540 ? 1 : -1) * (pixels + 2)), empty);
        }
        moveMouse(second);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(second), dotColour, patience);

        typeChord(PenKey::S);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt(second), empty, patience);
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::visibleWindowOfSize(program.pid(), QSize(1920, 1080)).id, patience);
        QVERIFY(program.isRunning());
    }

    void itComesWhileThePanelIsClosed() {
        QVERIFY(setDesktopResolution(96));
        e2e::Program program({{"Key4P", 2}, {"LaserPenColor", 600}});
        QVERIFY(e2e::startAndSettle(program));
        QCOMPARE(program.runToTheEnd().how, QByteArray("ended with 0"));
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        e2e::askToClose(e2e::panelOf(program.pid()));
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);
        moveMouse({600, 600});
        typeChord(PenKey::G);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt({600, 600}), dotColour, patience);
    }

    void aPointerThatWasKeptInIsLeftAlone_data() {
        QTest::addColumn<double>("scale");
        for (const double scale : {1.1, 1.35, 1.6})
            QTest::addRow("%.2f", scale) << scale;
    }

    /// At a scale at which few points are whole pixels.
    void aPointerThatWasKeptInIsLeftAlone() {
        QFETCH(double, scale);
        e2e::Program program({{"Key4P", 2}, {"LaserPenColor", 600}});
        program.setEnvironment(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
        QVERIFY(e2e::startAndSettle(program, scale));
        moveMouse({600, 600});
        typeChord(PenKey::G);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt({600, 600}), dotColour, patience);

        const int margin = int(std::ceil(4 * scale));
        moveMouse({0, 0});
        QTRY_COMPARE_WITH_TIMEOUT(mousePosition(), QPoint(margin, margin), patience);
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt({margin, margin}), dotColour, patience);
        moveMouse({1200, 700});
        QTRY_COMPARE_WITH_TIMEOUT(e2e::pixelAt({1200, 700}), dotColour, patience);
        QCOMPARE(mousePosition(), QPoint(1200, 700));
    }
};

VEXA_WIDGET_TEST_MAIN(LaserTest)
#include "LaserTest.moc"
