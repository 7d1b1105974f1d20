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

void endOnTheSpot() {
    if (!armed)
        return;
    if (platform::displayIsLost())
        reportLostDisplay();
    LastWork::doAll();
    std::_Exit(EXIT_FAILURE);
}

/// Handlers run in the reverse order of their registration, and with the destructors of static objects: one
/// that is registered now comes before those of all that exists by now. One that cannot be registered leaves
/// exit() as it is.
void comeBeforeWhatExists() {
    [[maybe_unused]] const int refused = std::atexit(endOnTheSpot);
}

} // namespace

AbruptExit::AbruptExit() {
    armed = true;
    comeBeforeWhatExists();
}

AbruptExit::~AbruptExit() {
    armed = false;
}

LastWork *LastWork::newest = nullptr;

LastWork::LastWork(std::function<void()> work)
    : m_work(std::move(work)), m_older(std::exchange(newest, this)) {
    comeBeforeWhatExists();
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
