// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include "support/Sanitized.h"

#include <QFile>
#include <QProcess>
#include <QtTest>
#include <memory>
#include <stdexcept>
#include <unistd.h>
#include <vector>

namespace {

qint64 residentBytes() {
    QFile status(QStringLiteral("/proc/self/statm"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').at(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

} // namespace

/// The look at the session before the toolkit's application object exists.
class SessionTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_display = qgetenv("DISPLAY"); }
    void cleanup() { qputenv("DISPLAY", m_display); }

    void aDisplayThatAnswersIsEnough();
    void sizesTextsInPointsOfOnePixel();
    void keepsTheWindowsWhereTheInputIs();
    void scalesAsTheDesktopDoes_data();
    void scalesAsTheDesktopDoes();
    void leavesAScaleThatTheUserHasSet();
    void freedPicturesGoBackToTheSystem();
    void withoutADisplayTheTextNamesTheCause_data();
    void withoutADisplayTheTextNamesTheCause();

private:
    QByteArray m_display;
};

void SessionTest::aDisplayThatAnswersIsEnough() {
    vexa::platform::prepareSession();
}

void SessionTest::sizesTextsInPointsOfOnePixel() {
    qputenv("QT_FONT_DPI", "120");
    vexa::platform::prepareSession();
    QCOMPARE(qgetenv("QT_FONT_DPI"), QByteArray("72"));
}

void SessionTest::keepsTheWindowsWhereTheInputIs() {
    qunsetenv("QT_QPA_PLATFORM");
    vexa::platform::prepareSession();
    QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray("xcb"));
}

void SessionTest::scalesAsTheDesktopDoes_data() {
    QTest::addColumn<QByteArray>("resources");
    QTest::addColumn<QByteArray>("scale");
    QTest::newRow("nothing said") << QByteArray("Other.thing: 1\n") << QByteArray("1");
    QTest::newRow("usual") << QByteArray("Xft.dpi: 96\n") << QByteArray("1");
    QTest::newRow("a little more") << QByteArray("Xft.dpi: 120\n") << QByteArray("1");
    QTest::newRow("twice") << QByteArray("Xft.dpi: 192\n") << QByteArray("2");
    QTest::newRow("nearly three times") << QByteArray("Xft.dpi: 270\n") << QByteArray("3");
    QTest::newRow("smaller") << QByteArray("Xft.dpi: 40\n") << QByteArray("1");
    QTest::newRow("no number") << QByteArray("Xft.dpi: large\n") << QByteArray("1");
}

void SessionTest::scalesAsTheDesktopDoes() {
    QFETCH(QByteArray, resources);
    QFETCH(QByteArray, scale);
    QProcess xrdb;
    xrdb.start(QStringLiteral("xrdb"),
               {QStringLiteral("-nocpp"), QStringLiteral("-load"), QStringLiteral("-")});
    xrdb.write(resources);
    xrdb.closeWriteChannel();
    QVERIFY(xrdb.waitForFinished(-1));
    QCOMPARE(xrdb.exitCode(), 0);

    qunsetenv("QT_SCALE_FACTOR");
    vexa::platform::prepareSession();
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), scale);
}

void SessionTest::leavesAScaleThatTheUserHasSet() {
    qputenv("QT_SCALE_FACTOR", "1.5");
    vexa::platform::prepareSession();
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("1.5"));
}

void SessionTest::freedPicturesGoBackToTheSystem() {
    vexa::platform::prepareSession();
    constexpr std::size_t picture = 30 << 20; // bytes
    using Block = std::vector<char>;
    auto first = std::make_unique<Block>(picture, 'x');
    QCOMPARE(first->back(), 'x');
    first.reset(); // from here on the allocator might keep what is as large
    const qint64 before = residentBytes();
    auto second = std::make_unique<Block>(picture, 'x');
    const Block behindIt(100000, 'x');
    QVERIFY(residentBytes() - before > qint64(picture) * 9 / 10);
    second.reset();
    QVERIFY(addressSanitized || residentBytes() - before < (2 << 20));
    QCOMPARE(behindIt.back(), 'x');
}

void SessionTest::withoutADisplayTheTextNamesTheCause_data() {
    QTest::addColumn<QByteArray>("display");
    QTest::addColumn<QByteArray>("text");
    const QByteArray text = "cannot reach the X server of this session (DISPLAY)";
    QTest::newRow("none") << QByteArray() << text;
    QTest::newRow("one that is not there") << QByteArray(":98765") << text;
}

void SessionTest::withoutADisplayTheTextNamesTheCause() {
    QFETCH(QByteArray, display);
    QFETCH(QByteArray, text);
    if (display.isNull())
        qunsetenv("DISPLAY");
    else
        qputenv("DISPLAY", display);
    try {
        vexa::platform::prepareSession();
        QFAIL("it was taken for a session");
    } catch (const std::runtime_error &error) {
        QCOMPARE(QByteArray(error.what()), text);
    }
}

QTEST_APPLESS_MAIN(SessionTest)
#include "SessionTest.moc"
