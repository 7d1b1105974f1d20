// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "support/NoThreads.h"
#include "support/Thrown.h"

#include <QFile>
#include <QProcess>
#include <QtTest>

#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

using namespace vexa::test;

/// The look at the session before the toolkit's application object exists.
class SessionTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_display = qgetenv("DISPLAY"); }
    void init() {
        for (const char *name : {"XDG_SESSION_TYPE", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            qunsetenv(name);
    }

    void cleanup() { qputenv("DISPLAY", m_display); }

    void aDisplayThatAnswersIsEnough() { vexa::platform::prepareSession(); }

    void takesTheDescriptorsThatItMayHave() {
        rlimit usual{};
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &usual), 0);
        rlimit limit{20, usual.rlim_max};
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &limit), 0);
        vexa::platform::prepareSession();
        QCOMPARE(getrlimit(RLIMIT_NOFILE, &limit), 0);
        QCOMPARE(limit.rlim_cur, rlim_t(32));
        QCOMPARE(setrlimit(RLIMIT_NOFILE, &usual), 0);
    }

    void refusesASessionThatGivesNoThreads() {
        const NoThreads noThreads;
        const QString refusal =
            QString::fromLatin1(textThrownBy<std::runtime_error>(vexa::platform::prepareSession));
        const QRegularExpression words(
            QStringLiteral("^needs (\\d+) threads, of which it may have 0 \\(ulimit -u\\)$"));
        QVERIFY2(words.match(refusal).captured(1).toInt() > QThread::idealThreadCount(), qPrintable(refusal));
    }

    void sizesTextsInPointsOfOnePixel() {
        qputenv("QT_FONT_DPI", "120");
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_FONT_DPI"), QByteArray("72"));
    }

    void keepsTheWindowsWhereTheInputIs_data() {
        QTest::addColumn<QByteArray>("users");
        QTest::addColumn<QByteArray>("platform");
        QTest::addColumn<bool>("isSaid");
        QTest::newRow("nothing said") << QByteArray() << QByteArray("xcb") << false;
        QTest::newRow("the same") << QByteArray("xcb") << QByteArray("xcb") << false;
        QTest::newRow("the same with arguments")
            << QByteArray("xcb:key=value") << QByteArray("xcb:key=value") << false;
        QTest::newRow("Wayland") << QByteArray("wayland") << QByteArray("xcb") << true;
        QTest::newRow("no platform at all") << QByteArray("xcbnonsense") << QByteArray("xcb") << true;
    }

    void keepsTheWindowsWhereTheInputIs() {
        QFETCH(QByteArray, users);
        QFETCH(QByteArray, platform);
        QFETCH(bool, isSaid);
        qputenv("QT_QPA_PLATFORM", users);
        if (isSaid)
            QTest::ignoreMessage(QtWarningMsg,
                                 "VexaOrbilo: uses the X server, where the pen is heard, and not "
                                 "QT_QPA_PLATFORM=" +
                                     users);
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_QPA_PLATFORM"), platform);
    }

    void saysThatThePenIsOutOfReach_data() {
        QTest::addColumn<QByteArray>("variable");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("outOfReach");
        QTest::newRow("X11 session") << QByteArray("XDG_SESSION_TYPE") << QByteArray("x11") << false;
        QTest::newRow("Wayland session") << QByteArray("XDG_SESSION_TYPE") << QByteArray("wayland") << true;
        QTest::newRow("Wayland compositor")
            << QByteArray("WAYLAND_DISPLAY") << QByteArray("wayland-0") << true;
        QTest::newRow("none") << QByteArray("WAYLAND_DISPLAY") << QByteArray("") << false;
    }

    void saysThatThePenIsOutOfReach() {
        QFETCH(QByteArray, variable);
        QFETCH(QByteArray, value);
        QFETCH(bool, outOfReach);
        qputenv(variable.constData(), value);
        if (outOfReach)
            QTest::ignoreMessage(QtWarningMsg,
                                 "VexaOrbilo: this is a Wayland session, in which the pen cannot be heard; "
                                 "an X11 session is needed");
        vexa::platform::prepareSession();
        QCOMPARE(vexa::platform::penOutOfReach(), outOfReach);
    }

    void keepsTheToolkitFromABusThatIsNotThere_data() {
        QTest::addColumn<QByteArray>("address");
        QTest::newRow("nowhere") << QByteArray("unix:path=/nowhere/at/all");
        QTest::newRow("not set, for which the toolkit would start one") << QByteArray();
    }

    void keepsTheToolkitFromABusThatIsNotThere() {
        QFETCH(QByteArray, address);
        if (address.isNull())
            qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        else
            qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("DBUS_SESSION_BUS_ADDRESS"), QByteArray("disabled:"));
    }

    void scalesAsTheDesktopDoes_data() {
        QTest::addColumn<QByteArray>("resources");
        QTest::addColumn<QByteArray>("scale");
        QTest::newRow("nothing said") << QByteArray("Other.thing: 1\n") << QByteArray("1");
        QTest::newRow("a little more") << QByteArray("Xft.dpi: 120\n") << QByteArray("1.25");
        QTest::newRow("more than the screen has room for")
            << QByteArray("Xft.dpi: 192\n") << QByteArray("1.5");
    }

    void scalesAsTheDesktopDoes() {
        QFETCH(QByteArray, resources);
        QFETCH(QByteArray, scale);
        loadResources(resources);
        qunsetenv("QT_SCALE_FACTOR");
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_SCALE_FACTOR"), scale);
    }

    void takesAnUnusableScaleOfTheUserForNone() {
        loadResources("Xft.dpi: 120\n");
        for (const char *scale : {"100", "1e9", "0", "-2", "nan", "inf", "abc", ""}) {
            qputenv("QT_SCALE_FACTOR", scale);
            vexa::platform::prepareSession();
            QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("1.25"));
        }
    }

    void leavesAScaleThatTheUserHasSet() {
        qputenv("QT_SCALE_FACTOR", "1.5");
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("1.5"));
    }

    void withoutADisplayTheTextNamesTheCause_data() {
        QTest::addColumn<QByteArray>("display");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("one that is not there") << QByteArray(":98765");
    }

    void withoutADisplayTheTextNamesTheCause() {
        QFETCH(QByteArray, display);
        if (display.isNull())
            qunsetenv("DISPLAY");
        else
            qputenv("DISPLAY", display);
        QCOMPARE(textThrownBy<std::runtime_error>(vexa::platform::prepareSession),
                 QByteArray("cannot reach the X server of this session (DISPLAY)"));
    }

private:
    static void loadResources(const QByteArray &resources) {
        QProcess xrdb;
        xrdb.start(QStringLiteral("xrdb"),
                   {QStringLiteral("-nocpp"), QStringLiteral("-load"), QStringLiteral("-")});
        xrdb.write(resources);
        xrdb.closeWriteChannel();
        QVERIFY(xrdb.waitForFinished(-1));
        QCOMPARE(xrdb.exitCode(), 0);
    }

    QByteArray m_display;
};

QTEST_APPLESS_MAIN(SessionTest)
#include "SessionTest.moc"
