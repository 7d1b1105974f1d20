// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "support/NoThreads.h"
#include "support/Table.h"
#include "support/Thrown.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>
#include <QThread>

#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

using namespace vexa::test;

namespace {

using Platforms = Table<QByteArray, QByteArray, bool>;
using Sessions = Table<QByteArray, QByteArray, bool>;
using Scales = Table<QByteArray, QByteArray, QByteArray>;

/// A null value is none at all.
void setVariable(const char *name, const QByteArray &value) {
    value.isNull() ? qunsetenv(name) : qputenv(name, value);
}

void loadResources(const QByteArray &resources) {
    QProcess xrdb;
    xrdb.start(QStringLiteral("xrdb"),
               {QStringLiteral("-nocpp"), QStringLiteral("-load"), QStringLiteral("-")});
    xrdb.write(resources);
    xrdb.closeWriteChannel();
    QVERIFY(xrdb.waitForFinished(-1));
    QCOMPARE(xrdb.exitCode(), 0);
}

} // namespace

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
        Platforms::begin({{"nothing said", "", "xcb", false},
                          {"the same", "xcb", "xcb", false},
                          {"the same with arguments", "xcb:key=value", "xcb:key=value", false},
                          {"Wayland", "wayland", "xcb", true},
                          {"no platform at all", "xcbnonsense", "xcb", true}});
    }
    void keepsTheWindowsWhereTheInputIs() {
        const auto [users, platform, isSaid] = Platforms::row();
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
        Sessions::begin({{"X11 session", "XDG_SESSION_TYPE", "x11", false},
                         {"Wayland session", "XDG_SESSION_TYPE", "wayland", true},
                         {"Wayland compositor", "WAYLAND_DISPLAY", "wayland-0", true},
                         {"none", "WAYLAND_DISPLAY", "", false}});
    }
    void saysThatThePenIsOutOfReach() {
        const auto [variable, value, outOfReach] = Sessions::row();
        qputenv(variable.constData(), value);
        if (outOfReach)
            QTest::ignoreMessage(QtWarningMsg,
                                 "VexaOrbilo: this is a Wayland session, in which the pen cannot be heard; "
                                 "an X11 session is needed");
        vexa::platform::prepareSession();
        QCOMPARE(vexa::platform::penOutOfReach(), outOfReach);
    }

    /// For one that is not set the toolkit would start one.
    void keepsTheToolkitFromABusThatIsNotThere() {
        for (const QByteArray &address : {QByteArray("unix:path=/nowhere/at/all"), QByteArray()}) {
            setVariable("DBUS_SESSION_BUS_ADDRESS", address);
            vexa::platform::prepareSession();
            QVERIFY2(qgetenv("DBUS_SESSION_BUS_ADDRESS") == "disabled:", address.constData());
        }
    }

    void scalesAsTheDesktopDoesUnlessTheUserSaysOtherwise_data() {
        Scales::begin({{"nothing said", "Other.thing: 1\n", {}, "1"},
                       {"a little more", "Xft.dpi: 120\n", {}, "1.25"},
                       {"more than the screen has room for", "Xft.dpi: 192\n", {}, "1.5"},
                       {"the user's own", "Xft.dpi: 120\n", "1.5", "1.5"}});
        for (const char *unusable : {"100", "1e9", "0", "-2", "nan", "inf", "abc", ""})
            QTest::addRow("the user's '%s'", unusable)
                << QByteArray("Xft.dpi: 120\n") << QByteArray(unusable) << QByteArray("1.25");
    }
    void scalesAsTheDesktopDoesUnlessTheUserSaysOtherwise() {
        const auto [resources, users, scale] = Scales::row();
        loadResources(resources);
        setVariable("QT_SCALE_FACTOR", users);
        vexa::platform::prepareSession();
        QCOMPARE(qgetenv("QT_SCALE_FACTOR"), scale);
    }

    void withoutADisplayTheTextNamesTheCause() {
        for (const QByteArray &display : {QByteArray(), QByteArray(":98765")}) {
            setVariable("DISPLAY", display);
            const QByteArray text = textThrownBy<std::runtime_error>(vexa::platform::prepareSession);
            QVERIFY2(text == "cannot reach the X server of this session (DISPLAY)", display + ": " + text);
        }
    }

private:
    QByteArray m_display;
};

QTEST_APPLESS_MAIN(SessionTest)
#include "SessionTest.moc"
