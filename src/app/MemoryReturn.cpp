// SPDX-License-Identifier: MIT
#include "app/MemoryReturn.h"

#include "platform/PictureMemory.h"

namespace vexa {

namespace {

constexpr int delay = 3000; // milliseconds

} // namespace

void MemoryReturn::soon() {
    m_timer.start(delay, this);
}

void MemoryReturn::timerEvent(QTimerEvent * /*event*/) {
    m_timer.stop();
    platform::returnFreedMemory();
}

} // namespace vexa
