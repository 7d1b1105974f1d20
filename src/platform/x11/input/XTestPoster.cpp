// SPDX-License-Identifier: MIT
#include "platform/x11/input/XTestPoster.h"

#include "platform/quartz/CoreGraphics.h"
#include "platform/x11/input/ButtonMap.h"
#include "platform/x11/input/FakeInput.h"
#include "platform/x11/input/KeyMeaning.h"
#include "platform/x11/input/Pointer.h"
#include "platform/x11/input/ServerGrab.h"

#include <algorithm>

#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace vexa::x11 {

namespace {

/// The virtual key to press; noKey when there is none for it. What starts a slide show is command and return
/// on macOS and F5 here; other keys with modifiers are not known.
int keyToPress(const InputEvent &event) {
    if (event.flags == 0)
        return event.keyCode >= 0 && event.keyCode < 128 ? static_cast<int>(event.keyCode) : noKey;
    const bool startsShow = event.keyCode == kVK_Return && event.flags == kCGEventFlagMaskCommand;
    return startsShow ? kVK_F5 : noKey;
}

} // namespace

XTestPoster::~XTestPoster() {
    if (!m_connection)
        return;
    for (std::size_t key = 0; key < m_kept.size(); ++key)
        settleKept(static_cast<XKeyCode>(key));
}

bool XTestPoster::connect() {
    const std::lock_guard lock(m_mutex);
    return ensureConnection();
}

void XTestPoster::joinRecording(std::uint32_t recording) {
    const std::lock_guard lock(m_mutex);
    m_recordings.push_back(recording);
    if (m_connection)
        recordFakes(*m_connection, recording);
}

void XTestPoster::leaveRecording(std::uint32_t recording) {
    const std::lock_guard lock(m_mutex);
    m_recordings.erase(std::remove(m_recordings.begin(), m_recordings.end(), recording), m_recordings.end());
}

bool XTestPoster::ensureConnection() {
    if (m_connection)
        m_connection->sync(); // or a connection that was ended meanwhile is not noticed
    if (m_connection && !m_connection->isBroken())
        return true;
    m_kept.reset();
    m_connection = Connection::open();
    if (m_connection && !m_connection->has(xcb_test_id))
        m_connection.reset();
    if (!m_connection)
        return false;
    m_client = m_connection->clientId();
    for (const std::uint32_t recording : m_recordings)
        recordFakes(*m_connection, recording);
    return true;
}

bool XTestPoster::post(const InputEvent &event, const platform::ScreenPlace &screen) {
    const std::lock_guard lock(m_mutex);
    if (!ensureConnection())
        return false;
    const platform::Pixels position = screen.toPixels({event.x, event.y});
    switch (event.type) {
    case kCGEventKeyDown:
        return postKey(keyThatMeans(*m_connection, keyToPress(event)));
    case kCGEventKeyUp:
        return positionOf(keyToPress(event)) != 0;
    case kCGEventLeftMouseDown:
        return postButton(position, true);
    case kCGEventLeftMouseUp:
        return postButton(position, false);
    case kCGEventMouseMoved:
        fakeMotion(*m_connection, position);
        return m_connection->sync();
    default:
        return false;
    }
}

bool XTestPoster::postKey(XKeyCode key) {
    return key != 0 && withoutModifiers([this, key] {
               fakeKey(*m_connection, true, key);
               fakeKey(*m_connection, false, key);
           });
}

bool XTestPoster::postButton(platform::Pixels position, bool down) {
    const auto pointer = pointerState(*m_connection);
    if (!pointer || pointer->position != position)
        fakeMotion(*m_connection, position);
    return withoutModifiers([this, down, button = buttonThatMeansFirst(*m_connection)] {
        fakeButton(*m_connection, down, button);
    });
}

template<typename Fake> bool XTestPoster::withoutModifiers(Fake fake) {
    {
        const ServerGrab grab(m_connection->get());
        ModifierLift lift(*m_connection, m_kept);
        fake();
        lift.restore();
    }
    return m_connection->sync();
}

void XTestPoster::settle(int virtualKey) {
    const std::lock_guard lock(m_mutex);
    if (m_connection)
        settleKept(positionOf(virtualKey));
}

/// While our faking device counts as holding the key, a press of it that another client fakes has no effect.
void XTestPoster::settleKept(XKeyCode key) {
    if (!m_kept[key])
        return;
    {
        const ServerGrab grab(m_connection->get());
        giveUpKept(*m_connection, m_kept, key);
    }
    m_connection->sync();
}

} // namespace vexa::x11
