// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace fakes {

/// What the user has allowed in the privacy settings, while this lives; one at a time. A program that uses it
/// has to export its symbols: the functions behind it are found by their names.
class Consents {
public:
    Consents();
    ~Consents();
    Consents(const Consents &) = delete;
    Consents &operator=(const Consents &) = delete;

    bool listening = false;
    bool posting = false;
    bool allowsWhenAsked = false;

    /// The requests that were shown to the user, by function.
    std::vector<std::string> asked;
};

} // namespace fakes
