// SPDX-License-Identifier: MIT
#include "app/AbruptExit.h"

#include "app/TerminateHandler.h"
#include "platform/Session.h"

#include <atomic>
#include <cstdlib>
#include <utility>

namespace vexa {

namespace {

std::atomic<bool> armed{false};

void endAtOnce() {
    if (!armed)
        return;
    if (platform::displayIsLost())
        reportLostDisplay();
    LastWork::doAll();
    std::_Exit(EXIT_FAILURE);
}

/// exit() runs its handlers and the destructors of static objects in one sequence, the latest first: a
/// handler that is registered now runs before the destructor of any object that exists now. If the
/// registration fails, exit() stays as it is.
void endBeforeStaticDestructors() {
    [[maybe_unused]] const int refused = std::atexit(endAtOnce);
}

} // namespace

AbruptExit::AbruptExit() {
    armed = true;
    endBeforeStaticDestructors();
}

AbruptExit::~AbruptExit() {
    armed = false;
}

LastWork *LastWork::newest = nullptr;

LastWork::LastWork(std::function<void()> work)
    : m_work(std::move(work)), m_older(std::exchange(newest, this)) {
    endBeforeStaticDestructors();
}

LastWork::~LastWork() {
    LastWork **place = &newest;
    while (*place != this)
        place = &(*place)->m_older;
    *place = m_older;
}

void LastWork::doAll() {
    for (const LastWork *last = newest; last; last = last->m_older)
        last->m_work();
}

} // namespace vexa
