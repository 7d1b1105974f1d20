// SPDX-License-Identifier: MIT
#include "app/QuitRequest.h"

#include "support/TestMain.h"

#include <QCloseEvent>
#include <QDialog>
#include <QTimer>

#include <memory>

namespace {

/// Like the panel, which only hides, and like the prompts, which stay.
class Refusing : public QWidget {
public:
    explicit Refusing(bool hides) : m_hides(hides) { show(); }

protected:
    void closeEvent(QCloseEvent *event) override {
        if (m_hides)
            hide();
        event->ignore();
    }

private:
    bool m_hides;
};

} // namespace

class QuitRequestTest : public QObject {
    Q_OBJECT

private slots:
    /// The toolkit remembers a quit until the next time the main loop starts; no test is to see that of the
    /// one before.
    void init() {
        QTimer::singleShot(0, [] { QCoreApplication::exit(); });
        QApplication::exec();
    }

    void endsTheRunningLoopWithZero() {
        vexa::QuitRequest quit;
        QTimer::singleShot(0, &quit, &vexa::QuitRequest::request);
        QCOMPARE(quit.run(), 0);
        QVERIFY(quit.requested());
    }

    void aFailureEndsTheLoopWithOne() {
        vexa::QuitRequest quit;
        QTimer::singleShot(0, &quit, &vexa::QuitRequest::fail);
        QCOMPARE(quit.run(), 1);
        QCOMPARE(quit.run(), 1); // also when it came during a dialog
        QVERIFY(quit.requested());
        QCOMPARE(quit.exitCode(), 1);
    }

    void isRememberedWhenItComesDuringADialog() {
        vexa::QuitRequest quit;
        QDialog dialog;
        QTimer::singleShot(0, &quit, &vexa::QuitRequest::request);
        QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
        QVERIFY(quit.requested());
        // Would run for ever had the request been forgotten.
        QCOMPARE(quit.run(), 0);
    }

    void isRememberedWhenTheSessionAsksDuringADialog() {
        vexa::QuitRequest quit;
        QDialog dialog;
        QTimer::singleShot(
            0, [] { QCoreApplication::postEvent(QCoreApplication::instance(), new QEvent(QEvent::Quit)); });
        dialog.exec();
        QVERIFY(quit.requested());
        QCOMPARE(quit.run(), 0);
    }

    void isGrantedAlthoughWindowsRefuseToClose_data() {
        QTest::addColumn<bool>("asClose");
        QTest::newRow("as a quit") << false;
        QTest::newRow("as a close of the application") << true;
    }

    void isGrantedAlthoughWindowsRefuseToClose() {
        QFETCH(bool, asClose);
        vexa::QuitRequest quit;
        const Refusing panel(true);
        const Refusing prompt(false);
        bool granted = false;
        QTimer::singleShot(0, [&] {
            const std::unique_ptr<QEvent> event(asClose ? new QCloseEvent : new QEvent(QEvent::Quit));
            QCoreApplication::sendEvent(QCoreApplication::instance(), event.get());
            granted = event->isAccepted();
            if (!granted)
                QCoreApplication::exit(7);
        });
        QCOMPARE(quit.run(), 0);
        QVERIFY(granted);
        QVERIFY(quit.requested());
    }

    void aWindowsOwnCloseIsNoRequest() {
        vexa::QuitRequest quit;
        Refusing panel(true);
        panel.close();
        QCoreApplication::processEvents();
        QVERIFY(!quit.requested());
    }

    void withoutOneTheLoopEndsWithItsOwnCode() {
        vexa::QuitRequest quit;
        QTimer::singleShot(0, [] { QCoreApplication::exit(7); });
        QCOMPARE(quit.run(), 7);
        QVERIFY(!quit.requested());
    }

    void theLastWindowsEndIsNoRequest() {
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
};

VEXA_WIDGET_TEST_MAIN(QuitRequestTest)
#include "QuitRequestTest.moc"
