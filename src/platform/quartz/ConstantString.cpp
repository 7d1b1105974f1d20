// SPDX-License-Identifier: MIT
#include "platform/quartz/ConstantString.h"

#include "platform/quartz/Object.h"

#include <map>
#include <mutex>

namespace vexa::quartz {

namespace {

class ConstantString : public Object {
public:
    explicit ConstantString(std::string text_) : text(std::move(text_)) {}

    const std::string text;
};

/// All constant strings, which live as long as the process.
CFStringRef constantString(const char *literal) {
    static std::mutex mutex;
    static std::map<std::string, Handle<ConstantString>> strings;

    const std::lock_guard lock(mutex);
    Handle<ConstantString> &string = strings[literal];
    if (!string)
        string = Handle<ConstantString>::adopt(new ConstantString(literal));
    return toReference<CFStringRef>(string.get());
}

} // namespace

const std::string &textOf(CFStringRef string) {
    return fromReference<ConstantString>(const_cast<CFString *>(string))->text;
}

} // namespace vexa::quartz

CFStringRef CFSTR(const char *literal) {
    return vexa::quartz::constantString(literal);
}

const CFRunLoopMode kCFRunLoopCommonModes = CFSTR("kCFRunLoopCommonModes");
