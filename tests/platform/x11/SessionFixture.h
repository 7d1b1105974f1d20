// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SessionInput.h"
#include "platform/quartz/CoreGraphics.h"
#include "platform/quartz/InputBackend.h"
#include "platform/quartz/VirtualKeys.h"
#include "support/Hand.h"

#include <QtTest>

#include <functional>
#include <memory>

/// The X backend on a real X server, with a hand that works there and one source that listens.
namespace vexa::test {

// X key codes
constexpr int control = 37, shift = 50, option = 64, letterA = 38, letterC = 54, letterG = 42, letterS = 39;
constexpr int f5 = 71, escape = 9, space = 65, pageUp = 112, returnKey = 36, capsLock = 66;
constexpr int penModifiers[] = {control, shift, option};

struct Told {
    std::uint32_t type;
    std::int64_t key;
    double x, y;
    bool operator==(const Told &other) const {
        return type == other.type && key == other.key && x == other.x && y == other.y;
    }
};
using All = QVector<Told>;

inline Told told(std::uint32_t type, int key) {
    return {type, key, 0, 0};
}
inline Told pressed(int key) {
    return told(kCGEventKeyDown, key);
}
inline Told released(int key) {
    return told(kCGEventKeyUp, key);
}
inline Told changed(int modifier) {
    return told(kCGEventFlagsChanged, modifier);
}
inline Told toldAt(std::uint32_t type, double x, double y) {
    return {type, 0, x, y};
}

InputEvent keyEvent(std::uint32_t type, int key, std::uint64_t flags = 0);
InputEvent mouseEvent(std::uint32_t type, double x, double y);
inline bool post(const InputEvent &event) {
    return inputBackend().post(event);
}

/// A command of the shell, which must succeed.
void run(const QString &command);

class SessionFixture {
protected:
    void openSession();

    /// Fails the test when a key is still down.
    void closeSession();

    /// Waits for the next event that is reported. False, or of no type, when none comes.
    bool takeNext(InputEvent &event);
    Told tellNext();

    /// What is reported of an action: all that comes before a marker key.
    All hear(const std::function<void()> &action);
    void mark() { m_hand->type({markerKey}); }
    All hearUpToMarker();

    /// After a click was posted: lets the pause go by that is kept before the next key.
    void outwaitAClick();

    std::unique_ptr<Hand> m_hand;
    std::unique_ptr<InputSource> m_source;

private:
    static constexpr int markerKey = 198; ///< F20, as X key code
};

} // namespace vexa::test
