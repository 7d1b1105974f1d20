// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <utility>

namespace vexa::quartz {

/// What every reference handed out by the portable Core Foundation and Core Graphics points to. Counted; made
/// with one reference, which is the maker's.
class Object {
public:
    Object() = default;
    Object(const Object &) = delete;
    Object &operator=(const Object &) = delete;
    virtual ~Object() = default;

    void retain() const { m_references.fetch_add(1, std::memory_order_relaxed); }

    /// Retains unless the last reference has gone; for registries that own nothing.
    bool tryRetain() const {
        long references = m_references.load(std::memory_order_relaxed);
        while (references > 0)
            if (m_references.compare_exchange_weak(references, references + 1, std::memory_order_relaxed))
                return true;
        return false;
    }

    void release() const {
        if (m_references.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

private:
    mutable std::atomic<long> m_references{1};
};

/// The opaque reference of an object. Always of its Object part, so that CFRelease() finds it again.
template<typename Reference> Reference toReference(const Object *object) {
    return reinterpret_cast<Reference>(const_cast<Object *>(object));
}

/// The object behind a reference of its own kind; null for null.
template<typename Class, typename Reference> Class *fromReference(Reference reference) {
    return static_cast<Class *>(reinterpret_cast<Object *>(reference));
}

/// A counted pointer to an object.
template<typename Class> class Handle {
public:
    Handle() = default;
    explicit Handle(Class *object) : m_object(object) {
        if (m_object)
            m_object->retain();
    }
    Handle(const Handle &other) : Handle(other.m_object) {}
    Handle(Handle &&other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    ~Handle() {
        if (m_object)
            m_object->release();
    }
    Handle &operator=(Handle other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// Takes over the one reference of a new object.
    static Handle adopt(Class *object) { return Handle(object, Adopted()); }

    explicit operator bool() const { return m_object != nullptr; }
    Class *get() const { return m_object; }
    Class *operator->() const { return m_object; }

private:
    struct Adopted {};
    Handle(Class *object, Adopted) : m_object(object) {}

    Class *m_object = nullptr;
};

} // namespace vexa::quartz
