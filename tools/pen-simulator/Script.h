// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vexa::pen {

class Pen;

/// What the words ask for, in order.
using Script = std::vector<std::function<void(Pen &)>>;

/// Words that ask for nothing we know; the text says which.
struct ScriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Reads all words before anything is done. Throws ScriptError.
Script readScript(const std::vector<std::string> &words);

/// What may be said, for the user.
extern const char *const scriptHelp;

} // namespace vexa::pen
