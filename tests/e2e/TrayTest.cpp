// SPDX-License-Identifier: MIT
#include "e2e/Desktop.h"
#include "e2e/Program.h"
#include "e2e/Trays.h"
#include "support/Patience.h"
#include "support/TestMain.h"

#include <memory>

using namespace vexa::test;

/// The program's icon in trays of both kinds.
class TrayTest : public QObject {
    Q_OBJECT

private slots:
    void anIconOnTheBusShowsThePanelAndEndsTheProgram_data() {
        QTest::addColumn<bool>("trayFirst");
        QTest::addColumn<int>("language");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("simplified Chinese")
            << true << 0 << QStringList{QStringLiteral("设置"), QStringLiteral("退出")};
        QTest::newRow("traditional Chinese")
            << true << 1 << QStringList{QStringLiteral("設置"), QStringLiteral("結束")};
        QTest::newRow("English") << true << 2
                                 << QStringList{QStringLiteral("Settings"), QStringLiteral("Quit")};
        QTest::newRow("tray comes later")
            << false << 2 << QStringList{QStringLiteral("Settings"), QStringLiteral("Quit")};
    }

    void anIconOnTheBusShowsThePanelAndEndsTheProgram() {
        QFETCH(bool, trayFirst);
        QFETCH(int, language);
        QFETCH(QStringList, texts);
        e2e::Bus bus;
        QVERIFY(bus.start());
        e2e::Program program({{"Language", language}});
        program.setEnvironment(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
        std::unique_ptr<e2e::BusTray> tray;
        if (trayFirst)
            tray = std::make_unique<e2e::BusTray>(bus.address());
        QVERIFY(e2e::startAndSettle(program));
        QTRY_VERIFY_WITH_TIMEOUT(bus.knowsTheProgram(), patience);
        if (!trayFirst)
            tray = std::make_unique<e2e::BusTray>(bus.address());

        QTRY_VERIFY_WITH_TIMEOUT(tray->hasIcon(), patience);
        QTRY_COMPARE_WITH_TIMEOUT(tray->menuTexts(), texts, patience);
        tray->click();
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        e2e::askToClose(e2e::panelOf(program.pid()));
        QTRY_VERIFY_WITH_TIMEOUT(!e2e::panelOf(program.pid()).id, patience);
        tray->choose(texts.first());
        QTRY_VERIFY_WITH_TIMEOUT(e2e::panelOf(program.pid()).id, patience);
        tray->choose(texts.last());
        QTRY_VERIFY_WITH_TIMEOUT(!program.isRunning(), patience);
        const auto end = program.waitForEnd();
        QCOMPARE(end.how, QByteArray("ended with 0"));
        QCOMPARE(end.errors, QByteArray());
    }

    void anIconOnTheDisplay_data() {
        QTest::addColumn<bool>("trayFirst");
        QTest::newRow("the tray is there") << true;
        QTest::newRow("the tray comes later") << false;
    }

    void anIconOnTheDisplay() {
        QFETCH(bool, trayFirst);
        std::unique_ptr<e2e::DisplayTray> tray;
        if (trayFirst)
            tray = std::make_unique<e2e::DisplayTray>();
        e2e::Program program;
        QVERIFY(e2e::startAndSettle(program));
        if (!trayFirst)
            tray = std::make_unique<e2e::DisplayTray>();
        QTRY_VERIFY_WITH_TIMEOUT(tray->hasIcon(), patience);
        QVERIFY(program.isRunning());
    }
};

VEXA_WIDGET_TEST_MAIN(TrayTest)
#include "TrayTest.moc"
