// SPDX-License-Identifier: MIT
#include "platform/Activation.h"
#include "support/TestMain.h"

class ActivationWithoutBusTest : public QObject {
    Q_OBJECT

private slots:
    void anAddressThatLeadsNowhereIsNoObstacle();
    void noAddressAtAllIsNoObstacleAndStartsNoBus();
};

// The toolkit keeps the connection it has once tried, so the order of these two does not matter.

void ActivationWithoutBusTest::anAddressThatLeadsNowhereIsNoObstacle() {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/at/all");
    QVERIFY(!vexa::platform::forwardActivation());
    setupDockClickHandler();
}

void ActivationWithoutBusTest::noAddressAtAllIsNoObstacleAndStartsNoBus() {
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    QVERIFY(!vexa::platform::forwardActivation());
    setupDockClickHandler();
    QVERIFY(!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"));
}

VEXA_WIDGET_TEST_MAIN(ActivationWithoutBusTest)
#include "ActivationWithoutBusTest.moc"
