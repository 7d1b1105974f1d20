// SPDX-License-Identifier: MIT
#include "app/WriteFailures.h"

#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace vexa {

namespace {

// A handler, even one that does nothing, is not handed on to a program that is started, as "ignore" is.
extern "C" void letTheWriteFail(int) {}

} // namespace

void outliveWriteFailures() {
    // The lowest free number is the next to be given out, so the closed streams get it one after the other.
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
