// SPDX-License-Identifier: MIT
#include "platform/quartz/ConstantString.h"
#include "platform/quartz/MessagePort.h"

namespace vexa::quartz {

namespace {

/// The end that asks. Keeps the local end's memory, not its name.
class RemotePort : public MessagePort {
public:
    explicit RemotePort(Handle<LocalPort> local) : m_local(std::move(local)) {}

    void invalidate() override { exchangeLocal({}); }

    SInt32 send(SInt32 messageId) override {
        const Handle<LocalPort> port = local();
        return port ? port->send(messageId) : SInt32{kCFMessagePortIsInvalid};
    }

    CFRunLoopSourceRef createSource() override { return nullptr; }

private:
    Handle<LocalPort> local() {
        const std::lock_guard lock(m_mutex);
        return m_local;
    }

    void exchangeLocal(Handle<LocalPort> other) {
        const std::lock_guard lock(m_mutex);
        std::swap(m_local, other);
    }

    std::mutex m_mutex;
    Handle<LocalPort> m_local;
};

} // namespace

} // namespace vexa::quartz

CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef, CFStringRef name) {
    using namespace vexa::quartz;
    Handle<LocalPort> local = LocalPort::find(textOf(name));
    return local ? toReference<CFMessagePortRef>(new RemotePort(std::move(local))) : nullptr;
}
