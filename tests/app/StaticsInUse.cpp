// SPDX-License-Identifier: MIT
#include "app/AbruptExit.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

/// Stands for what another thread still works with.
struct InUse {
    ~InUse() { std::abort(); }
};

void use() {
    static const InUse inUse;
}

} // namespace

/// Calls exit(): while a static object must not be destroyed; with "safe", after that has become safe; with
/// "work", while there is work left that uses one that is younger than the AbruptExit.
int main(int argc, char *argv[]) {
    const std::string way = argc > 1 ? argv[1] : "";
    if (way.empty())
        use();
    auto abruptExit = std::make_unique<vexa::AbruptExit>();
    if (way == "safe")
        abruptExit.reset();
    if (way == "work")
        use();
    const auto say = [](const char *what) {
        return [what] {
            std::fputs(what, stdout);
            std::fflush(stdout);
        };
    };
    const vexa::LastWork first(say("first "));
    { const vexa::LastWork done(say("done ")); }
    const vexa::LastWork second(say("second "));
    std::exit(3);
}
