// SPDX-License-Identifier: MIT
#include "platform/quartz/RunLoop.h"

#include "platform/quartz/CoreFoundation.h"

#include <algorithm>
#include <poll.h>

namespace vexa::quartz {

RunLoop &RunLoop::current() {
    thread_local const Handle<RunLoop> loop = Handle<RunLoop>::adopt(new RunLoop);
    return *loop.get(); // NOLINT(clang-analyzer-cplusplus.NewDelete): it ends with the thread, not here
}

void RunLoop::add(RunLoopSource *source) {
    {
        const std::lock_guard lock(m_mutex);
        m_sources.emplace_back(source);
    }
    m_wake.wake();
}

RunLoop::Running::Running(RunLoop &loop) : m_loop(loop) {
    const std::lock_guard lock(m_loop.m_mutex);
    activation.outer = std::exchange(m_loop.m_activation, &activation);
}

RunLoop::Running::~Running() {
    const std::lock_guard lock(m_loop.m_mutex);
    m_loop.m_activation = activation.outer;
}

void RunLoop::run() {
    const Running running(*this); // a source may throw
    const Activation &activation = running.activation;
    for (Sources sources = sourcesToServe(activation); !sources.empty(); sources = sourcesToServe(activation))
        serveReady(activation, sources);
}

void RunLoop::stop() {
    {
        const std::lock_guard lock(m_mutex);
        if (m_activation)
            m_activation->stopped = true;
    }
    m_wake.wake();
}

/// None when the activation is to end: it was stopped, or nothing can ever happen again.
RunLoop::Sources RunLoop::sourcesToServe(const Activation &activation) {
    const std::lock_guard lock(m_mutex);
    if (activation.stopped)
        return {};
    m_sources.erase(std::remove_if(m_sources.begin(), m_sources.end(),
                                   [](const auto &source) { return !source->isValid(); }),
                    m_sources.end());
    return m_sources;
}

void RunLoop::serveReady(const Activation &activation, const Sources &sources) {
    std::vector<pollfd> descriptors{{m_wake.fd(), POLLIN, 0}};
    bool more = false;
    for (const auto &source : sources) {
        descriptors.push_back({source->fd(), POLLIN, 0});
        more = more || source->m_more;
    }
    if (poll(descriptors.data(), descriptors.size(), more ? 0 : -1) < 0)
        return; // a signal; the next round polls again
    m_wake.clear();

    for (std::size_t i = 0; i < sources.size() && !isStopped(activation); ++i) {
        RunLoopSource &source = *sources[i].get();
        const short events = descriptors[i + 1].revents;
        if (!source.isValid())
            continue;
        if ((events & POLLIN) || source.m_more)
            source.m_more = source.serve();
        else if (events != 0)
            remove(&source); // broken: it would be reported for ever
    }
}

void RunLoop::remove(const RunLoopSource *source) {
    const std::lock_guard lock(m_mutex);
    m_sources.erase(std::remove_if(m_sources.begin(), m_sources.end(),
                                   [source](const auto &other) { return other.get() == source; }),
                    m_sources.end());
}

bool RunLoop::isStopped(const Activation &activation) {
    const std::lock_guard lock(m_mutex);
    return activation.stopped;
}

} // namespace vexa::quartz

using vexa::quartz::fromReference;
using vexa::quartz::RunLoop;
using vexa::quartz::RunLoopSource;

CFRunLoopRef CFRunLoopGetCurrent() {
    return vexa::quartz::toReference<CFRunLoopRef>(&RunLoop::current());
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode) {
    if (source)
        fromReference<RunLoop>(loop)->add(fromReference<RunLoopSource>(source));
}

void CFRunLoopRun() {
    RunLoop::current().run();
}

void CFRunLoopStop(CFRunLoopRef loop) {
    fromReference<RunLoop>(loop)->stop();
}
