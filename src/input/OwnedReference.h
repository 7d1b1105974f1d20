// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>

namespace vexa {

/// What the owners of platform objects share: one reference or null, exclusively owned and freed with Free.
/// Moving leaves the source null. A freeing that throws ends the process.
template<typename Reference, void (*FreeReference)(Reference)> class OwnedReference {
public:
    OwnedReference() = default;
    explicit OwnedReference(Reference reference) noexcept : m_owns(true), m_reference(reference) {}
    OwnedReference(OwnedReference &&other) noexcept : m_owns(other.m_owns), m_reference(other.Release()) {}
    ~OwnedReference() { freeOwned(); }

    OwnedReference &operator=(OwnedReference &&other) noexcept {
        if (this != &other) {
            const bool owns = other.m_owns;
            Set(other.Release());
            m_owns = owns;
        }
        return *this;
    }

    /// Frees the object but keeps returning its reference, on purpose: nothing may be done with such a
    /// wrapper but to assign it anew.
    OwnedReference &operator=(std::nullptr_t) noexcept {
        freeOwned();
        return *this;
    }

    explicit operator bool() const noexcept { return m_reference != nullptr; }

    /// The reference; ownership is kept.
    Reference Get() const noexcept { return m_reference; }

    /// Frees what is owned and takes the reference.
    void Set(Reference reference) noexcept {
        freeOwned();
        m_reference = reference;
        m_owns = true;
    }

    /// Frees what is owned and is null afterwards.
    void Free() noexcept { Set(nullptr); }

    /// Gives up ownership: returns the reference without freeing, and is null afterwards.
    Reference Release() noexcept { return std::exchange(m_reference, nullptr); }

private:
    void freeOwned() noexcept {
        if (m_reference && std::exchange(m_owns, false))
            FreeReference(m_reference);
    }

    bool m_owns = false;
    Reference m_reference = nullptr;
};

} // namespace vexa
