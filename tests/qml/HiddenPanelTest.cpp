// SPDX-License-Identifier: MIT
#include "qml/PanelTest.h"
#include "support/TestMain.h"

#include <QAbstractEventDispatcher>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTimer>

using namespace places;

/// A panel that is out of sight costs nothing.
class HiddenPanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void init() {
        PanelTest::init();
        QVERIFY(QTest::qWaitForWindowExposed(&m_view->widget()));
    }

    void shownPanelDrawsWhatIsPushed() {
        QSignalSpy frames(m_view->widget().quickWindow(), &QQuickWindow::afterRendering);
        m_view->push(ViewMessage::Key2P, KeyAction::None);
        QTRY_VERIFY(!frames.isEmpty());
    }

    void hiddenPanelDrawsNothing() {
        m_view->click(key4Button);
        m_view->widget().hide();
        QCoreApplication::processEvents();
        QSignalSpy frames(m_view->widget().quickWindow(), &QQuickWindow::afterRendering);
        QTimer clock;
        QSignalSpy ticks(&clock, &QTimer::timeout);
        clock.start(20);
        for (int value = 5; value <= 25; ++value) {
            m_view->push(ViewMessage::LaserPenSize, value);
            m_view->push(ViewMessage::Key2P, value % 5);
            QVERIFY(ticks.wait());
        }
        QCOMPARE(frames.size(), 0);
    }

    void hiddenPanelRunsNoTimerAndNoAnimation() {
        m_view->click(settingsButton);
        m_view->push(ViewMessage::Language, english); // starts the guard's timer, which ends by itself
        m_view->widget().hide();
        QTRY_COMPARE(timersUnder(&m_view->widget()) + timersUnder(m_view->widget().quickWindow()) +
                         timersUnder(m_view->root()),
                     0);
        for (QObject *object : m_view->root()->findChildren<QObject *>())
            if (object->inherits("QQmlTimer") || object->inherits("QQuickAbstractAnimation"))
                QTRY_VERIFY2(!object->property("running").toBool(), object->metaObject()->className());
    }

    void panelShownAgainShowsWhatWasPushedMeanwhile() {
        m_view->click(settingsButton);
        m_view->push(ViewMessage::AutoStart, 0);
        m_view->widget().hide();
        m_view->push(ViewMessage::AutoStart, 1);
        m_view->widget().show();
        QTRY_COMPARE(m_view->pixel({722 + 189 + 28, 207 + 74 + 10}), QColor(0xff, 0xcc, 0x0d));
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
