// SPDX-License-Identifier: MIT
#include "platform/x11/input/RecordSource.h"

#include "platform/quartz/CoreGraphics.h"
#include "platform/x11/input/ButtonMap.h"
#include "platform/x11/input/Keyboards.h"
#include "platform/x11/input/Pointer.h"
#include "platform/x11/input/RecordedData.h"
#include "platform/x11/input/XTestPoster.h"

#include <stdexcept>
#include <sys/epoll.h>
#include <sys/timerfd.h>

#include <xcb/record.h>
#include <xcb/xcbext.h>
#include <xcb/xinput.h>

namespace vexa::x11 {

namespace {

constexpr long checkAfterNanoseconds = 250'000'000;

// What a record holds.
enum Category : std::uint8_t { FromServer = 0, FromClient = 1, EndOfData = 5 };

/// What is recorded of every client; also requests that set the pointer: XInput reports only what devices do.
xcb_record_range_t devicesAndWarps(const Connection &connection, bool withMoves) {
    xcb_record_range_t range{};
    range.device_events = {XCB_KEY_PRESS, XCB_BUTTON_RELEASE};
    if (withMoves) {
        range.device_events.last = XCB_MOTION_NOTIFY;
    } else {
        const std::uint8_t input = xcb_get_extension_data(connection.get(), &xcb_input_id)->major_opcode;
        range.core_requests = {XCB_WARP_POINTER, XCB_WARP_POINTER};
        range.ext_requests.major = {input, input};
        range.ext_requests.minor = {XCB_INPUT_XI_WARP_POINTER, XCB_INPUT_XI_WARP_POINTER};
    }
    return range;
}

} // namespace

std::unique_ptr<RecordSource> RecordSource::open(XTestPoster &poster, const SharedPlace &screen) {
    auto source = std::unique_ptr<RecordSource>(new RecordSource(poster, screen));
    if (!source->m_timer.isValid() || !source->m_poll.isValid() || !source->listen())
        return nullptr;
    if (const auto pointer = pointerState(*source->m_control))
        source->m_translator.startAt(pointer->position);
    source->watch(source->m_timer.get());
    return source;
}

RecordSource::RecordSource(XTestPoster &poster, const SharedPlace &screen)
    : m_poster(poster)
    , m_screen(screen)
    , m_timer(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK))
    , m_poll(epoll_create1(EPOLL_CLOEXEC)) {
    // The server records what the devices press.
    m_translator.meaningOfButton = [this](std::uint8_t button) {
        return vexa::x11::meaningOfButton(*m_control, button);
    };
}

RecordSource::~RecordSource() {
    m_poster.leaveRecording(m_context);
}

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

    m_poster.leaveRecording(m_context);
    m_context = xcb_generate_id(x);
    const xcb_record_client_spec_t everybody = XCB_RECORD_CS_ALL_CLIENTS;
    const xcb_record_range_t range = devicesAndWarps(*m_control, !selectPointerMoves(*m_control));
    if (!m_control->succeeds(
            xcb_record_create_context_checked(x, m_context, 0, 1, 1, &everybody, &range).sequence))
        return false;
    m_poster.joinRecording(m_context);

    // The first record says that recording has begun: from here on nothing is missed.
    const auto cookie = xcb_record_enable_context(m_data->get(), m_context);
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
        readRecords();
        followPointer();
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
    // What changed in between was not reported.
    lookAtKeys();
    m_moved = true;
    followPointer();
}

bool RecordSource::readRecords() {
    // Looking for events reads the socket. It comes first because the records that it finds beside them no
    // longer make the descriptor readable.
    m_data->dropEvents();
    bool deviceDid = false;
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
            deviceDid = true;
        } else if (reply->category == FromClient) {
            if (m_poster.isClient(reply->xid_base))
                takeFakeRequests(data, size, m_translator);
            else
                m_moved = true;
        } else if (reply->category == EndOfData) {
            m_recording = false;
        }
    }
    std::free(error);
    m_recording = m_recording && !m_data->isBroken();
    return deviceDid;
}

/// Looks where the pointer is if it has moved, until there is something to tell or it has stopped.
void RecordSource::followPointer() {
    // Before the look as well as after it: its answer may bring events along, which then no longer make the
    // descriptor readable.
    m_moved = takePointerMoves(*m_control) || m_moved;
    while (m_moved && !m_translator.hasNext()) {
        const auto pointer = pointerState(*m_control);
        if (!pointer)
            return;
        m_moved = false;
        // The records of all that happened before the answer arrive before it, and with them where the
        // pointer was then. But they may be of later, and the answer old.
        if (readRecords()) {
            m_moved = true;
        } else {
            m_translator.screen = m_screen.get();
            m_translator.take({DeviceEvent::Motion, 0, pointer->position, pointer->buttons});
        }
        m_moved = takePointerMoves(*m_control) || m_moved;
    }
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
    KeySet down = keysDown(*m_control);
    down.add(holdersOfKeys(*m_control).keyboards); // the pen may be on a second master keyboard
    readRecords();
    if (!m_control->isBroken() && m_translator.keyChanges() == before)
        m_translator.reconcile([&down](XKeyCode key) { return down.has(key); });
}

} // namespace vexa::x11
