// SPDX-License-Identifier: MIT
#include "qml/PanelPlaces.h"
#include "qml/PanelView.h"
#include "support/TestMain.h"

#include <QAbstractEventDispatcher>
#include <QQuickWindow>

using namespace places;

/// A panel that is out of sight costs nothing.
class HiddenPanelTest : public QObject {
    Q_OBJECT

private slots:
    void shownPanelDrawsWhatIsPushed() {
        PanelView view;
        QVERIFY(QTest::qWaitForWindowExposed(&view.widget()));
        QSignalSpy frames(view.widget().quickWindow(), &QQuickWindow::afterRendering);
        view.push(ViewMessage::Key2P, KeyAction::None);
        QTRY_VERIFY(!frames.isEmpty());
    }

    void hiddenPanelDrawsNothing() {
        PanelView view;
        QVERIFY(QTest::qWaitForWindowExposed(&view.widget()));
        view.click(key4Button);
        view.widget().hide();
        QCoreApplication::processEvents();
        QSignalSpy frames(view.widget().quickWindow(), &QQuickWindow::afterRendering);
        QTimer clock;
        QSignalSpy ticks(&clock, &QTimer::timeout);
        clock.start(20);
        for (int value = 5; value <= 25; ++value) {
            view.push(ViewMessage::LaserPenSize, value);
            view.push(ViewMessage::Key2P, value % 5);
            QVERIFY(ticks.wait());
        }
        QCOMPARE(frames.size(), 0);
    }

    void hiddenPanelRunsNoTimerAndNoAnimation() {
        PanelView view;
        QVERIFY(QTest::qWaitForWindowExposed(&view.widget()));
        view.click(settingsButton);
        view.push(ViewMessage::Language,
                  vexa::test::english); // starts the guard's timer, which ends by itself
        view.widget().hide();
        QTRY_COMPARE(timersUnder(&view.widget()) + timersUnder(view.widget().quickWindow()) +
                         timersUnder(view.root()),
                     0);
        for (QObject *object : view.root()->findChildren<QObject *>())
            if (object->inherits("QQmlTimer") || object->inherits("QQuickAbstractAnimation"))
                QTRY_VERIFY2(!object->property("running").toBool(), object->metaObject()->className());
    }

    void panelShownAgainShowsWhatWasPushedMeanwhile() {
        PanelView view;
        QVERIFY(QTest::qWaitForWindowExposed(&view.widget()));
        view.click(settingsButton);
        view.push(ViewMessage::AutoStart, 0);
        view.widget().hide();
        view.push(ViewMessage::AutoStart, 1);
        view.widget().show();
        QTRY_COMPARE(view.pixel({722 + 189 + 28, 207 + 74 + 10}), QColor(0xff, 0xcc, 0x0d));
    }

private:
    /// How often anything under the object is woken by a timer.
    static int timersUnder(QObject *object) {
        int timers = QAbstractEventDispatcher::instance()->registeredTimers(object).size();
        for (QObject *child : object->children())
            timers += timersUnder(child);
        return timers;
    }
};

VEXA_WIDGET_TEST_MAIN(HiddenPanelTest)
#include "HiddenPanelTest.moc"
