// SPDX-License-Identifier: MIT
#include "platform/SessionInput.h"

#include <atomic>
#include <xcb/record.h>
#include <xcb/xtest.h>

#include "platform/x11/input/PacedPosts.h"
#include "platform/x11/input/RecordSource.h"
#include "platform/x11/input/XTestPoster.h"

namespace vexa::x11 {

namespace {

class SessionInput : public InputBackend {
public:
    std::unique_ptr<InputSource> open() override { return RecordSource::open(m_poster, pixelsPerPoint); }
    bool post(const InputEvent &event) override { return m_posts.post(event); }

    std::atomic<double> pixelsPerPoint{1};

private:
    XTestPoster m_poster;
    PacedPosts m_posts{[this](const InputEvent &event) { return m_poster.post(event, pixelsPerPoint); }};
};

} // namespace

} // namespace vexa::x11

namespace vexa::platform {

void useSessionInput(double devicePixelsPerPoint) {
    static x11::SessionInput input;
    input.pixelsPerPoint = devicePixelsPerPoint;
    setInputBackend(&input);
}

std::string sessionInputObstacle() {
    const auto connection = x11::Connection::open();
    if (!connection)
        return "cannot reach the X server of this session (DISPLAY)";
    if (!connection->has(xcb_record_id))
        return "the X server has no RECORD extension, so the pen cannot be heard";
    if (!connection->has(xcb_test_id))
        return "the X server has no XTEST extension, so no slide show can be controlled";
    return {};
}

} // namespace vexa::platform
