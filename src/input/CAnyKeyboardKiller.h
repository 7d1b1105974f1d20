// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

/// The stop handle of a listener thread, whatever listener that is. Move-only; owns the stop object.
class CAnyKeyboardKiller {
public:
    /// What a listener hands out to be stopped with.
    class Killer {
    public:
        virtual ~Killer() = default;

        /// Asks the listener to stop, without waiting. Any thread.
        virtual void stopListening() const = 0;
    };

    CAnyKeyboardKiller() = default;
    explicit CAnyKeyboardKiller(std::unique_ptr<Killer> killer) : m_killer(std::move(killer)) {}

    explicit operator bool() const { return m_killer != nullptr; }

    /// The handle must not be empty.
    void stopListening() const { m_killer->stopListening(); }

private:
    std::unique_ptr<Killer> m_killer;
};
