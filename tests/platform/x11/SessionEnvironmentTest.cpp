// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QScreen>
#include <QTest>

namespace {

const char *const variables[] = {"QT_QPA_PLATFORM", "QT_FONT_DPI",      "QT_DPI_ADJUSTMENT_POLICY",
                                 "QT_SCALE_FACTOR", "XDG_SESSION_TYPE", "DBUS_SESSION_BUS_ADDRESS"};

QStringList ofInterest(const QStringList &environment) {
    QStringList found;
    for (const QString &line : environment) {
        for (const char *name : variables)
            if (line.startsWith(QLatin1String(name) + '='))
                found += line;
    }
    found.sort();
    return found;
}

} // namespace

/// What the toolkit was told at its start, and what the programs that are started later inherit.
class SessionEnvironmentTest : public QObject {
    Q_OBJECT

public:
    QStringList before = ofInterest(QProcess::systemEnvironment());

private slots:
    void theWindowsAreOnTheXServer() { QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb")); }

    void aPointOfTextIsAPixel() {
        QCOMPARE(QFontInfo(QFont(QStringLiteral("Arial"), 30)).pixelSize(), 30);
        QCOMPARE(QGuiApplication::primaryScreen()->devicePixelRatio(), 1.0);
    }

    void childrenInheritTheUsersEnvironment() {
        QVERIFY(before.contains(QStringLiteral("QT_QPA_PLATFORM=wayland")));
        QProcess child;
        child.start(QStringLiteral("env"), QStringList());
        QVERIFY(child.waitForFinished(-1));
        QCOMPARE(ofInterest(QString::fromLocal8Bit(child.readAll()).split('\n')), before);
    }
};

int main(int argc, char *argv[]) {
    qputenv("QT_QPA_PLATFORM", "wayland"); // for which there is no plug-in here: the toolkit would abort
    qunsetenv("QT_FONT_DPI");
    SessionEnvironmentTest test;
    vexa::platform::prepareSession();
    const QGuiApplication application(argc, argv);
    vexa::platform::releaseEnvironment();
    return QTest::qExec(&test, argc, argv);
}
#include "SessionEnvironmentTest.moc"
