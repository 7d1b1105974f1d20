// SPDX-License-Identifier: MIT
#include "platform/x11/input/PacedPosts.h"

#include "platform/quartz/CoreGraphics.h"
#include "support/Table.h"

#include <QtTest>

#include <atomic>
#include <future>
#include <memory>
#include <pthread.h>

using namespace std::chrono_literals;
using vexa::InputEvent;
using vexa::x11::PacedPosts;

namespace {

using Types = std::vector<std::uint32_t>;

const Types click{kCGEventMouseMoved, kCGEventLeftMouseDown, kCGEventLeftMouseUp};

/// What has left, and when.
class Session {
public:
    PacedPosts::Post post() {
        return [this](const InputEvent &event) {
            const std::lock_guard lock(m_mutex);
            m_types.push_back(event.type);
            m_times.push_back(std::chrono::steady_clock::now());
            return !refuses;
        };
    }
    Types types() const {
        const std::lock_guard lock(m_mutex);
        return m_types;
    }
    std::vector<std::chrono::steady_clock::time_point> times() const {
        const std::lock_guard lock(m_mutex);
        return m_times;
    }

    /// The program under the clicks.
    PacedPosts::Ask ask() {
        return [this](const InputEvent &) { return [this] { return reads.load(); }; };
    }

    bool refuses = false;
    std::atomic<bool> reads{true};

private:
    mutable std::mutex m_mutex;
    Types m_types;
    std::vector<std::chrono::steady_clock::time_point> m_times;
};

bool post(PacedPosts &posts, std::uint32_t type) {
    InputEvent event;
    event.type = type;
    return posts.post(event);
}

void postClick(PacedPosts &posts) {
    for (const std::uint32_t type : click)
        QVERIFY(post(posts, type));
}

Types operator+(Types left, const Types &right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

using Ends = vexa::test::Table<PacedPosts::Pace, bool>;

} // namespace

Q_DECLARE_METATYPE(PacedPosts::Pace)

/// Where an hour stands for the pause, what leaves does so because it need not wait.
class PacedPostsTest : public QObject {
    Q_OBJECT

private slots:
    void withoutAClickEverythingLeavesAtOnce() {
        Session session;
        PacedPosts posts(session.post(), session.ask(), {1h, 0ms});
        const Types all{kCGEventKeyDown, kCGEventKeyUp, kCGEventMouseMoved, kCGEventKeyDown};
        for (const std::uint32_t type : all)
            QVERIFY(post(posts, type));
        QCOMPARE(session.types(), all);
    }

    void aClickLeavesAtOnceAndTheKeyBehindItWaits() {
        Session session;
        PacedPosts posts(session.post(), session.ask(), {1h, 0ms});
        postClick(posts);
        QVERIFY(post(posts, kCGEventMouseMoved));
        QVERIFY(post(posts, kCGEventKeyDown)); // and this returns
        QCOMPARE(session.types(), click + Types{kCGEventMouseMoved});
    }

    void whatIsPostedBehindAWaitingKeyWaitsToo() {
        Session session;
        {
            PacedPosts posts(session.post(), session.ask(), {1h, 0ms});
            postClick(posts);
            for (const std::uint32_t type : {kCGEventKeyDown, kCGEventKeyUp, kCGEventMouseMoved})
                QVERIFY(post(posts, type));
            QCOMPARE(session.types(), click);
        }
        QCOMPARE(session.types(), (click + Types{kCGEventKeyDown, kCGEventKeyUp, kCGEventMouseMoved}));
    }

    void aWaitingKeyLeavesByItselfAfterThePause() {
        Session session;
        PacedPosts posts(session.post(), session.ask(), {50ms, 0ms});
        for (int round = 0; round < 3; ++round) {
            postClick(posts);
            post(posts, kCGEventKeyDown);
        }
        QTRY_COMPARE(session.types().size(), std::size_t{12});
        const auto times = session.times();
        for (std::size_t key = 3; key < times.size(); key += 4) {
            QCOMPARE(session.types()[key], std::uint32_t{kCGEventKeyDown});
            QVERIFY(times[key] - times[key - 1] >= 50ms);
        }
    }

