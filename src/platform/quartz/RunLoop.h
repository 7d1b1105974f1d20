// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/Object.h"
#include "platform/quartz/WakeFd.h"

#include <mutex>
#include <vector>

namespace vexa::quartz {

/// Something that a run loop waits for and serves, all on the loop's thread.
class RunLoopSource : public Object {
public:
    /// Readable when there may be something to serve.
    virtual int fd() const = 0;

    /// False when there will never be anything to serve again.
    virtual bool isValid() const = 0;

    /// Serves some of what is waiting, and never blocks. True when there may be more that the descriptor does
    /// not show.
    virtual bool serve() = 0;

private:
    friend class RunLoop;
    bool m_more = true; // whatever arrived before the loop ran may already be inside the source
};

/// A thread's loop: polls its sources' descriptors and one of its own, by which other threads reach it.
class RunLoop : public Object {
public:
    /// The calling thread's.
    static RunLoop &current();

    void run();

    // Any thread.
    void add(RunLoopSource *source);
    void stop();

private:
    /// One run(); there are several when a source that is being served runs the loop again.
    struct Activation {
        bool stopped = false;
        Activation *outer = nullptr;
    };
    class Running {
    public:
        explicit Running(RunLoop &loop);
        ~Running();
        Running(const Running &) = delete;
        Running &operator=(const Running &) = delete;

        Activation activation;

    private:
        RunLoop &m_loop;
    };
    using Sources = std::vector<Handle<RunLoopSource>>;

    Sources sourcesToServe(const Activation &activation);
    void serveReady(const Activation &activation, const Sources &sources);
    void remove(const RunLoopSource *source);
    bool isStopped(const Activation &activation);

    WakeFd m_wake;
    std::mutex m_mutex; ///< guards what follows, the activations' contents too
    Sources m_sources;
    Activation *m_activation = nullptr;
};

} // namespace vexa::quartz
