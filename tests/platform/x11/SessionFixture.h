// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SessionInput.h"
#include "platform/x11/Told.h"
#include "support/Hand.h"
#include "support/XKeys.h"

#include <functional>
#include <memory>

/// The X backend on a real X server, with a hand that works there and one source that listens.
namespace vexa::test {

inline bool postKey(int key, std::uint64_t flags = 0, std::uint32_t type = kCGEventKeyDown) {
    return inputBackend().post({type, key, flags});
}
inline bool postMouse(std::uint32_t type, double x, double y) {
    return inputBackend().post({type, 0, 0, x, y});
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

    /// Control, shift and option, on the pen.
    void pressModifiers();
    void releaseModifiers();

    /// Where the pointer is.
    QPoint pointer() const { return {m_hand->pointer().x, m_hand->pointer().y}; }

    /// After a click was posted: lets the pause go by that is kept before the next key.
    void outwaitAClick();

    std::unique_ptr<Hand> m_hand;
    std::unique_ptr<InputSource> m_source;

private:
    static constexpr int markerKey = 198; ///< F20, as X key code
};

} // namespace vexa::test
