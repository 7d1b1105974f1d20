// SPDX-License-Identifier: MIT
#include "platform/Activation.h"

#include "support/TestMain.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QWidget>

#include <memory>

namespace {

/// Whatever a hidden window would be shown by has been queued by the hiding.
void handleQueuedEvents() {
    for (int i = 0; i < 10; ++i)
        QCoreApplication::processEvents();
}

} // namespace

/// What reaches the running program over the session bus, asked for by a bus client of its own as a launcher
/// would.
class ActivationTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        m_client = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("launcher"));
        QVERIFY(m_client.isConnected());
        QVERIFY(!vexa::platform::forwardActivation());
        setupDockClickHandler();
        QTRY_VERIFY(m_client.interface()->isServiceRegistered(QStringLiteral("example.vexa.VexaOrbilo")));
    }

    void init() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(300, 200);
        Window1 = m_window.get();
    }

    void cleanup() {
        Window1 = nullptr;
        m_window.reset();
    }

    void settingUpAgainKeepsTheOneObject() {
        const auto count = QCoreApplication::instance()->children().size();
        setupDockClickHandler();
        QCOMPARE(QCoreApplication::instance()->children().size(), count);
    }

    void activationShowsAHiddenWindow() {
        QVERIFY(!m_window->isVisible());
        QCOMPARE(call(QStringLiteral("Activate"), {QVariantMap()}).type(), QDBusMessage::ReplyMessage);
        QVERIFY(m_window->isVisible());
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void activationUnhidesAWindowThatItsCloseButtonHid() {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->close();
        QVERIFY(!m_window->isVisible());
        call(QStringLiteral("Activate"), {QVariantMap()});
        QVERIFY(m_window->isVisible());
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void activationBringsAMinimisedWindowBack() {
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        m_window->showMinimized();
        QTRY_VERIFY(m_window->isMinimized());
        call(QStringLiteral("Activate"), {QVariantMap()});
        QTRY_VERIFY(!m_window->isMinimized());
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void openingShowsTheWindowToo() {
        const QVariantList arguments{QStringList{QStringLiteral("file:///tmp/slides.pdf")}, QVariantMap()};
        QCOMPARE(call(QStringLiteral("Open"), arguments).type(), QDBusMessage::ReplyMessage);
        QVERIFY(m_window->isVisible());
    }

    void anUnknownActionDoesNothing() {
        const QVariantList arguments{QStringLiteral("explode"), QVariantList(), QVariantMap()};
        QCOMPARE(call(QStringLiteral("ActivateAction"), arguments).type(), QDBusMessage::ReplyMessage);
        QVERIFY(!m_window->isVisible());
    }

    void anActivationBeforeThereIsAWindowIsRemembered() {
        Window1 = nullptr;
        call(QStringLiteral("Activate"), {QVariantMap()});
        QVERIFY(!m_window->isVisible());

        Window1 = m_window.get();
        m_window->show();
        vexa::platform::awaitWithdrawal();
        m_window->hide(); // as the panel does by itself after the start
        QTRY_VERIFY(m_window->isVisible());
        m_window->hide();
        handleQueuedEvents();
        QVERIFY(!m_window->isVisible());
    }

    void anActivationBeforeTheWithdrawalIsRemembered() {
        m_window->show();
        vexa::platform::awaitWithdrawal();
        call(QStringLiteral("Activate"), {QVariantMap()});
        m_window->hide();
        QTRY_VERIFY(m_window->isVisible());
    }

    void withoutAnEarlyActivationTheWindowMayWithdraw() {
        call(QStringLiteral("Activate"), {QVariantMap()});
        m_window->show();
        vexa::platform::awaitWithdrawal();
        m_window->hide();
        handleQueuedEvents();
        QVERIFY(!m_window->isVisible());
    }

private:
    /// The answer, waited for while this process goes on answering calls.
    QDBusMessage call(const QString &method, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("example.vexa.VexaOrbilo"), QStringLiteral("/example/vexa/VexaOrbilo"),
            QStringLiteral("org.freedesktop.Application"), method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = m_client.asyncCall(message);
        if (!QTest::qWaitFor([&] { return pending.isFinished(); }, 30000))
            return QDBusMessage::createError(QDBusError::NoReply,
                                             QStringLiteral("the program did not answer"));
        return pending.reply();
    }

    QDBusConnection m_client{QString()};
    std::unique_ptr<QWidget> m_window;
};

VEXA_WIDGET_TEST_MAIN(ActivationTest)
#include "ActivationTest.moc"
