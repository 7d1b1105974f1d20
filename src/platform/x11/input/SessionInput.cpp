// SPDX-License-Identifier: MIT
#include "platform/SessionInput.h"

#include "platform/x11/input/ClickPing.h"
#include "platform/x11/input/PacedPosts.h"
#include "platform/x11/input/RecordSource.h"
#include "platform/x11/input/XTestPoster.h"

#include <xcb/record.h>
#include <xcb/xtest.h>

namespace vexa::x11 {

namespace {

class SessionInput : public InputBackend {
public:
    std::unique_ptr<InputSource> open() override { return RecordSource::open(m_poster, screen); }
    bool post(const InputEvent &event) override { return m_posts.post(event); }

    SharedPlace screen;

private:
    XTestPoster m_poster;
    PacedPosts m_posts{[this](const InputEvent &event) { return m_poster.post(event, screen.get()); },
                       [this](const InputEvent &release) -> PacedPosts::IsRead {
                           const auto place = screen.get().toPixels({release.x, release.y});
                           return [ping = std::make_shared<ClickPing>(place)] { return ping->isAnswered(); };
                       }};
};

} // namespace

} // namespace vexa::x11

namespace vexa::platform {

namespace {

x11::SessionInput &sessionInput() {
    static x11::SessionInput input;
    return input;
}

} // namespace

void useSessionInput(const ScreenPlace &primaryScreen) {
    followPrimaryScreen(primaryScreen);
    setInputBackend(&sessionInput());
}

void followPrimaryScreen(const ScreenPlace &primaryScreen) {
    sessionInput().screen.set(primaryScreen);
}

std::string sessionInputObstacle() {
    const auto connection = x11::Connection::open();
    if (!connection)
        return "cannot reach the X server of this session (DISPLAY)";
    if (!connection->has(xcb_record_id))
        return "the X server has no RECORD extension, so the pen cannot be heard";
    if (!connection->has(xcb_test_id))
        return "the X server has no XTEST extension, so no slide show can be controlled";
    // With fewer, the toolkit would draw by a table of colours, and crash.
    if (connection->colourDepth() < 15)
        return "the X server shows too few colours; 15 bits for each pixel are needed";
    return {};
}

} // namespace vexa::platform
