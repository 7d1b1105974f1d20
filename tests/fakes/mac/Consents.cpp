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
bool CGPreflightPostEventAccess();
bool CGRequestPostEventAccess();
bool CGRequestScreenCaptureAccess();
}

namespace {

// A request that was answered before is not shown again.
bool request(bool &consent, const char *function) {
    if (!consent) {
        consents().asked.emplace_back(function);
        consent = consents().allowsWhenAsked;
    }
    return consent;
}

} // namespace

bool CGPreflightListenEventAccess() {
    return consents().listening;
}

bool CGRequestListenEventAccess() {
    return request(consents().listening, "listening");
}

bool CGPreflightPostEventAccess() {
    return consents().posting;
}

bool CGRequestPostEventAccess() {
    return request(consents().posting, "posting");
}

bool CGRequestScreenCaptureAccess() {
    consents().asked.emplace_back("capturing");
    return consents().allowsWhenAsked;
}
