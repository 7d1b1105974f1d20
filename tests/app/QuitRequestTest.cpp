// SPDX-License-Identifier: MIT
#include "app/QuitRequest.h"
#include "support/TestMain.h"

#include <QDialog>
#include <QTimer>
#include <optional>

class QuitRequestTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void endsTheRunningLoopWithZero();
    void isRememberedWhenItComesDuringADialog();
    void isRememberedWhenTheSessionAsksDuringADialog();
    void withoutOneTheLoopEndsWithItsOwnCode();
    void theLastWindowsEndIsNoRequest();
};

/// The toolkit remembers a quit until the next time the main loop starts; no test is to see that of the one
/// before.
void QuitRequestTest::init() {
    QTimer::singleShot(0, [] { QCoreApplication::exit(); });
    QApplication::exec();
}

void QuitRequestTest::endsTheRunningLoopWithZero() {
    vexa::QuitRequest quit;
    QTimer::singleShot(0, &quit, &vexa::QuitRequest::request);
    QCOMPARE(quit.run(), 0);
    QVERIFY(quit.requested());
}

void QuitRequestTest::isRememberedWhenItComesDuringADialog() {
    vexa::QuitRequest quit;
    QDialog dialog;
    QTimer::singleShot(0, &quit, &vexa::QuitRequest::request);
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
    QVERIFY(quit.requested());
    // Would run for ever had the request been forgotten.
    QCOMPARE(quit.run(), 0);
}

void QuitRequestTest::isRememberedWhenTheSessionAsksDuringADialog() {
    vexa::QuitRequest quit;
    QDialog dialog;
    QTimer::singleShot(
        0, [] { QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit)); });
    dialog.exec();
    QVERIFY(quit.requested());
    QCOMPARE(quit.run(), 0);
}

void QuitRequestTest::withoutOneTheLoopEndsWithItsOwnCode() {
    vexa::QuitRequest quit;
    QTimer::singleShot(0, [] { QCoreApplication::exit(7); });
    QCOMPARE(quit.run(), 7);
    QVERIFY(!quit.requested());
}

void QuitRequestTest::theLastWindowsEndIsNoRequest() {
    vexa::QuitRequest quit;
    {
        QDialog dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        dialog.close();
    }
    QCoreApplication::processEvents();
    QVERIFY(!quit.requested());
}

VEXA_WIDGET_TEST_MAIN(QuitRequestTest)
#include "QuitRequestTest.moc"
