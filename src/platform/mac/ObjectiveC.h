// SPDX-License-Identifier: MIT
#pragma once

#include <objc/message.h>
#include <objc/runtime.h>

/// Talking to AppKit from plain C++. Every message goes through send(), which gives the runtime's entry point
/// the exact function type of the method: on arm64 a variadic call would put the arguments where no method
/// looks for them. A nil receiver answers every message with zero, as everywhere in Objective-C.
namespace vexa::platform {

template<typename Result, typename... Arguments>
Result send(id receiver, const char *selector, Arguments... arguments) {
    return ((Result(*)(id, SEL, Arguments...))objc_msgSend)(receiver, sel_registerName(selector),
                                                            arguments...);
}

/// The class as a receiver of messages; nil when the program runs without the framework that has it.
inline id classNamed(const char *name) {
    return reinterpret_cast<id>(objc_getClass(name));
}

/// Owns what the messages in its scope return, and lets it go however the scope is left.
class AutoreleasePool {
public:
    AutoreleasePool() : m_pool(send<id>(send<id>(classNamed("NSAutoreleasePool"), "alloc"), "init")) {}
    ~AutoreleasePool() { send<void>(m_pool, "drain"); }
    AutoreleasePool(const AutoreleasePool &) = delete;
    AutoreleasePool &operator=(const AutoreleasePool &) = delete;

private:
    id m_pool;
};

} // namespace vexa::platform
