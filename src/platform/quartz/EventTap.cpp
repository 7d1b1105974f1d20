// SPDX-License-Identifier: MIT
#include "platform/quartz/Event.h"
#include "platform/quartz/RunLoop.h"

namespace vexa::quartz {

namespace {

/// What a CFMachPortRef points to: a tap on the backend's stream of input. On the thread that made it.
class EventTap : public Object {
public:
    EventTap(std::unique_ptr<InputSource> input, CGEventMask mask, CGEventTapCallBack callback,
             void *userInfo)
        : m_input(std::move(input)), m_mask(mask), m_callback(callback), m_userInfo(userInfo) {}

    bool isValid() const { return m_input != nullptr; }
    int fd() const { return m_input->fd(); }
    void invalidate() { m_input.reset(); }
    void enable(bool enabled) { m_enabled = enabled; }

    /// True when the limit ended it, not the lack of events.
    bool deliver(int limit) {
        InputEvent input;
        for (int i = 0; i < limit; ++i) {
            if (!m_input || !m_input->next(input))
                return false;
            if (wants(input.type))
                callBack(input);
        }
        return true;
    }

private:
    bool wants(std::uint32_t type) {
        if (type == kCGEventTapDisabledByTimeout || type == kCGEventTapDisabledByUserInput) {
            m_enabled = false; // the owner is told whatever the mask, and may enable the tap again
            return true;
        }
        return m_enabled && type < 64 && (m_mask & (CGEventMask{1} << type)) != 0;
    }

    void callBack(const InputEvent &input) {
        const auto event = Handle<Event>::adopt(new Event(input));
        m_callback(toReference<CGEventTapProxy>(this), static_cast<CGEventType>(input.type),
                   toReference<CGEventRef>(event.get()), m_userInfo);
    }

    std::unique_ptr<InputSource> m_input; ///< null once invalidated
    const CGEventMask m_mask;
    const CGEventTapCallBack m_callback;
    void *const m_userInfo;
    bool m_enabled = true;
};

class TapSource : public RunLoopSource {
public:
    explicit TapSource(EventTap *tap) : m_tap(tap) {}

    int fd() const override { return m_tap->fd(); }
    bool isValid() const override { return m_tap->isValid(); }

    /// A burst is taken in portions, so that a stop request gets in between.
    bool serve() override { return m_tap->deliver(16); }

private:
    Handle<EventTap> m_tap;
};

EventTap *tapOf(CFMachPortRef port) {
    return fromReference<EventTap>(port);
}

} // namespace

} // namespace vexa::quartz

using namespace vexa::quartz;

CFMachPortRef CGEventTapCreate(CGEventTapLocation, CGEventTapPlacement, CGEventTapOptions, CGEventMask mask,
                               CGEventTapCallBack callback, void *userInfo) {
    std::unique_ptr<vexa::InputSource> input = vexa::inputBackend().open();
    if (!input)
        return nullptr;
    return toReference<CFMachPortRef>(new EventTap(std::move(input), mask, callback, userInfo));
}

void CGEventTapEnable(CFMachPortRef tap, bool enable) {
    tapOf(tap)->enable(enable);
}

void CFMachPortInvalidate(CFMachPortRef port) {
    tapOf(port)->invalidate();
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef port, CFIndex) {
    return tapOf(port)->isValid() ? toReference<CFRunLoopSourceRef>(new TapSource(tapOf(port))) : nullptr;
}
