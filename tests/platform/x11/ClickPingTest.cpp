// SPDX-License-Identifier: MIT
//
// Run without a window manager and with one, which puts a frame around the window.
#include "platform/x11/input/ClickPing.h"

#include "support/ForeignWindow.h"
#include "support/Hand.h"
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
            const auto window = openWindow(managed);
            clickAt({inside.x, inside.y});
            ClickPing ping(inside);
            QVERIFY(!ping.isAnswered()); // this very thread is to read it
            QTRY_VERIFY_WITH_TIMEOUT(ping.isAnswered(), patience);
            QCOMPARE(window->releases, 1);
            QVERIFY(ping.isAnswered());
        }
    }

    void aClickThatIsHeldBackIsNotTakenForRead() {
        const auto window = openWindow(false);
        Hand manager;
        manager.holdClicksBack();
        clickAt({inside.x, inside.y});
        ClickPing ping(inside), nobody(bare);
        QVERIFY(!QTest::qWaitFor([&] { return ping.isAnswered() || nobody.isAnswered(); }, 300));
        QCOMPARE(window->releases, 0);
        manager.passClicksOn();
        QTRY_VERIFY_WITH_TIMEOUT(ping.isAnswered(), patience);
        QCOMPARE(window->releases, 1);
        QTRY_VERIFY_WITH_TIMEOUT(nobody.isAnswered(), patience);
    }

    void whoHasGoneIsNotWaitedFor() {
        for (const bool held : {false, true}) {
            auto window = openWindow(false);
            Hand manager;
            if (held)
                manager.holdClicksBack();
            clickAt({inside.x, inside.y});
            ClickPing ping(inside);
            QVERIFY(!ping.isAnswered());
            window.reset();
            QTRY_VERIFY_WITH_TIMEOUT(ping.isAnswered(), patience);
            if (held)
                manager.passClicksOn();
        }
    }

    void whoCannotBeAskedIsNotWaitedFor() {
        ClickPing nobody(bare);
        QTRY_VERIFY_WITH_TIMEOUT(nobody.isAnswered(), patience);
        ForeignWindow stranger(ForeignWindow::Kind::Unmanaged, {0, 600, 100, 200}, Qt::red);
        QTRY_VERIFY_WITH_TIMEOUT(stranger.isViewable(), patience);
        ClickPing unasked(bare);
        QTRY_VERIFY_WITH_TIMEOUT(unasked.isAnswered(), patience);
    }

private:
    static std::unique_ptr<Window> openWindow(bool managed) {
        auto window = std::make_unique<Window>();
        window->setWindowFlag(Qt::X11BypassWindowManagerHint, !managed);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get(), patience))
            qFatal("no window");
        return window;
    }
};

VEXA_WIDGET_TEST_MAIN(ClickPingTest)
#include "ClickPingTest.moc"
