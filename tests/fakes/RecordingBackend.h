// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/VirtualKeys.h"

#include <mutex>
#include <vector>

namespace vexa {

inline bool operator==(const InputEvent &one, const InputEvent &other) {
    return one.type == other.type && one.keyCode == other.keyCode && one.flags == other.flags &&
           one.x == other.x && one.y == other.y && one.button == other.button;
}

/// A session made of what a test feeds and what was posted. In use from construction to destruction; any
/// thread.
class RecordingBackend : public InputBackend {
public:
    RecordingBackend();
    ~RecordingBackend() override;

    std::unique_ptr<InputSource> open() override;
    bool post(const InputEvent &event) override;

    /// Lets open() and post() fail, as without permission.
    void refuse(bool refused = true);

    /// Gives the event to every source that is open.
    void feed(const InputEvent &event);
    void feedKey(int keyCode, bool down);
    void feedModifier(int keyCode);
    void feedMove(double x, double y);
    void feedButton(bool down);

    /// What was posted so far, in order.
    std::vector<InputEvent> posts() const;
    void clearPosts();

    /// How many sources are open now, and how many were ever opened.
    int openSources() const;
    int openedSources() const;

private:
    class Source;

    mutable std::mutex m_mutex; ///< guards what follows and the sources' queues
    bool m_refused = false;
    std::vector<InputEvent> m_posts;
    std::vector<Source *> m_sources;
    int m_opened = 0;
};

} // namespace vexa
