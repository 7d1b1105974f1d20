// SPDX-License-Identifier: MIT
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <objc/objc.h>
#include <string>

/// Sending messages to the fake Objective-C runtime. The real entry point trusts its caller to have cast it
/// to the method's exact type, and on arm64 a wrong cast reads arguments from where nobody has put them. This
/// one knows the caller's types, compares them with the encoding the method was registered with, and ends the
/// process when they differ.
namespace fakes {

template<typename T> constexpr const char *encodingOf = nullptr;
template<> inline constexpr const char *encodingOf<void> = "v";
template<> inline constexpr const char *encodingOf<id> = "@";
template<> inline constexpr const char *encodingOf<Class> = "#";
template<> inline constexpr const char *encodingOf<SEL> = ":";
template<> inline constexpr const char *encodingOf<bool> = "B";
template<> inline constexpr const char *encodingOf<signed char> = "c";
template<> inline constexpr const char *encodingOf<int> = "i";
template<> inline constexpr const char *encodingOf<long> = "q";
template<> inline constexpr const char *encodingOf<unsigned long> = "Q";
template<> inline constexpr const char *encodingOf<double> = "d";
template<> inline constexpr const char *encodingOf<unsigned char *> = "*";
template<> inline constexpr const char *encodingOf<const char *> = "r*";
template<> inline constexpr const char *encodingOf<CGSize> = "{CGSize=dd}";

/// The encoding of a method with these types: result, receiver, selector, arguments.
template<typename Result, typename... Arguments> std::string methodEncoding() {
    return (std::string(encodingOf<Result>) + "@:" + ... + std::string(encodingOf<Arguments>));
}

/// The method that answers, and the object it runs on. Null for nil, which answers everything with zero. Ends
/// the process when the receiver is no object, does not know the selector or has it with another encoding.
IMP methodFor(id &receiver, SEL selector, const std::string &encoding);

struct MessageSend {
    template<typename Result, typename... Arguments> using Function = Result (*)(id, SEL, Arguments...);

    template<typename Result, typename... Arguments> operator Function<Result, Arguments...>() const {
        return &invoke<Result, Arguments...>;
    }

private:
    template<typename Result, typename... Arguments>
    static Result invoke(id receiver, SEL selector, Arguments... arguments) {
        const IMP method = methodFor(receiver, selector, methodEncoding<Result, Arguments...>());
        return method ? ((Function<Result, Arguments...>)method)(receiver, selector, arguments...) : Result();
    }
};

} // namespace fakes
