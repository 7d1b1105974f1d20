// SPDX-License-Identifier: MIT
#include "HostedView.h"
#include "support/Patience.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QQmlComponent>
#include <QQmlEngine>

using namespace vexa::test;

/// The panel, 999 by 650 points, on a screen of 800 by 500: its right upper corner is seen at first, from 199
/// points of its width on.
class FocusInSightTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        userfile::startAfresh();
        m_panel = std::make_unique<Panel>();
        m_panel->window.show();
        QTRY_VERIFY_WITH_TIMEOUT(m_panel->window.isHidden(), patience); // a start withdraws the panel
        m_panel->window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m_panel->window));
        m_panel->window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_panel->window));
        QTRY_COMPARE_WITH_TIMEOUT(m_panel->window.pos(), QPoint(-199, 0), patience);
    }

    void cleanup() { m_panel.reset(); }

    void cleanupTestCase() { userfile::clear(); }

    void theControlThatTheKeyboardComesToIsSeen_data() {
        QTest::addColumn<QRect>("control");
        QTest::addColumn<QPoint>("panel");
        QTest::newRow("in the middle") << QRect(500, 200, 30, 30) << QPoint(-199, 0);
        QTest::newRow("at the right") << QRect(960, 10, 30, 30) << QPoint(-199, 0);
        QTest::newRow("below") << QRect(960, 600, 20, 20) << QPoint(-199, -144);
        QTest::newRow("at the left") << QRect(100, 200, 30, 30) << QPoint(-76, 0);
        QTest::newRow("cut by the edge") << QRect(190, 200, 30, 30) << QPoint(-166, 0);
        QTest::newRow("in the lower left corner") << QRect(0, 630, 20, 20) << QPoint(0, -150);
    }

    void theControlThatTheKeyboardComesToIsSeen() {
        QFETCH(QRect, control);
        QFETCH(QPoint, panel);
        give(control);
        QTest::keyClick(view(), Qt::Key_Tab);
        QVERIFY(m_control->hasActiveFocus());
        QCOMPARE(m_panel->window.pos(), panel);
    }

    void aPressOfTheMouseMovesNothing() {
        give({100, 200, 30, 30});
        QTest::mousePress(m_panel->window.windowHandle(), Qt::LeftButton, {}, {600, 400});
        QCOMPARE(QGuiApplication::mouseButtons(), Qt::LeftButton);
        m_control->forceActiveFocus();
        QVERIFY(m_control->hasActiveFocus());
        QCOMPARE(m_panel->window.pos(), QPoint(-199, 0));
        QTest::mouseRelease(m_panel->window.windowHandle(), Qt::LeftButton, {}, {600, 400});
    }

    void whatIsNoControlMovesNothing() {
        give({100, 200, 30, 30});
        m_control->setActiveFocusOnTab(false);
        m_control->forceActiveFocus();
        QVERIFY(m_control->hasActiveFocus());
        QCOMPARE(m_panel->window.pos(), QPoint(-199, 0));
    }

private:
    QQuickWidget *view() const { return m_panel->part<QQuickWidget>("quickWidget"); }

    void give(const QRect &place) {
        QQmlComponent component(view()->engine());
        component.setData("import QtQuick 2.15\nItem { activeFocusOnTab: true }", {});
        m_control = qobject_cast<QQuickItem *>(component.create());
        QVERIFY(m_control);
        m_control->setParent(m_panel->root);
        m_control->setParentItem(m_panel->root);
        m_control->setPosition(place.topLeft());
        m_control->setSize(place.size());
    }

    std::unique_ptr<Panel> m_panel;
    QQuickItem *m_control = nullptr;
};

VEXA_WIDGET_TEST_MAIN(FocusInSightTest)
#include "FocusInSightTest.moc"
