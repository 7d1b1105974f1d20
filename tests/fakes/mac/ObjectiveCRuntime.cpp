// SPDX-License-Identifier: MIT
#include "fakes/mac/ObjectiveCRuntime.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <utility>

namespace {

struct Runtime {
    std::map<std::string, std::unique_ptr<objc_class>> classes;
    std::map<std::string, std::unique_ptr<objc_class>> metaclasses;
    id viewOfNumbers = nullptr;
    std::set<std::string> selectors;
    bool refusesMethodChanges = false;
};

Runtime &runtime() {
    static Runtime instance;
    return instance;
}

// A selector is the address of its one spelling.
const std::string &spelling(SEL selector) {
    return *reinterpret_cast<const std::string *>(selector);
}

objc_method *find(Class type, const std::string &selector) {
    for (; type; type = type->super) {
        const auto found = type->methods.find(selector);
        if (found != type->methods.end())
            return &found->second;
    }
    return nullptr;
}

// The rule by which a class's metaclass inherits from that of its parent.
std::unique_ptr<objc_class> makeClass(const std::string &name, Class super, Class isa) {
    auto made = std::make_unique<objc_class>();
    made->name = name;
    made->super = super;
    made->isa = isa;
    return made;
}

} // namespace

namespace fakes {

void misuse(const std::string &what) {
    std::fprintf(stderr, "Objective-C misused: %s\n", what.c_str());
    std::abort();
}

Class defineClass(const char *name, Class super) {
    auto &meta = runtime().metaclasses[name];
    meta = makeClass(name, super ? super->isa : nullptr, nullptr);
    auto &type = runtime().classes[name];
    type = makeClass(name, super, meta.get());
    return type.get();
}

void forgetClasses() {
    runtime().classes.clear();
    runtime().metaclasses.clear();
    runtime().viewOfNumbers = nullptr;
    runtime().refusesMethodChanges = false;
}

void refuseMethodChanges() {
    runtime().refusesMethodChanges = true;
}

void aliasWindowNumbers(id view) {
    runtime().viewOfNumbers = view;
}

IMP methodFor(id &receiver, SEL selector, const std::string &encoding) {
    if (!receiver)
        return nullptr;
    if (reinterpret_cast<std::uintptr_t>(receiver) <= UINT32_MAX && runtime().viewOfNumbers)
        receiver = runtime().viewOfNumbers;
    const objc_method *const method = find(receiver->isa, spelling(selector));
    if (!method)
        misuse("unrecognised selector " + spelling(selector));
    if (method->encoding != encoding)
        misuse(spelling(selector) + " has the type " + method->encoding + " and was sent as " + encoding);
    return method->implementation;
}

} // namespace fakes

Class objc_getClass(const char *name) {
    const auto found = runtime().classes.find(name);
    return found == runtime().classes.end() ? nullptr : found->second.get();
}

SEL sel_registerName(const char *name) {
    return reinterpret_cast<SEL>(const_cast<std::string *>(&*runtime().selectors.insert(name).first));
}

Class class_getSuperclass(Class type) {
    return type ? type->super : nullptr;
}

Method class_getInstanceMethod(Class type, SEL selector) {
    return find(type, spelling(selector));
}

// The method's registered encoding stays, as the types are of no use to a method that exists.
IMP class_replaceMethod(Class type, SEL selector, IMP implementation, const char *encoding) {
    if (runtime().refusesMethodChanges)
        return nullptr;
    const auto own = type->methods.find(spelling(selector));
    if (own == type->methods.end()) {
        type->methods[spelling(selector)] = {implementation, encoding, {}};
        return nullptr;
    }
    own->second.offeredEncoding = encoding;
    return std::exchange(own->second.implementation, implementation);
}

BOOL class_addMethod(Class type, SEL selector, IMP implementation, const char *encoding) {
    if (runtime().refusesMethodChanges)
        return false;
    return type->methods.insert({spelling(selector), {implementation, encoding, {}}}).second;
}
