// SPDX-License-Identifier: MIT
#include "platform/x11/input/PacedPosts.h"

#include "platform/quartz/CoreGraphics.h"
#include "support/NoThreads.h"
#include "support/Table.h"

#include <QTest>

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

using namespace std::chrono_literals;
using vexa::InputEvent;
using vexa::x11::PacedPosts;

namespace {

using Clock = std::chrono::steady_clock;
using Types = std::vector<std::uint32_t>;

const Types click{kCGEventMouseMoved, kCGEventLeftMouseDown, kCGEventLeftMouseUp};
const Types clickAndKey{kCGEventMouseMoved, kCGEventLeftMouseDown, kCGEventLeftMouseUp, kCGEventKeyDown};

/// What is posted, what has left of it, and when.
class Session {
public:
    template<typename... Given>
    explicit Session(Given... pace)
        : m_posts(std::make_unique<PacedPosts>(
              [this](const InputEvent &event) { return leave(event); },
              [this](const InputEvent &) { return [this] { return reads.load(); }; }, pace...)) {}

    bool post(std::uint32_t type) { return m_posts->post({type}); }
    void postAll(const Types &types) {
        for (const std::uint32_t type : types)
            QVERIFY(post(type));
    }
    void end() { m_posts.reset(); }

    Types types() const {
        const std::lock_guard lock(m_mutex);
        return m_types;
    }
    std::vector<Clock::time_point> times() const {
        const std::lock_guard lock(m_mutex);
        return m_times;
    }

    bool refuses = false;
    std::atomic<bool> reads{true}; ///< whether the program under the clicks does

private:
    bool leave(const InputEvent &event) {
        const std::lock_guard lock(m_mutex);
        m_types.push_back(event.type);
        m_times.push_back(Clock::now());
        return !refuses;
    }

    mutable std::mutex m_mutex;
    Types m_types;
    std::vector<Clock::time_point> m_times;
    std::unique_ptr<PacedPosts> m_posts; // which may post until it has gone
};

Types operator+(Types left, const Types &right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

using Orders = vexa::test::Table<Types, std::size_t>;
using Ends = vexa::test::Table<PacedPosts::Pace, bool>;

} // namespace

Q_DECLARE_METATYPE(PacedPosts::Pace)
Q_DECLARE_METATYPE(Types)

/// Where an hour stands for the pause, what leaves does so because it need not wait.
class PacedPostsTest : public QObject {
    Q_OBJECT

private slots:
    void whatNeedNotWaitLeavesAtOnceAndTheRestInOrder_data() {
        const Types keys{kCGEventKeyDown, kCGEventKeyUp, kCGEventMouseMoved, kCGEventKeyDown};
        Orders::begin({{"without a click", keys, 4},
                       {"behind a press alone", Types{kCGEventLeftMouseDown} + keys, 5},
                       {"a click, a move, and the key behind them",
                        click + Types{kCGEventMouseMoved, kCGEventKeyDown}, 4},
                       {"what is posted behind a waiting key",
                        click + Types{kCGEventKeyDown, kCGEventKeyUp, kCGEventMouseMoved}, 3}});
    }
    void whatNeedNotWaitLeavesAtOnceAndTheRestInOrder() {
        const auto [all, atOnce] = Orders::row();
        Session session(PacedPosts::Pace{1h, 0ms});
        session.postAll(all); // and this returns
        QCOMPARE(session.types(), Types(all.begin(), all.begin() + std::ptrdiff_t(atOnce)));
        session.end();
        QCOMPARE(session.types(), all);
    }

    void aWaitingKeyLeavesByItselfAfterThePause() {
        Session session(PacedPosts::Pace{50ms, 0ms});
        for (int round = 0; round < 3; ++round)
            session.postAll(clickAndKey);
        QTRY_COMPARE(session.types(), clickAndKey + clickAndKey + clickAndKey);
        const auto times = session.times();
        for (std::size_t key = 3; key < times.size(); key += 4)
            QVERIFY(times[key] - times[key - 1] >= 50ms);
    }

    void unlessToldOtherwiseThePauseIsLongEnoughForABusyProgram() {
        Session session;
        session.postAll(clickAndKey);
        QTRY_COMPARE(session.types(), clickAndKey);
        QVERIFY(session.times()[3] - session.times()[2] >= 250ms);
    }

    void aKeyWaitsForAProgramThatStandsStill() {
        Session session(PacedPosts::Pace{300ms, 0ms, 1h});
        session.reads = false;
        session.postAll(clickAndKey);
        QVERIFY(!QTest::qWaitFor([&] { return session.types() != click; }, 500));
        const auto read = Clock::now();
        session.reads = true;
        QTRY_COMPARE(session.types(), clickAndKey);
        QVERIFY(session.times()[3] - read >= 300ms);
    }

    void aProgramThatNeverReadsIsNotWaitedForLonger_data() {
        Ends::begin({{"than its time", {300ms, 0ms, 300ms}, false},
                     {"than the end may take", {300ms, 30ms, 1h}, true}});
    }
    void aProgramThatNeverReadsIsNotWaitedForLonger() {
        const auto [pace, ends] = Ends::row();
        Session session(pace);
        session.reads = false;
        session.postAll(clickAndKey);
        if (ends)
            session.end();
        QTRY_COMPARE(session.types(), clickAndKey);
    }

    void whatWaitsAtTheEndLeavesFirst() {
        for (const PacedPosts::Pace pace : {PacedPosts::Pace{30ms, 1h}, PacedPosts::Pace{1h, 30ms}}) {
            Session session(pace);
            session.postAll(clickAndKey);
            session.end();
            QCOMPARE(session.types(), clickAndKey);
            QVERIFY(session.times()[3] - session.times()[2] >= 30ms); // in its time, or when there is no more
        }
    }

    void aRefusalIsTold() {
        Session session(PacedPosts::Pace{1h, 0ms});
        session.refuses = true;
        QVERIFY(!session.post(kCGEventKeyDown));
    }

    void withoutAThreadToWaitOnAKeyLeavesAtOnce() {
        const vexa::test::NoThreads noThreads;
        Session session(PacedPosts::Pace{1h, 0ms});
        session.postAll(clickAndKey);
        QCOMPARE(session.types(), clickAndKey);
    }
};

QTEST_GUILESS_MAIN(PacedPostsTest)
#include "PacedPostsTest.moc"
