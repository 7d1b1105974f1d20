// SPDX-License-Identifier: MIT
#include "app/WriteFailures.h"

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace vexa {

namespace {

// An empty handler instead of SIG_IGN: exec() resets a handler, but a child process would inherit SIG_IGN.
extern "C" void letTheWriteFail(int) {}

} // namespace

void outliveWriteFailures() {
    // open() and dup() return the lowest free descriptor, so this fills the closed streams one after the
    // other.
    for (int stream = open("/dev/null", O_RDWR); stream >= 0; stream = dup(stream)) {
        if (stream <= STDERR_FILENO)
            continue;
        close(stream);
        break;
    }
    struct sigaction action {};
    action.sa_handler = letTheWriteFail;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGPIPE, SIGXFSZ})
        sigaction(signal, &action, nullptr);
}

} // namespace vexa
