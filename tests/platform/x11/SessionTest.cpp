// SPDX-License-Identifier: MIT
#include "platform/Session.h"

#include <QtTest>
#include <stdexcept>

/// The look at the session before the toolkit's application object exists.
class SessionTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { m_display = qgetenv("DISPLAY"); }
    void cleanup() { qputenv("DISPLAY", m_display); }

    void aDisplayThatAnswersIsEnough();
    void sizesTextsInPointsOfOnePixel();
    void keepsTheWindowsWhereTheInputIs();
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
