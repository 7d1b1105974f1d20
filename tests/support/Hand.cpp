// SPDX-License-Identifier: MIT
#include "support/Hand.h"

#include "platform/x11/input/FakeInput.h"
#include "platform/x11/input/Keyboards.h"

#include <stdexcept>

#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace vexa::test {

using x11::Connection;
using x11::Reply;

namespace {

/// Not the program's own function for it, which the tests judge by what they see here.
Reply<xcb_query_pointer_reply_t> queryPointer(const Connection &connection) {
    xcb_connection_t *x = connection.get();
    return Reply<xcb_query_pointer_reply_t>(
        xcb_query_pointer_reply(x, xcb_query_pointer(x, connection.root()), nullptr));
}

} // namespace

Hand::Hand() : m_connection(Connection::open()), m_program(Connection::open()) {
    if (!m_connection || !m_program)
        throw std::runtime_error("no X server");
    m_keyboard = x11::realKeyboards(*m_connection).at(0);
}

Hand::~Hand() = default;

void Hand::deviceKey(bool down, int xKeyCode) {
    const int first = xcb_get_extension_data(m_connection->get(), &xcb_input_id)->first_event;
    const int type = first + (down ? XCB_INPUT_DEVICE_KEY_PRESS : XCB_INPUT_DEVICE_KEY_RELEASE);
    xcb_test_fake_input(m_connection->get(), static_cast<std::uint8_t>(type),
                        static_cast<std::uint8_t>(xKeyCode), XCB_CURRENT_TIME, XCB_NONE, 0, 0, m_keyboard);
    m_connection->sync();
}

void Hand::type(std::initializer_list<int> xKeyCodes) {
    for (const int key : xKeyCodes)
        press(key);
    for (auto key = std::rbegin(xKeyCodes); key != std::rend(xKeyCodes); ++key)
        release(*key);
}

void Hand::goOnDuringServerGrabs() {
    xcb_test_grab_control(m_connection->get(), 1);
    m_connection->sync();
}

void Hand::fakePress(int xKeyCode) {
    x11::fakeKey(*m_connection, true, static_cast<std::uint8_t>(xKeyCode));
    m_connection->sync();
}

void Hand::fakeRelease(int xKeyCode) {
    x11::fakeKey(*m_connection, false, static_cast<std::uint8_t>(xKeyCode));
    m_connection->sync();
}

void Hand::moveTo(int x, int y) {
    x11::fakeMotion(*m_connection, {x, y});
    m_connection->sync();
}

void Hand::warpTo(int x, int y) {
    xcb_warp_pointer(m_connection->get(), XCB_NONE, m_connection->root(), 0, 0, 0, 0,
                     static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    m_connection->sync();
}

void Hand::warpThroughXInput(int x, int y) {
    constexpr xcb_input_device_id_t masterPointer = 2;
    xcb_input_xi_warp_pointer(m_connection->get(), XCB_NONE, m_connection->root(), 0, 0, 0, 0, x << 16,
                              y << 16, masterPointer);
    m_connection->sync();
}

void Hand::button(int number, bool down) {
    x11::fakeButton(*m_connection, down, static_cast<std::uint8_t>(number));
    m_connection->sync();
}

bool Hand::isDown(int xKeyCode) const {
    return x11::keysDown(*m_connection).has(static_cast<std::uint8_t>(xKeyCode));
}

Hand::Place Hand::pointer() const {
    const auto reply = queryPointer(*m_connection);
    return {reply->root_x, reply->root_y};
}

int Hand::buttonsDown() const {
    return queryPointer(*m_connection)->mask & (XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3);
}

void Hand::grabKeyboard(bool synchronous) {
    xcb_connection_t *x = m_connection->get();
    const auto mode = static_cast<std::uint8_t>(synchronous ? XCB_GRAB_MODE_SYNC : XCB_GRAB_MODE_ASYNC);
    const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
        x, xcb_grab_keyboard(x, 0, m_connection->root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, mode),
        nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        throw std::runtime_error("no keyboard grab");
}

void Hand::grabPointer() {
    xcb_connection_t *x = m_connection->get();
    const Reply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(
        x,
        xcb_grab_pointer(x, 0, m_connection->root(), XCB_EVENT_MASK_POINTER_MOTION, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
        nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS)
        throw std::runtime_error("no pointer grab");
}

void Hand::ungrab() {
    xcb_ungrab_keyboard(m_connection->get(), XCB_CURRENT_TIME);
    xcb_ungrab_pointer(m_connection->get(), XCB_CURRENT_TIME);
    m_connection->sync();
}

void Hand::holdClicksBack() {
    xcb_grab_button(m_connection->get(), 0, m_connection->root(), XCB_EVENT_MASK_BUTTON_PRESS,
                    XCB_GRAB_MODE_SYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_BUTTON_INDEX_1,
                    XCB_MOD_MASK_ANY);
    if (!m_connection->sync())
        throw std::runtime_error("no button grab");
}

void Hand::passClicksOn() {
    xcb_ungrab_button(m_connection->get(), XCB_BUTTON_INDEX_1, m_connection->root(), XCB_MOD_MASK_ANY);
    xcb_allow_events(m_connection->get(), XCB_ALLOW_REPLAY_POINTER, XCB_CURRENT_TIME);
    m_connection->sync();
}

void Hand::openFocusedWindow() {
    xcb_connection_t *x = m_program->get();
    const xcb_window_t window = xcb_generate_id(x);
    const std::uint32_t values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
    xcb_create_window(x, XCB_COPY_FROM_PARENT, window, m_program->root(), 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(x, window);
    xcb_set_input_focus(x, XCB_INPUT_FOCUS_NONE, window, XCB_CURRENT_TIME);
    m_program->sync();
}

std::vector<Hand::Given> Hand::takeGivenKeys() {
    constexpr int modifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
    std::vector<Given> given;
    xcb_connection_t *x = m_program->get();
    // Once this is answered, all that came before it has arrived.
    const Reply<xcb_get_input_focus_reply_t> fence(
        xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(x)}) {
        if (event->response_type != XCB_KEY_PRESS && event->response_type != XCB_KEY_RELEASE)
            continue;
        const auto *key = reinterpret_cast<const xcb_key_press_event_t *>(event.get());
        given.push_back({event->response_type == XCB_KEY_PRESS, key->detail, key->state & modifiers});
    }
    return given;
}

} // namespace vexa::test
