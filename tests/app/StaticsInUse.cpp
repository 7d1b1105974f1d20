// SPDX-License-Identifier: MIT
#include "app/AbruptExit.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace {

/// Stands for what another thread still works with.
struct InUse {
    ~InUse() { std::abort(); }
};

} // namespace

/// Calls exit() while a static object must not be destroyed; with an argument, after that has become safe.
int main(int argc, char * /*argv*/[]) {
    const bool safe = argc > 1;
    if (!safe)
        static const InUse inUse;
    auto abruptExit = std::make_unique<vexa::AbruptExit>();
    if (safe)
        abruptExit.reset();
    std::exit(3);
}
