// SPDX-License-Identifier: MIT
//
// Run without a window manager and with one, which puts a frame around the window.
#include "platform/x11/input/ClickPing.h"

#include "support/ForeignWindow.h"
#include "support/Patience.h"
#include "support/RealInput.h"
#include "support/TestMain.h"

#include <QMouseEvent>

using namespace vexa::test;
using vexa::x11::ClickPing;

namespace {

class Window : public QWidget {
public:
    Window() { setGeometry(200, 150, 300, 200); }
    int releases = 0;

protected:
    void mouseReleaseEvent(QMouseEvent * /*event*/) override { ++releases; }
};

constexpr vexa::platform::Pixels inside{350, 250}, bare{20, 700};

} // namespace

class ClickPingTest : public QObject {
    Q_OBJECT

private slots:
    void theAnswerComesWhenTheClickWasRead() {
        for (const bool managed : {false, true}) {
            Window window;
            window.setWindowFlag(Qt::X11BypassWindowManagerHint, !managed);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            clickAt({inside.x, inside.y});
            ClickPing ping(inside);
            QVERIFY(!ping.isAnswered()); // this very thread is to read it
            QTRY_VERIFY_WITH_TIMEOUT(ping.isAnswered(), patience);
            // A window manager may hold a click back until it has given its window the focus.
            if (managed)
                QTRY_COMPARE_WITH_TIMEOUT(window.releases, 1, patience);
            QCOMPARE(window.releases, 1);
            QVERIFY(ping.isAnswered());
        }
    }

    void whoCannotBeAskedIsNotWaitedFor() {
        QVERIFY(ClickPing(bare).isAnswered());
        ForeignWindow stranger(ForeignWindow::Kind::Unmanaged, {0, 600, 100, 200}, Qt::red);
        QTRY_VERIFY_WITH_TIMEOUT(stranger.isViewable(), patience);
        QVERIFY(ClickPing(bare).isAnswered());
    }
};

VEXA_WIDGET_TEST_MAIN(ClickPingTest)
#include "ClickPingTest.moc"
