// SPDX-License-Identifier: MIT
#include "app/TerminateHandler.h"

#include <exception>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

/// Ends the way its argument says, with the program's terminate handler in place.
int main(int argc, char *argv[]) { // NOLINT(bugprone-exception-escape): that is its purpose
    std::set_terminate(vexa::reportUncaughtAndExit);
    const std::string way = argc > 1 ? argv[1] : "";
    if (way == "text")
        throw std::runtime_error("the cause in words");
    if (way == "promise") {
        auto promise = std::make_unique<std::promise<int>>();
        std::future<int> future = promise->get_future();
        promise.reset();
        future.get();
    }
    if (way == "number")
        throw 7;
    if (way == "thread") {
        const std::thread thread([] {});
        return 0; // the destructor of a thread that was not joined ends the process
    }
    return 0;
}
