// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "platform/AutoStart.h"
#include "platform/SessionInput.h"

#include <QTest>

class SessionTest : public QObject {
    Q_OBJECT

private slots:
    // Every program that macOS starts has a session: there is nothing to refuse.
    void startsInAnySession() {
        const QByteArray dpi = qgetenv("QT_FONT_DPI");
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_FONT_DPI"), dpi);
        vexa::platform::releaseEnvironment();
        QCOMPARE(qgetenv("QT_FONT_DPI"), dpi);
        QVERIFY(!vexa::platform::penOutOfReach());
        QVERIFY(!vexa::platform::displayIsLost());
    }

    // The engine looks when it first meets a script, long after the application object was made.
    void hasTheViewsInterpretedAndNotCompiled() {
        qunsetenv("QV4_FORCE_INTERPRETER");
        vexa::platform::prepareSession();
        vexa::platform::releaseEnvironment();
        QVERIFY(qEnvironmentVariableIsSet("QV4_FORCE_INTERPRETER"));
    }

    // This program exports no function that could be asked, as on a system before 10.15.
    void listensWithoutConsentWhereTheSystemKnowsNone() {
        QCOMPARE(vexa::platform::sessionInputObstacle(), std::string());
    }

    // The user may read the question for consent before answering it.
    void givesTheUserTimeToConsentToTheLoginScripts() {
        QVERIFY(vexa::platform::autoStartLimit() >= std::chrono::minutes(1));
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
