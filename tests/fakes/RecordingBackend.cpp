// SPDX-License-Identifier: MIT
#include "fakes/RecordingBackend.h"

#include "platform/quartz/WakeFd.h"

#include <algorithm>
#include <deque>

namespace vexa {

class RecordingBackend::Source : public InputSource {
public:
    explicit Source(RecordingBackend &backend) : m_backend(backend) {}

    ~Source() override {
        const std::lock_guard lock(m_backend.m_mutex);
        auto &sources = m_backend.m_sources;
        sources.erase(std::find(sources.begin(), sources.end(), this));
    }

    int fd() const override { return m_wake.fd(); }

    bool next(InputEvent &event) override {
        const std::lock_guard lock(m_backend.m_mutex);
        if (m_events.empty()) {
            m_wake.clear();
            return false;
        }
        event = m_events.front();
        m_events.pop_front();
        return true;
    }

    /// With the backend's mutex held.
    void push(const InputEvent &event) {
        m_events.push_back(event);
        m_wake.wake();
    }

private:
    RecordingBackend &m_backend;
    quartz::WakeFd m_wake;
    std::deque<InputEvent> m_events;
};

RecordingBackend::RecordingBackend() {
    setInputBackend(this);
}

RecordingBackend::~RecordingBackend() {
    setInputBackend(nullptr);
}

std::unique_ptr<InputSource> RecordingBackend::open() {
    const std::lock_guard lock(m_mutex);
    if (m_refused)
        return nullptr;
    auto source = std::make_unique<Source>(*this);
    m_sources.push_back(source.get());
    ++m_opened;
    return source;
}

bool RecordingBackend::post(const InputEvent &event) {
    const std::lock_guard lock(m_mutex);
    if (m_refused)
        return false;
    m_posts.push_back(event);
    return true;
}

void RecordingBackend::refuse(bool refused) {
    const std::lock_guard lock(m_mutex);
    m_refused = refused;
}

void RecordingBackend::feed(const InputEvent &event) {
    const std::lock_guard lock(m_mutex);
    for (Source *source : m_sources)
        source->push(event);
}

void RecordingBackend::feedKey(int keyCode, bool down) {
    feed({down ? kCGEventKeyDown : kCGEventKeyUp, keyCode});
}

void RecordingBackend::feedModifier(int keyCode) {
    feed({kCGEventFlagsChanged, keyCode});
}

void RecordingBackend::feedMove(double x, double y) {
    feed({kCGEventMouseMoved, 0, 0, x, y});
}

void RecordingBackend::feedButton(bool down) {
    feed({down ? kCGEventLeftMouseDown : kCGEventLeftMouseUp});
}

std::vector<InputEvent> RecordingBackend::posts() const {
    const std::lock_guard lock(m_mutex);
    return m_posts;
}

void RecordingBackend::clearPosts() {
    const std::lock_guard lock(m_mutex);
    m_posts.clear();
}

int RecordingBackend::openSources() const {
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_sources.size());
}

int RecordingBackend::openedSources() const {
    const std::lock_guard lock(m_mutex);
    return m_opened;
}

} // namespace vexa
