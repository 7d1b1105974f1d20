// SPDX-License-Identifier: MIT
#include "HostedView.h"
#include "platform/quartz/VirtualKeys.h"
#include "settings/ZrToolXmlClass.h"
#include "support/Table.h"
#include "support/TestMain.h"
#include "support/UserFile.h"

#include <QSignalSpy>
#include <QTimer>

using namespace vexa::test;

using Settings = ZrToolXmlClass;

namespace {

QString beside(const char *name) {
    return QCoreApplication::applicationDirPath() + '/' + QLatin1String(name);
}

/// Goes on when it is let.
const QByteArray waitingScript = "until [ -e \"$0.go\" ]; do sleep 0.01; done";

void letTheScriptGoOn() {
    QVERIFY(QFile(beside("setAutoStartOpen.sh.go")).open(QIODevice::WriteOnly));
}

void writeScript(const char *name, const QByteArray &text) {
    QFile script(beside(name));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n" + text + '\n');
    script.close();
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

} // namespace

/// What the view's switch does: the system's script decides, and the pen works on meanwhile.
class StartAtLoginTest : public QObject {
    Q_OBJECT

    using Switches = Table<int, int, int, int, QVariant>;

private slots:
    void init() {
        userfile::startAfresh();
        for (const char *left : {"Open.sh", "Open.sh.ran", "Open.sh.go", "Close.sh", "Close.sh.ran"})
            QFile::remove(beside("setAutoStart") + QLatin1String(left));
    }

    void cleanupTestCase() { userfile::clear(); }

    void startAtLoginFollowsTheScript_data() {
        Switches::begin();
        QTest::newRow("turned off") << 1 << 0 << 0 << 0 << QVariant(0);
        QTest::newRow("not turned off") << 1 << 0 << 3 << 1 << QVariant(true);
        QTest::newRow("turned on") << 0 << 1 << 0 << 1 << QVariant(1);
        QTest::newRow("turned on by another value") << 0 << 5 << 0 << 5 << QVariant(5);
        QTest::newRow("not turned on") << 0 << 1 << 1 << 0 << QVariant(false);
    }

    void startAtLoginFollowsTheScript() {
        const auto [before, asked, exitCode, after, note] = Switches::row();
        const QByteArray right = "echo \"$0\" >> \"$0.ran\"; exit " + QByteArray::number(exitCode);
        writeScript(asked ? "setAutoStartOpen.sh" : "setAutoStartClose.sh", right);
        writeScript(asked ? "setAutoStartClose.sh" : "setAutoStartOpen.sh",
                    "echo wrong >> \"$0.ran\"; exit 9");

        Panel panel;
        Settings::AutoStart = before;
        panel.forgetCalls();
        userfile::clear();
        panel.send(ViewMessage::AutoStart, asked);

        QCOMPARE(Settings::AutoStart, after);
        QCOMPARE(panel.calls(), QList<Call>{call(ViewMessage::AutoStart, after, note)});
        QVERIFY(userfile::read().contains("<AutoStart>" + QByteArray::number(after) + "</AutoStart>"));
        QCOMPARE(QFile::exists(beside("setAutoStartOpen.sh.ran")), asked != 0);
        QCOMPARE(QFile::exists(beside("setAutoStartClose.sh.ran")), asked == 0);
    }

    void aScriptThatDoesNotEndWellLeavesStartAtLogin_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("missing") << QByteArray();
        QTest::newRow("hangs: it has failed after five seconds") << QByteArray("sleep 1000");
    }
    void aScriptThatDoesNotEndWellLeavesStartAtLogin() {
        QFETCH(QByteArray, script);
        if (!script.isEmpty())
            writeScript("setAutoStartOpen.sh", script);
        Panel panel;
        Settings::AutoStart = 0;
        panel.forgetCalls();
        panel.send(ViewMessage::AutoStart, 1);
        QCOMPARE(Settings::AutoStart, 0);
        QCOMPARE(panel.calls(), QList<Call>{call(ViewMessage::AutoStart, 0, false)});
    }

    void thePenWorksWhileAScriptRuns() {
        writeScript("setAutoStartOpen.sh", waitingScript);
        Panel panel;
        Settings::AutoStart = 0;
        QSignalSpy closings(&panel.window, &MainWindow::signalExitWindow);
        QTimer::singleShot(0, &panel.window, [&panel] {
            for (int key : {kVK_Control, kVK_Shift, kVK_Option, kVK_ANSI_S})
                panel.window.RecvKeboardMessage(key, 1);
            QCOMPARE(Settings::AutoStart, 0);
            letTheScriptGoOn();
        });
        panel.send(ViewMessage::AutoStart, 1); // would not return if the chord waited for the script
        QCOMPARE(closings.size(), 1);
        QCOMPARE(Settings::AutoStart, 1);
    }

    void theSwitchStaysWhereItIsWhileAScriptRuns() {
        writeScript("setAutoStartOpen.sh", waitingScript);
        writeScript("setAutoStartClose.sh", "exit 0");
        Panel panel;
        Settings::AutoStart = 0;
        panel.forgetCalls();
        QTimer::singleShot(0, &panel.window, [&panel] {
            panel.send(ViewMessage::AutoStart, 0);
            letTheScriptGoOn();
        });
        panel.send(ViewMessage::AutoStart, 1);
        QCOMPARE(panel.calls(),
                 (QList<Call>{call(ViewMessage::AutoStart, 0, true), call(ViewMessage::AutoStart, 1, 1)}));
        QCOMPARE(Settings::AutoStart, 1);
    }
};

VEXA_WIDGET_TEST_MAIN(StartAtLoginTest)
#include "StartAtLoginTest.moc"
