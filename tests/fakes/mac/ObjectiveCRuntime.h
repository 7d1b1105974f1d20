// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/mac/MessageSend.h"

#include <algorithm>
#include <map>
#include <objc/runtime.h>
#include <string>

/// What the runtime's opaque types hold here. A class is an object too: its own class, the metaclass, has its
/// class methods.
struct objc_object {
    Class isa = nullptr;
    virtual ~objc_object() = default;
};

struct objc_method {
    IMP implementation = nullptr;
    std::string encoding;
    std::string offeredEncoding; ///< with the last replacement, which does not take it over
};

struct objc_class : objc_object {
    std::string name;
    Class super = nullptr;
    std::map<std::string, objc_method> methods;
};

/// The tests' side of the fake runtime: making classes and objects. One runtime for the process;
/// single-threaded.
namespace fakes {

/// Makes a class that objc_getClass finds by its name.
Class defineClass(const char *name, Class super = nullptr);

/// Forgets all classes and the view. No object of them may be used any more.
void forgetClasses();

/// From now on, until the classes are forgotten, adding and replacing methods fails.
void refuseMethodChanges();

/// Makes messages to a window's number, which is a view's address on macOS, arrive at the object. Numbers are
/// told from objects by their size.
void aliasWindowNumbers(id view);

/// Registers a method under the encoding that Apple's headers give it on arm64; a truth value is of another
/// type, "c" for "B", on Intel. Ends the process when the function has another type, which would be a mistake
/// of the test.
template<typename Result, typename... Arguments>
void method(Class type, const char *selector, const char *encoding,
            Result (*function)(id, SEL, Arguments...));
template<typename Result, typename... Arguments>
void classMethod(Class type, const char *selector, const char *encoding,
                 Result (*function)(id, SEL, Arguments...)) {
    method(type->isa, selector, encoding, function);
}

/// Ends the process with a word on what was done wrong.
[[noreturn]] void misuse(const std::string &what);

template<typename Result, typename... Arguments>
void method(Class type, const char *selector, const char *encoding,
            Result (*function)(id, SEL, Arguments...)) {
    std::string here = encoding;
    std::replace(here.begin(), here.end(), 'B', *encodingOf<BOOL>);
    if (methodEncoding<Result, Arguments...>() != here)
        misuse(std::string(selector) + " is registered as " + here + " but written as " +
               methodEncoding<Result, Arguments...>());
    type->methods[selector] = {(IMP)function, here, {}};
}

} // namespace fakes