    void unlessToldOtherwiseThePauseIsLongEnoughForABusyProgram() {
        Session session;
        PacedPosts posts(session.post(), session.ask());
        postClick(posts);
        post(posts, kCGEventKeyDown);
        QTRY_COMPARE(session.types().size(), std::size_t{4});
        QVERIFY(session.times()[3] - session.times()[2] >= 250ms);
    }

    void aKeyWaitsForAProgramThatStandsStill() {
        Session session;
        session.reads = false;
        PacedPosts posts(session.post(), session.ask(), {300ms, 0ms, 1h});
        postClick(posts);
        post(posts, kCGEventKeyDown);
        QVERIFY(!QTest::qWaitFor([&] { return session.types() != click; }, 500));
        const auto read = std::chrono::steady_clock::now();
        session.reads = true;
        QTRY_COMPARE(session.types(), click + Types{kCGEventKeyDown});
        QVERIFY(session.times()[3] - read >= 300ms);
    }

    void aProgramThatNeverReadsIsNotWaitedForLonger_data() {
        Ends::begin();
        QTest::newRow("than its time") << PacedPosts::Pace{300ms, 0ms, 300ms} << false;
        QTest::newRow("than the end may take") << PacedPosts::Pace{300ms, 30ms, 1h} << true;
    }
    void aProgramThatNeverReadsIsNotWaitedForLonger() {
        const auto [pace, ends] = Ends::row();
        Session session;
        session.reads = false;
        auto posts = std::make_unique<PacedPosts>(session.post(), session.ask(), pace);
        postClick(*posts);
        post(*posts, kCGEventKeyDown);
        if (ends)
            posts.reset();
        QTRY_COMPARE(session.types(), click + Types{kCGEventKeyDown});
    }

    void aPressAloneLetsNoKeyWait() {
        Session session;
        PacedPosts posts(session.post(), session.ask(), {1h, 0ms});
        QVERIFY(post(posts, kCGEventLeftMouseDown));
        QVERIFY(post(posts, kCGEventKeyDown));
        QCOMPARE(session.types(), (Types{kCGEventLeftMouseDown, kCGEventKeyDown}));
    }

    void whatWaitsAtTheEndLeavesFirst() {
        for (const PacedPosts::Pace pace : {PacedPosts::Pace{30ms, 1h}, PacedPosts::Pace{1h, 30ms}}) {
            Session session;
            {
                PacedPosts posts(session.post(), session.ask(), pace);
                postClick(posts);
                post(posts, kCGEventKeyDown);
            }
            QCOMPARE(session.types(), click + Types{kCGEventKeyDown});
            QVERIFY(session.times()[3] - session.times()[2] >= 30ms); // in its time, or when there is no more
        }
    }

    void aRefusalIsTold() {
        Session session;
        session.refuses = true;
        PacedPosts posts(session.post(), session.ask(), {1h, 0ms});
        QVERIFY(!post(posts, kCGEventKeyDown));
    }

    void withoutAThreadToWaitOnAKeyLeavesAtOnce() {
        pthread_attr_t usual, impossible;
        QCOMPARE(pthread_getattr_default_np(&usual), 0);
        QCOMPARE(pthread_attr_init(&impossible), 0);
        QCOMPARE(pthread_attr_setstacksize(&impossible, std::size_t{1} << 47), 0); // nobody has that much
        QCOMPARE(pthread_setattr_default_np(&impossible), 0);
        Session session;
        PacedPosts posts(session.post(), session.ask(), {1h, 0ms});
        postClick(posts);
        const bool posted = post(posts, kCGEventKeyDown);
        QCOMPARE(pthread_setattr_default_np(&usual), 0);
        QVERIFY(posted);
        QCOMPARE(session.types(), click + Types{kCGEventKeyDown});
    }
};

QTEST_GUILESS_MAIN(PacedPostsTest)
#include "PacedPostsTest.moc"
