// SPDX-License-Identifier: MIT
#include "platform/x11/input/RecordSource.h"

#include "platform/quartz/CoreGraphics.h"
#include "platform/x11/input/Keyboards.h"
#include "platform/x11/input/RecordedData.h"
#include "platform/x11/input/XTestPoster.h"

#include <stdexcept>
#include <sys/epoll.h>
#include <sys/timerfd.h>

#include <xcb/record.h>
#include <xcb/xcbext.h>
#include <xcb/xtest.h>

namespace vexa::x11 {

namespace {

constexpr long checkAfterNanoseconds = 250'000'000;

// What a record holds.
enum Category : std::uint8_t { FromServer = 0, FromClient = 1, EndOfData = 5 };

xcb_record_range_t deviceEvents() {
    xcb_record_range_t range{};
    range.device_events = {XCB_KEY_PRESS, XCB_MOTION_NOTIFY};
    return range;
}

xcb_record_range_t fakeRequests(const Connection &connection) {
    const std::uint8_t opcode = xcb_get_extension_data(connection.get(), &xcb_test_id)->major_opcode;
    xcb_record_range_t range{};
    range.ext_requests.major = {opcode, opcode};
    range.ext_requests.minor = {XCB_TEST_FAKE_INPUT, XCB_TEST_FAKE_INPUT};
    return range;
}

bool succeeds(const Connection &connection, xcb_void_cookie_t cookie) {
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection.get(), cookie));
    return !error && !connection.isBroken();
}

} // namespace

std::unique_ptr<RecordSource> RecordSource::open(XTestPoster &poster, const SharedPlace &screen) {
    auto source = std::unique_ptr<RecordSource>(new RecordSource(poster, screen));
    if (!source->m_timer.isValid() || !source->m_poll.isValid() || !source->listen())
        return nullptr;
    source->watch(source->m_timer.get());
    return source;
}

RecordSource::RecordSource(XTestPoster &poster, const SharedPlace &screen)
    : m_poster(poster)
    , m_screen(screen)
    , m_timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
    , m_poll(epoll_create1(EPOLL_CLOEXEC)) {}

bool RecordSource::listen() {
    const bool canPost = m_poster.connect();
    m_control = Connection::open();
    m_data = Connection::open();
    if (!canPost || !m_control || !m_data || !m_control->has(xcb_record_id) || !m_data->has(xcb_record_id))
        return false;
    xcb_connection_t *x = m_control->get();

    // The server flushes records only together with events that it delivers to some client. Where no window
    // selects key or pointer events there are none, so this connection selects them, and discards them.
    const std::uint32_t taken =
        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_POINTER_MOTION;
    xcb_change_window_attributes(x, m_control->root(), XCB_CW_EVENT_MASK, &taken);

    const xcb_record_context_t context = xcb_generate_id(x);
    const xcb_record_client_spec_t everybody = XCB_RECORD_CS_ALL_CLIENTS;
    // Everybody's requests, as the poster becomes another client when it has to connect again.
    const xcb_record_range_t ranges[] = {deviceEvents(), fakeRequests(*m_control)};
    if (!succeeds(*m_control,
                  xcb_record_create_context_checked(x, context, 0, 1, std::size(ranges), &everybody, ranges)))
        return false;

    // The first record says that recording has begun: from here on nothing is missed.
    const auto cookie = xcb_record_enable_context(m_data->get(), context);
    const Reply<xcb_record_enable_context_reply_t> begun(
        xcb_record_enable_context_reply(m_data->get(), cookie, nullptr));
    if (!begun)
        return false;
    m_records = cookie.sequence;
    m_recording = true;
    watch(m_data->fd());
    watch(m_control->fd());
    return true;
}

void RecordSource::watch(int fd) const {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = fd;
    epoll_ctl(m_poll.get(), EPOLL_CTL_ADD, fd, &event);
}

bool RecordSource::next(InputEvent &event) {
    if (!m_translator.next(event)) {
        checkKeys(); // first, since its answer may bring events of the control connection along
        m_control->dropEvents();
        readRecords();
        if (!m_recording || m_control->isBroken())
            listenAgain();
        if (!m_translator.next(event))
            return false;
    }
    if (event.type == kCGEventFlagsChanged)
        m_poster.settle(static_cast<int>(event.keyCode));
    if (event.type == kCGEventFlagsChanged || event.type == kCGEventKeyDown)
        scheduleCheck();
    return true;
}

/// Our connections may have been closed, or the recording ended, while the server goes on.
void RecordSource::listenAgain() {
    if (!listen())
        throw std::runtime_error("Failed to create eventTap");
    lookAtKeys(); // finds keys that were released in between
}

void RecordSource::readRecords() {
    // Looking for events reads the socket. It comes first because the records that it finds beside them no
    // longer make the descriptor readable.
    m_data->dropEvents();
    void *record = nullptr;
    xcb_generic_error_t *error = nullptr;
    while (xcb_poll_for_reply(m_data->get(), m_records, &record, &error) && record) {
        const Reply<xcb_record_enable_context_reply_t> reply(
            static_cast<xcb_record_enable_context_reply_t *>(record));
        const std::uint8_t *const data = xcb_record_enable_context_data(reply.get());
        const auto size = static_cast<std::size_t>(xcb_record_enable_context_data_length(reply.get()));
        if (reply->category == FromServer) {
            m_translator.screen = m_screen.get();
            takeDeviceEvents(data, size, m_translator);
        } else if (reply->category == FromClient) {
            if (m_poster.isClient(reply->xid_base))
                takeFakeRequests(data, size, m_translator);
        } else if (reply->category == EndOfData) {
            m_recording = false;
        }
    }
    std::free(error);
    m_recording = m_recording && !m_data->isBroken();
}

void RecordSource::scheduleCheck() const {
    itimerspec when{};
    when.it_value.tv_nsec = checkAfterNanoseconds;
    timerfd_settime(m_timer.get(), 0, &when, nullptr);
}

/// While keys are down: looks now and then whether the server agrees, for a release that it never told of.
void RecordSource::checkKeys() {
    std::uint64_t expirations = 0;
    if (read(m_timer.get(), &expirations, sizeof expirations) != sizeof expirations)
        return;
    if (m_control->isBroken() || !m_translator.anyKeyDown())
        return;
    lookAtKeys();
    scheduleCheck();
}

void RecordSource::lookAtKeys() {
    // The records of all that happened before the answer arrive before it. If a key changed in one of them,
    // the answer may be older than what we know.
    const unsigned before = m_translator.keyChanges();
    const KeySet down = keysDown(*m_control);
    readRecords();
    if (!m_control->isBroken() && m_translator.keyChanges() == before)
        m_translator.reconcile([&down](XKeyCode key) { return down.has(key); });
}

} // namespace vexa::x11
