// SPDX-License-Identifier: MIT
#include "platform/Session.h"
#include "platform/AutoStart.h"

#include <QtTest>

class SessionTest : public QObject {
    Q_OBJECT

private slots:
    // Every program that macOS starts has a session: there is nothing to refuse and nothing to set.
    void startsInAnySession() {
        const QByteArray dpi = qgetenv("QT_FONT_DPI");
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_FONT_DPI"), dpi);
    }

    void startsAtLoginByTheBundlesScripts() {
        QCOMPARE(
            vexa::platform::autoStartCommand(true),
            QStringLiteral("osascript /Applications/VexaOrbilo.app/Contents/MacOS/setAutoStartOpen.scpt"));
        QCOMPARE(
            vexa::platform::autoStartCommand(false),
            QStringLiteral("osascript /Applications/VexaOrbilo.app/Contents/MacOS/setAutoStartClose.scpt"));
    }
};

QTEST_GUILESS_MAIN(SessionTest)
#include "SessionTest.moc"
