// SPDX-License-Identifier: MIT
#include "StatelessPromise.h"
#include "fakes/RecordingBackend.h"
#include "input/CKeyboardHandler.h"
#include "support/NoThreads.h"
#include "support/Table.h"
#include "support/Thrown.h"

#include <QSignalSpy>
#include <QTest>

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

/// Notes on which threads its last source came and went, to be read when the handler is gone, which has
/// joined the only other thread; and may break the source with its first event.
class WatchedBackend : public vexa::RecordingBackend {
public:
    using Break = void (*)();
    explicit WatchedBackend(Break breaking = [] {}) : m_breaking(breaking) {}

    std::unique_ptr<vexa::InputSource> open() override {
        openedOn = std::this_thread::get_id();
        return std::make_unique<Source>(*this, RecordingBackend::open());
    }

    std::thread::id openedOn;
    std::thread::id endedOn;

private:
    class Source : public vexa::InputSource {
    public:
        Source(WatchedBackend &backend, std::unique_ptr<vexa::InputSource> source)
            : m_backend(backend), m_source(std::move(source)) {}
        ~Source() override { m_backend.endedOn = std::this_thread::get_id(); }

        int fd() const override { return m_source->fd(); }
        bool next(vexa::InputEvent &event) override {
            const bool taken = m_source->next(event);
            if (taken)
                m_backend.m_breaking();
            return taken;
        }

    private:
        WatchedBackend &m_backend;
        std::unique_ptr<vexa::InputSource> m_source;
    };

    const Break m_breaking;
};

using Messages = QList<QVariantList>;
using Refusals = Table<bool, QByteArray>;
using Breaks = Table<WatchedBackend::Break, QByteArray>;

/// A handler, and what it tells.
struct Watched {
    CKeyboardHandler handler;
    QSignalSpy keys{&handler, &CKeyboardHandler::MysignalKeyboardMessage};
    QSignalSpy moves{&handler, &CKeyboardHandler::MysignalMouseMessage};
    QSignalSpy failures{&handler, &CKeyboardHandler::signalKeyboardException};
};

} // namespace

Q_DECLARE_METATYPE(WatchedBackend::Break)

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
        QCOMPARE(Messages(watched.keys), (Messages{{kVK_ANSI_G, 1}, {kVK_ANSI_G, 0}, {kVK_ANSI_A, 1}}));
    }

    void aModifierArrivesWithItsToggledState() {
        Watched watched;
        for (const int key : {kVK_Control, kVK_RightShift, kVK_Control})
            m_backend.feedModifier(key);
        QTRY_COMPARE(watched.keys.size(), 3);
        QCOMPARE(Messages(watched.keys), (Messages{{kVK_Control, 1}, {kVK_RightShift, 0}, {kVK_Control, 0}}));
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
        const NoThreads noThreads;
        QCOMPARE(codeThrownBy<std::system_error>([] { CKeyboardHandler(); }),
                 std::make_error_code(std::errc::resource_unavailable_try_again));
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
        Watched first;
        QVERIFY_EXCEPTION_THROWN(CKeyboardHandler(), std::future_error);
        m_backend.feedKey(kVK_ANSI_G, true);
        QTRY_COMPARE(first.keys.size(), 1);
    }

    void aFailureIsToldWithItsText_data() {
        Refusals::begin({{"no tap", true, "Failed to create eventTap"},
                         {"port taken", false, "Failed to create messagePort"}});
    }
    void aFailureIsToldWithItsText() {
        const auto [refused, text] = Refusals::row();
        Watched watched; // holds the port
        m_backend.refuse(refused);
        std::thread(CKeyboardHandler::run, std::promise<CAnyKeyboardKiller>(), &watched.handler).join();
        QCOMPARE(watched.failures.size(), 1); // told while the thread was still running
        QCOMPARE(watched.failures.first().first().value<CKeyboardExceptionMessage>().text, text);
    }

    void aFailureWhileListeningIsToldAndTheHandlerStillEnds_data() {
        Breaks::begin({{"a failure with a text", [] { throw std::runtime_error("it broke"); }, "it broke"},
                       {"any other", [] { throw 7; }, "Unknown keyboard exception!"}});
    }
    void aFailureWhileListeningIsToldAndTheHandlerStillEnds() {
        const auto [breaking, text] = Breaks::row();
        WatchedBackend backend(breaking);
        const int before = threadsOfThisProcess();
        {
            Watched watched;
            QByteArrayList told;
            connect(&watched.handler, &CKeyboardHandler::signalKeyboardException, this,
                    [&told](const CKeyboardExceptionMessage &message) { told.append(message.text); });
            backend.feedKey(kVK_ANSI_G, true);
            QTRY_COMPARE(told, QByteArrayList{text});
            QTRY_COMPARE(threadsOfThisProcess(), before);
            QCOMPARE(backend.openSources(), 0);
            QVERIFY(watched.keys.isEmpty());
        } // its handle reaches nobody any more, and its thread has ended by itself
        QCOMPARE(threadsOfThisProcess(), before);
    }

    void aRunWithoutPromiseIsToldAsFailure() {
        Watched watched;
        watched.handler.stopListening();
        QTRY_COMPARE(m_backend.openSources(), 0); // its port is free
        std::thread(CKeyboardHandler::run, statelessPromise(), &watched.handler).join();
        QCOMPARE(watched.failures.size(), 1);
        QVERIFY(!watched.failures.first().first().value<CKeyboardExceptionMessage>().text.isEmpty());
    } // the handle it kept reaches nobody, and the destructor still joins

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
