// SPDX-License-Identifier: MIT
#include "input/CKeyboardHandler.h"
#include "platform/SessionInput.h"
#include "platform/quartz/InputBackend.h"

#include <QProcess>
#include <QTest>

#include <csignal>

/// Sessions in which nothing can be heard: said in one sentence, and never with a crash.
class NoSessionTest : public QObject {
    Q_OBJECT

private slots:
    /// As in the program: what is written to a server that has just gone fails, and ends nothing.
    void initTestCase() { std::signal(SIGPIPE, SIG_IGN); }

    void cleanup() {
        m_server.terminate();
        m_server.waitForFinished();
        vexa::setInputBackend(nullptr);
    }

    void withoutADisplayNothingCanBeHeardOrPosted_data() {
        QTest::addColumn<QByteArray>("display");
        QTest::newRow("unset") << QByteArray();
        QTest::newRow("nobody there") << nobodyThere;
        QTest::newRow("not a display") << QByteArray("nonsense");
    }

    void withoutADisplayNothingCanBeHeardOrPosted() {
        QFETCH(QByteArray, display);
        display.isNull() ? qunsetenv("DISPLAY") : qputenv("DISPLAY", display);
        vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
        QVERIFY(!vexa::inputBackend().open());
        vexa::InputEvent event;
        event.type = 10;
        event.keyCode = 53;
        QVERIFY(!vexa::inputBackend().post(event));
        QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);

        const QByteArray obstacle = QByteArray::fromStdString(vexa::platform::sessionInputObstacle());
        QVERIFY(obstacle.contains("DISPLAY"));
        QVERIFY(!obstacle.contains('\n'));
    }

    void aServerThatDoesNotRecordIsRefused() {
        QVERIFY(startServer({QStringLiteral("-extension"), QStringLiteral("RECORD")}));
        vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
        QVERIFY(!vexa::inputBackend().open());
        QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);

        const QByteArray obstacle = QByteArray::fromStdString(vexa::platform::sessionInputObstacle());
        QVERIFY(obstacle.contains("RECORD"));
        QVERIFY(!obstacle.contains('\n'));
    }

    void aServerOfFewColoursIsRefused() {
        QVERIFY(startServer({QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("640x480x8")}));
        QCOMPARE(vexa::platform::sessionInputObstacle(),
                 std::string("the X server shows too few colours; 15 bits for each pixel are needed"));
    }

    void theEndOfTheServerEndsNothingElse() {
        QVERIFY(startServer({}));
        vexa::platform::useSessionInput({{0, 0}, {1920, 1080}, 1});
        {
            CKeyboardHandler handler;
            m_server.kill();
            QVERIFY(m_server.waitForFinished());
            qputenv("DISPLAY", nobodyThere); // the number is free now, and the next server gets it
            vexa::InputEvent event;
            event.type = 5;
            QVERIFY(!vexa::inputBackend().post(event));
        } // and the listener can still be stopped
        QVERIFY(startServer({}));
        CKeyboardHandler handler;
    }

private:
    const QByteArray nobodyThere = ":54321";

    bool startServer(const QStringList &arguments) {
        m_server.setStandardErrorFile(QProcess::nullDevice());
        m_server.start(QStringLiteral("Xvfb"), QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"),
                                                           QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                                                           QStringLiteral("-noreset")} +
                                                   arguments);
        while (!m_server.canReadLine())
            if (!m_server.waitForReadyRead(60000))
                return false;
        qputenv("DISPLAY", ':' + m_server.readLine().trimmed());
        return true;
    }

    QProcess m_server;
};

QTEST_GUILESS_MAIN(NoSessionTest)
#include "NoSessionTest.moc"
