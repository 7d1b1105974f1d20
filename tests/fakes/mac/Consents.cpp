// SPDX-License-Identifier: MIT
#include "fakes/mac/Consents.h"

#include <cstdlib>

namespace fakes {

namespace {

Consents *theConsents = nullptr;

Consents &consents() {
    if (!theConsents)
        std::abort();
    return *theConsents;
}

} // namespace

Consents::Consents() {
    theConsents = this;
}

Consents::~Consents() {
    theConsents = nullptr;
}

} // namespace fakes

using fakes::consents;

// Found by their names at run time only, so no header declares them.
extern "C" {
bool CGPreflightListenEventAccess();
bool CGRequestListenEventAccess();
bool CGRequestScreenCaptureAccess();
}

bool CGPreflightListenEventAccess() {
    return consents().listening;
}

// A request that was answered before is not shown again.
bool CGRequestListenEventAccess() {
    if (!consents().listening) {
        consents().asked.emplace_back("listening");
        consents().listening = consents().allowsWhenAsked;
    }
    return consents().listening;
}

bool CGRequestScreenCaptureAccess() {
    consents().asked.emplace_back("capturing");
    return consents().allowsWhenAsked;
}
