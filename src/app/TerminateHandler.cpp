// SPDX-License-Identifier: MIT
#include "app/TerminateHandler.h"

#include "app/RefusedStart.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <future>

namespace vexa {

namespace {

constexpr char cannotListen[] = "cannot listen to the keyboard and the pointer of this session";

void report(const char *text) {
    std::fprintf(stderr, "VexaOrbilo: %s\n", text);
}

} // namespace

void reportCannotListen() noexcept {
    report(cannotListen);
}

void reportLostDisplay() noexcept {
    report("the display has been lost");
}

void reportUncaughtAndExit() noexcept {
    const char *text = "ended unexpectedly";
    bool refused = false;
    // what() is part of the exception, so the exception is kept alive until the text is printed.
    const std::exception_ptr uncaught = std::current_exception();
    try {
        if (uncaught)
            std::rethrow_exception(uncaught);
    } catch (const std::future_error &) {
        // The listener's promise to start was broken. Only the listener knows why.
        text = cannotListen;
        refused = true;
    } catch (const std::exception &error) {
        text = error.what();
    } catch (...) {
        text = "ended by an unknown failure";
    }
    report(text);
    if (refused && QCoreApplication::instance())
        platform::showRefusedStart(refusalWords);
    std::_Exit(EXIT_FAILURE);
}

} // namespace vexa
