// SPDX-License-Identifier: MIT
#include "app/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace vexa {

namespace {

constexpr std::array<int, 3> watchedSignals{SIGTERM, SIGINT, SIGHUP};
std::array<struct sigaction, watchedSignals.size()> earlierActions;

// Few calls are safe in a signal handler. write() is: the byte goes into a pipe that the event loop reads.
volatile std::sig_atomic_t writeEnd = -1;

extern "C" void noteSignal(int) {
    const int earlierError = errno;
    const char byte = 0;
    // Non-blocking: when the pipe is full, the event loop is going to read a byte anyway.
    [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
    errno = earlierError;
}

void makeNonBlocking(int descriptor) {
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
}

} // namespace

TerminationSignals::TerminationSignals() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return;
    for (const int end : ends)
        makeNonBlocking(end);
    m_readEnd = ends[0];
    writeEnd = ends[1];

    auto *const notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::drain);

    struct sigaction action {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART;
    sigfillset(&action.sa_mask);
    for (std::size_t i = 0; i < watchedSignals.size(); ++i) {
        sigaction(watchedSignals[i], nullptr, &earlierActions[i]);
        if (earlierActions[i].sa_handler != SIG_IGN)
            sigaction(watchedSignals[i], &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals() {
    if (m_readEnd < 0)
        return;
    for (std::size_t i = 0; i < watchedSignals.size(); ++i)
        sigaction(watchedSignals[i], &earlierActions[i], nullptr);
    close(writeEnd);
    close(m_readEnd);
    writeEnd = -1;
}

void TerminationSignals::drain() {
    std::array<char, 16> bytes{};
    while (read(m_readEnd, bytes.data(), bytes.size()) > 0) {
    }
    emit arrived();
}

} // namespace vexa
