// SPDX-License-Identifier: MIT
#include "StatelessPromise.h"
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardHandler.h"
#include "support/Thrown.h"

#include <QSignalSpy>
#include <QtTest>

#include <pthread.h>
#include <system_error>
#include <thread>

using namespace vexa::test;

namespace {

int threadsOfThisProcess() {
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
}

std::atomic<int> failuresTold{0};

/// Called at the begin of every signal of this program, on the thread that emits it.
void countFailuresTold(QObject *caller, int signal, void **) {
    const int index = CKeyboardHandler::staticMetaObject.indexOfSignal(
        "signalKeyboardException(CKeyboardExceptionMessage)");
    const int offset = CKeyboardHandler::staticMetaObject.methodOffset();
    const int signalOffset = QObject::staticMetaObject.indexOfSignal("objectNameChanged(QString)") + 1;
    if (caller->metaObject() == &CKeyboardHandler::staticMetaObject &&
        signal - signalOffset == index - offset)
        ++failuresTold;
}

/// Passes a source on.
class PassingSource : public vexa::InputSource {
public:
    explicit PassingSource(std::unique_ptr<vexa::InputSource> source) : m_source(std::move(source)) {}

    int fd() const override { return m_source->fd(); }
    bool next(vexa::InputEvent &event) override { return m_source->next(event); }

private:
    std::unique_ptr<vexa::InputSource> m_source;
};

/// Notes on which threads its last source came and went. To be read when the handler is gone, which has
/// joined the only other thread.
class WatchedBackend : public vexa::RecordingBackend {
public:
    std::unique_ptr<vexa::InputSource> open() override {
        openedOn = std::this_thread::get_id();
        return std::make_unique<Source>(RecordingBackend::open(), endedOn);
    }

    std::thread::id openedOn;
    std::thread::id endedOn;

private:
    class Source : public PassingSource {
    public:
        Source(std::unique_ptr<vexa::InputSource> source, std::thread::id &endedOn)
            : PassingSource(std::move(source)), m_endedOn(endedOn) {}
        ~Source() override { m_endedOn = std::this_thread::get_id(); }

    private:
        std::thread::id &m_endedOn;
    };
};

/// Its source breaks with its first event.
class BreakingBackend : public vexa::RecordingBackend {
public:
    explicit BreakingBackend(bool withText) : m_withText(withText) {}

    std::unique_ptr<vexa::InputSource> open() override {
        return std::make_unique<Source>(RecordingBackend::open(), m_withText);
    }

private:
    class Source : public PassingSource {
    public:
        Source(std::unique_ptr<vexa::InputSource> source, bool withText)
            : PassingSource(std::move(source)), m_withText(withText) {}

        bool next(vexa::InputEvent &event) override {
            if (!PassingSource::next(event))
                return false;
            if (m_withText)
                throw std::runtime_error("the session broke");
            throw 7;
        }

    private:
        bool m_withText;
    };

    bool m_withText;
};

/// A handler, and what it tells.
struct Watched {
    CKeyboardHandler handler;
    QSignalSpy keys{&handler, &CKeyboardHandler::MysignalKeyboardMessage};
    QSignalSpy moves{&handler, &CKeyboardHandler::MysignalMouseMessage};
    QSignalSpy failures{&handler, &CKeyboardHandler::signalKeyboardException};
};

} // namespace

// The toolkit's hook for debuggers: the one way to hear of a signal of an object whose constructor fails.
struct QSignalSpyCallbackSet {
    void (*signalBegin)(QObject *, int, void **);
    void (*slotBegin)(QObject *, int, void **);
    void (*signalEnd)(QObject *, int);
    void (*slotEnd)(QObject *, int);
};
extern void qt_register_signal_spy_callbacks(QSignalSpyCallbackSet *callbacks);

class HandlerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        // The handler makes its messages known by itself.
        QCOMPARE(QMetaType::type("CKeyboardMessage"), int(QMetaType::UnknownType));
        { CKeyboardHandler handler; }
        QVERIFY(QMetaType::type("CKeyboardMessage") != QMetaType::UnknownType);
        QVERIFY(QMetaType::type("CKeyboardExceptionMessage") > QMetaType::type("CKeyboardMessage"));
        const int known = QMetaType::type("CKeyboardMessage");
        vexa::registerKeyboardMessages();
        QCOMPARE(QMetaType::type("CKeyboardMessage"), known);
    }

    void cleanup() {
        vexa::setInputBackend(&m_backend);
        m_backend.refuse(false);
    }

    void aPressAndAReleaseArriveOnceAndInOrder() {
        Watched watched;
        m_backend.feedKey(kVK_ANSI_G, true);
        m_backend.feedKey(kVK_ANSI_G, false);
        m_backend.feedKey(kVK_ANSI_A, true);
        QTRY_COMPARE(watched.keys.size(), 3);
        QCOMPARE(watched.keys.takeFirst(), (QVariantList{kVK_ANSI_G, 1}));
        QCOMPARE(watched.keys.takeFirst(), (QVariantList{kVK_ANSI_G, 0}));
        QCOMPARE(watched.keys.takeFirst(), (QVariantList{kVK_ANSI_A, 1}));
    }

    void aModifierArrivesWithItsToggledState() {
        Watched watched;
        for (const int key : {kVK_Control, kVK_RightShift, kVK_Control})
            m_backend.feedModifier(key);
        QTRY_COMPARE(watched.keys.size(), 3);
        QCOMPARE(watched.keys.at(0), (QVariantList{kVK_Control, 1}));
        QCOMPARE(watched.keys.at(1), (QVariantList{kVK_RightShift, 0}));
        QCOMPARE(watched.keys.at(2), (QVariantList{kVK_Control, 0}));
    }

    void aPointerMoveArrivesWithWholeCoordinates() {
        Watched watched;
        m_backend.feedMove(100.9, -0.5);
        QTRY_COMPARE(watched.moves.size(), 1);
        QCOMPARE(watched.moves.first(), (QVariantList{5, 100, 0}));
    }

    void aClickBringsNothing() {
        Watched watched;
        m_backend.feedButton(true);
        m_backend.feedButton(false);
        m_backend.feedKey(kVK_ANSI_G, true); // comes after, so whatever the click brought would be here
        QTRY_COMPARE(watched.keys.size(), 1);
        QVERIFY(watched.moves.isEmpty());
    }

    void messagesArriveOnTheGuiThread() {
        CKeyboardHandler handler;
        QThread *thread = nullptr;
        QObject context;
        connect(
            &handler, &CKeyboardHandler::MysignalKeyboardMessage, &context,
            [&thread] { thread = QThread::currentThread(); }, Qt::DirectConnection);
        m_backend.feedKey(kVK_ANSI_G, true);
        QTRY_VERIFY(thread);
        QCOMPARE(thread, QThread::currentThread());
    }

    void theListenerLivesOnAThreadOfItsOwn() {
        const int before = threadsOfThisProcess();
        CKeyboardHandler handler;
        QCOMPARE(threadsOfThisProcess(), before + 1);
        QCOMPARE(m_backend.openSources(), 1);
    }

    void theListenerIsDestroyedOnItsOwnThread() {
        WatchedBackend watched;
        { CKeyboardHandler handler; }
        QVERIFY(watched.endedOn != std::thread::id());
        QVERIFY(watched.endedOn == watched.openedOn);
        QVERIFY(watched.endedOn != std::this_thread::get_id());
    }

    void destroyingAnIdleHandlerReturns() {
        QVERIFY(std::is_nothrow_destructible_v<CKeyboardHandler>);
        const int before = threadsOfThisProcess();
        { CKeyboardHandler handler; }
        QCOMPARE(m_backend.openSources(), 0);
        QTRY_COMPARE(threadsOfThisProcess(), before); // the system forgets a joined thread a moment later
    }

    void destroyingABusyHandlerReturns() {
        std::atomic<bool> done{false};
        std::thread typist([this, &done] {
            while (!done)
                m_backend.feedKey(kVK_ANSI_G, true);
        });
        { CKeyboardHandler handler; }
        done = true;
        typist.join();
        QCOMPARE(m_backend.openSources(), 0);
    }

    void stoppingTwiceIsHarmless() {
        CKeyboardHandler handler;
        handler.stopListening();
        QTRY_COMPARE(m_backend.openSources(), 0);
        handler.stopListening();
    }

    void aRefusedTapBreaksThePromiseAndLeavesNoThread() {
        m_backend.refuse();
        const int before = threadsOfThisProcess();
        QVERIFY(codeThrownBy<std::future_error>([] { CKeyboardHandler(); }) ==
                std::future_errc::broken_promise);
        QTRY_COMPARE(threadsOfThisProcess(), before);
        QCOMPARE(m_backend.openSources(), 0);

        m_backend.refuse(false);
        CKeyboardHandler handler; // nothing of the failed one is in the way
    }

    void aThreadThatCannotBeStartedThrowsItsOwnError() {
        pthread_attr_t usual, impossible;
        QCOMPARE(pthread_getattr_default_np(&usual), 0);
        QCOMPARE(pthread_attr_init(&impossible), 0);
        QCOMPARE(pthread_attr_setstacksize(&impossible, std::size_t{1} << 47),
                 0); // no address space has that much
        QCOMPARE(pthread_setattr_default_np(&impossible), 0);
        const std::error_code thrown = codeThrownBy<std::system_error>([] { CKeyboardHandler(); });
        QCOMPARE(pthread_setattr_default_np(&usual), 0);
        QCOMPARE(thrown, std::make_error_code(std::errc::resource_unavailable_try_again));
        QCOMPARE(m_backend.openSources(), 0);
    }

    void aFailedConstructionIsToldByTheHandlerToo() {
        failuresTold = 0;
        QSignalSpyCallbackSet callbacks{countFailuresTold, nullptr, nullptr, nullptr};
        qt_register_signal_spy_callbacks(&callbacks);
        { CKeyboardHandler handler; }
        QCOMPARE(failuresTold, 0);
        m_backend.refuse();
        QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);
        qt_register_signal_spy_callbacks(nullptr);
        QCOMPARE(failuresTold, 1);
    }

    void aSecondHandlerBreaksItsPromiseAndTheFirstWorksOn() {
        CKeyboardHandler first;
        QSignalSpy keys(&first, &CKeyboardHandler::MysignalKeyboardMessage);
        QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);
        m_backend.feedKey(kVK_ANSI_G, true);
        QTRY_COMPARE(keys.size(), 1);
    }

    void aFailureIsToldWithItsText_data() {
        QTest::addColumn<bool>("refused");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("no tap") << true << QByteArray("Failed to create eventTap");
        QTest::newRow("port taken") << false << QByteArray("Failed to create messagePort");
    }

    void aFailureIsToldWithItsText() {
        QFETCH(bool, refused);
        CKeyboardHandler handler; // holds the port
        QSignalSpy failures(&handler, &CKeyboardHandler::signalKeyboardException);
        m_backend.refuse(refused);
        std::thread(CKeyboardHandler::run, std::promise<CAnyKeyboardKiller>(), &handler).join();
        QCOMPARE(failures.size(), 1); // told while the thread was still running, on this living handler
        QTEST(failures.first().first().value<CKeyboardExceptionMessage>().text, "text");
    }

    void aFailureWhileListeningIsToldAndTheHandlerStillEnds_data() {
        QTest::addColumn<bool>("withText");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("a failure with a text") << true << QByteArray("the session broke");
        QTest::newRow("any other") << false << QByteArray("Unknown keyboard exception!");
    }

    void aFailureWhileListeningIsToldAndTheHandlerStillEnds() {
        QFETCH(bool, withText);
        QFETCH(QByteArray, text);
        BreakingBackend breaking(withText);
        const int before = threadsOfThisProcess();
        {
            CKeyboardHandler handler;
            QSignalSpy keys(&handler, &CKeyboardHandler::MysignalKeyboardMessage);
            QByteArrayList told;
            connect(&handler, &CKeyboardHandler::signalKeyboardException, this,
                    [&told](const CKeyboardExceptionMessage &message) { told.append(message.text); });
            breaking.feedKey(kVK_ANSI_G, true);
            QTRY_COMPARE(told, QByteArrayList{text});
            QTRY_COMPARE(threadsOfThisProcess(), before);
            QCOMPARE(breaking.openSources(), 0);
            QVERIFY(keys.isEmpty());
        } // its handle reaches nobody any more, and its thread has ended by itself
        QCOMPARE(threadsOfThisProcess(), before);
    }

    void aRunWithoutPromiseIsToldAsFailure() {
        CKeyboardHandler *handler = new CKeyboardHandler;
        QSignalSpy failures(handler, &CKeyboardHandler::signalKeyboardException);
        handler->stopListening();
        QTRY_COMPARE(m_backend.openSources(), 0); // its port is free
        std::thread(CKeyboardHandler::run, statelessPromise(), handler).join();
        QCOMPARE(failures.size(), 1);
        QVERIFY(!failures.first().first().value<CKeyboardExceptionMessage>().text.isEmpty());
        delete handler; // the handle it kept reaches nobody, and the destructor still joins
    }

    void theExceptionSlotIgnoresWhatItIsTold() {
        Watched watched;
        watched.handler.slotOnKeyboardException(CKeyboardExceptionMessage("any"));
        QVERIFY(watched.failures.isEmpty());
        m_backend.feedKey(kVK_ANSI_G, true);
        QTRY_COMPARE(watched.keys.size(), 1);
    }

    void activationHasNoEffect() {
        Watched watched;
        watched.handler.deactivate();
        m_backend.feedKey(kVK_ANSI_G, true);
        QTRY_COMPARE(watched.keys.size(), 1);
        watched.handler.activate();
        m_backend.feedKey(kVK_ANSI_G, false);
        QTRY_COMPARE(watched.keys.size(), 2);
    }

private:
    vexa::RecordingBackend m_backend;
};

QTEST_GUILESS_MAIN(HandlerTest)
#include "HandlerTest.moc"
