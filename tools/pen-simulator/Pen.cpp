// SPDX-License-Identifier: MIT
#include "Pen.h"

#include "platform/x11/input/FakeInput.h"
#include "platform/x11/input/Keyboards.h"

#include <algorithm>
#include <cstdio>
#include <thread>

#include <xcb/xcb.h>
#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace vexa::pen {

using namespace std::chrono_literals;

std::unique_ptr<Pen> Pen::open() {
    auto connection = x11::Connection::open();
    if (!connection || !connection->has(xcb_test_id)) {
        std::fprintf(stderr, "pen-simulator: %s\n",
                     connection ? "the X server has no XTEST extension"
                                : "cannot reach the X server (DISPLAY)");
        return nullptr;
    }
    return std::unique_ptr<Pen>(new Pen(std::move(connection)));
}

Pen::Pen(std::unique_ptr<x11::Connection> connection) : m_connection(std::move(connection)) {
    const auto keyboards = x11::realKeyboards(*m_connection);
    if (keyboards.empty())
        return;
    m_keyboard = keyboards.front();
    m_firstEvent = xcb_get_extension_data(m_connection->get(), &xcb_input_id)->first_event;
}

void Pen::key(int virtualKey, bool down) {
    const x11::XKeyCode position = x11::positionOf(virtualKey);
    const int press = m_keyboard ? m_firstEvent + XCB_INPUT_DEVICE_KEY_PRESS : XCB_KEY_PRESS;
    const int release = m_keyboard ? m_firstEvent + XCB_INPUT_DEVICE_KEY_RELEASE : XCB_KEY_RELEASE;
    xcb_test_fake_input(m_connection->get(), static_cast<std::uint8_t>(down ? press : release), position,
                        XCB_CURRENT_TIME, XCB_NONE, 0, 0, m_keyboard);
}

void Pen::typeChord(Letter letter) {
    const int keys[] = {kVK_Control, kVK_Shift, kVK_Option, static_cast<int>(letter)};
    for (const int pressed : keys)
        key(pressed, true);
    for (auto released = std::rbegin(keys); released != std::rend(keys); ++released)
        key(*released, false);
    m_connection->sync();
}

void Pen::move(platform::Pixels target, std::chrono::milliseconds duration) {
    constexpr auto step = 8ms;
    const platform::Pixels start = pointer();
    const auto steps = std::max<std::int64_t>(duration / step, 1);
    for (std::int64_t i = 1; i <= steps; ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(steps);
        const auto between = [part](int from, int to) { return from + static_cast<int>((to - from) * part); };
        x11::fakeMotion(*m_connection, {between(start.x, target.x), between(start.y, target.y)});
        m_connection->sync();
        if (i < steps)
            std::this_thread::sleep_for(step);
    }
}

void Pen::button(bool down) {
    x11::fakeButton(*m_connection, down, XCB_BUTTON_INDEX_1);
    m_connection->sync();
}

void Pen::wait(std::chrono::milliseconds duration) {
    std::this_thread::sleep_for(duration);
}

platform::Pixels Pen::pointer() const {
    xcb_connection_t *x = m_connection->get();
    const x11::Reply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(x, xcb_query_pointer(x, m_connection->root()), nullptr));
    return reply ? platform::Pixels{reply->root_x, reply->root_y} : platform::Pixels{0, 0};
}

} // namespace vexa::pen
