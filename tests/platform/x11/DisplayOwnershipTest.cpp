// SPDX-License-Identifier: MIT
#include "platform/x11/activation/DisplayOwnership.h"

#include <QTest>

#include <future>
#include <poll.h>
#include <sys/socket.h>
#include <thread>

#include <xcb/xcb.h>

using Ownership = vexa::x11::DisplayOwnership;
using Answer = Ownership::Answer;
using namespace std::chrono_literals;

/// Two instances on one display, as two connections of this process.
class DisplayOwnershipTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        m_first = Ownership::open();
        m_second = Ownership::open();
        QVERIFY(m_first && m_second);
        // The server takes a selection back a moment after its owner's connection has ended.
        QTRY_VERIFY(m_first->claim());
    }

    void cleanup() {
        m_first.reset();
        m_second.reset();
    }

    void theFirstHasTheDisplay() {
        QVERIFY(!m_second->claim());
        QVERIFY(m_first->claim());
    }

    void theNextHasItWhenTheFirstHasGone() {
        m_first.reset();
        QTRY_VERIFY(m_second->claim());
    }

    void whoStartsIsNotWaitedFor() {
        QCOMPARE(m_second->activateOther(1h), Answer::Starting);
        m_first->announceReady();
        QVERIFY(QTest::qWaitFor([this] { return m_first->read().activated; }));
    }

    void whoAnswersIsActivatedOnce() {
        makeFirstReady();
        auto answer = std::async(std::launch::async, [this] { return m_second->activateOther(1h); });
        int activations = 0;
        while (answer.wait_for(1ms) != std::future_status::ready)
            activations += m_first->read().activated ? 1 : 0;
        QCOMPARE(answer.get(), Answer::Activated);
        QCOMPARE(activations, 1);
        QVERIFY(!m_first->read().activated);
    }

    void whoDoesNotAnswerIsNotWaitedForLonger() {
        makeFirstReady();
        QCOMPARE(m_second->activateOther(20ms), Answer::Silent);
    }

    void whoGoesMeanwhileIsNotWaitedFor() {
        makeFirstReady();
        auto answer = std::async(std::launch::async, [this] { return m_second->activateOther(1h); });
        m_first.reset();
        QCOMPARE(answer.get(), Answer::Gone);
    }

    void whoHasGoneBeforeIsFoundGone() {
        m_first.reset();
        QTRY_COMPARE(m_second->activateOther(20ms), Answer::Gone);
    }

    /// Or the start that asks would go on asking.
    void aServerThatHasGoneIsNotTakenForAnInstanceThatHas() {
        QCOMPARE(shutdown(m_second->fd(), SHUT_RDWR), 0);
        QVERIFY(!m_second->claim());
        QCOMPARE(m_second->activateOther(1h), Answer::NoServer);
    }

    void aServerThatGoesMeanwhileIsNotWaitedFor() {
        makeFirstReady();
        auto answer = std::async(std::launch::async, [this] { return m_second->activateOther(1h); });
        pollfd asked{m_first->fd(), POLLIN, 0};
        QCOMPARE(poll(&asked, 1, -1), 1);
        QCOMPARE(shutdown(m_second->fd(), SHUT_RDWR), 0);
        QCOMPARE(answer.get(), Answer::NoServer);
    }

    void aSelectionThatIsTakenAwayIsNoticed() {
        const auto stranger = vexa::x11::Connection::open();
        const char name[] = "VEXA_ORBILO";
        const auto request = xcb_intern_atom(stranger->get(), 1, sizeof name - 1, name);
        const vexa::x11::Reply<xcb_intern_atom_reply_t> atom(
            xcb_intern_atom_reply(stranger->get(), request, nullptr));
        xcb_set_selection_owner(stranger->get(), XCB_WINDOW_NONE, atom->atom, XCB_CURRENT_TIME);
        stranger->sync();
        QVERIFY(QTest::qWaitFor([this] { return m_first->read().lost; }));
        QVERIFY(m_first->claim());
        QVERIFY(!m_second->claim());
    }

private:
    void makeFirstReady() {
        m_first->announceReady();
        QVERIFY(m_first->claim()); // it is its own; the server has the announcement when it answers
    }

    std::unique_ptr<Ownership> m_first;
    std::unique_ptr<Ownership> m_second;
};

QTEST_GUILESS_MAIN(DisplayOwnershipTest)
#include "DisplayOwnershipTest.moc"
