// SPDX-License-Identifier: MIT
#include "platform/quartz/ConstantString.h"
#include "platform/quartz/MessagePort.h"
#include "platform/quartz/RunLoop.h"

#include <map>

namespace vexa::quartz {

namespace {

/// The names taken in this process. Owns no port: a port leaves when it is invalidated or dies.
struct Names {
    std::mutex mutex;
    std::map<std::string, LocalPort *> ports;
};

Names &names() {
    static Names theNames;
    return theNames;
}

class PortSource : public RunLoopSource {
public:
    explicit PortSource(LocalPort *port) : m_port(port) {}

    int fd() const override { return m_port->fd(); }
    bool isValid() const override { return m_port->isValid(); }
    bool serve() override { return m_port->answerOne(); }

private:
    Handle<LocalPort> m_port;
};

} // namespace

LocalPort::LocalPort(std::string name, CFMessagePortCallBack callback, void *info)
    : m_name(std::move(name)), m_callback(callback), m_info(info) {}

LocalPort::~LocalPort() {
    LocalPort::invalidate();
}

LocalPort *LocalPort::create(const std::string &name, CFMessagePortCallBack callback, void *info) {
    const std::lock_guard lock(names().mutex);
    const auto [place, isFree] = names().ports.try_emplace(name, nullptr);
    if (!isFree)
        return nullptr;
    try {
        return place->second = new LocalPort(name, callback, info);
    } catch (const std::exception &) {
        names().ports.erase(place); // or the next look-up of the name would find a dead port
        return nullptr;
    }
}

Handle<LocalPort> LocalPort::find(const std::string &name) {
    const std::lock_guard lock(names().mutex);
    const auto found = names().ports.find(name);
    if (found == names().ports.end() || !found->second->tryRetain())
        return {};
    return Handle<LocalPort>::adopt(found->second);
}

void LocalPort::invalidate() {
    {
        const std::lock_guard lock(m_mutex);
        if (!std::exchange(m_valid, false))
            return;
        m_requests.clear();
    }
    {
        const std::lock_guard lock(names().mutex);
        names().ports.erase(m_name);
    }
    m_wake.wake(); // its loop may have nothing left to wait for
}

SInt32 LocalPort::send(SInt32 messageId) {
    {
        const std::lock_guard lock(m_mutex);
        if (!m_valid)
            return kCFMessagePortIsInvalid;
        m_requests.push_back(messageId);
    }
    m_wake.wake();
    return kCFMessagePortSuccess;
}

CFRunLoopSourceRef LocalPort::createSource() {
    return isValid() ? toReference<CFRunLoopSourceRef>(new PortSource(this)) : nullptr;
}

bool LocalPort::isValid() const {
    const std::lock_guard lock(m_mutex);
    return m_valid;
}

bool LocalPort::answerOne() {
    SInt32 messageId = 0;
    bool more = false;
    {
        const std::lock_guard lock(m_mutex);
        m_wake.clear();
        if (m_requests.empty())
            return false;
        messageId = m_requests.front();
        m_requests.pop_front();
        more = !m_requests.empty();
    }
    if (CFDataRef reply = m_callback(toReference<CFMessagePortRef>(this), messageId, nullptr, m_info))
        CFRelease(reply);
    return more;
}

} // namespace vexa::quartz

using vexa::quartz::fromReference;
using vexa::quartz::LocalPort;
using vexa::quartz::MessagePort;

CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef, CFStringRef name, CFMessagePortCallBack callback,
                                          CFMessagePortContext *context, Boolean *shouldFreeInfo) {
    if (shouldFreeInfo)
        *shouldFreeInfo = false;
    LocalPort *port =
        LocalPort::create(vexa::quartz::textOf(name), callback, context ? context->info : nullptr);
    return vexa::quartz::toReference<CFMessagePortRef>(port);
}

SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 messageId, CFDataRef, CFTimeInterval,
                                CFTimeInterval, CFStringRef replyMode, CFDataRef *) {
    const SInt32 sent = fromReference<MessagePort>(remote)->send(messageId);
    return sent == kCFMessagePortSuccess && replyMode ? SInt32{kCFMessagePortReceiveTimeout} : sent;
}

void CFMessagePortInvalidate(CFMessagePortRef port) {
    fromReference<MessagePort>(port)->invalidate();
}

CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef, CFMessagePortRef local, CFIndex) {
    return fromReference<MessagePort>(local)->createSource();
}
