// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/CoreFoundation.h"
#include "platform/quartz/Object.h"
#include "platform/quartz/WakeFd.h"

#include <deque>
#include <mutex>
#include <string>

namespace vexa::quartz {

/// Either end of a message port. Any thread.
class MessagePort : public Object {
public:
    virtual void invalidate() = 0;
    virtual SInt32 send(SInt32 messageId) = 0;

    /// What a run loop serves the port with, owned by the caller; null when there is nothing to serve.
    virtual CFRunLoopSourceRef createSource() = 0;
};

/// The end that has the name, and answers.
class LocalPort : public MessagePort {
public:
    /// Null when the name is taken, or the process has no memory or descriptor left.
    static LocalPort *create(const std::string &name, CFMessagePortCallBack callback, void *info);

    /// Null when no port has the name.
    static Handle<LocalPort> find(const std::string &name);

    ~LocalPort() override;
    void invalidate() override;
    SInt32 send(SInt32 messageId) override;
    CFRunLoopSourceRef createSource() override;

    bool isValid() const;
    int fd() const { return m_wake.fd(); }

    /// Answers the oldest request. True when there are more.
    bool answerOne();

private:
    LocalPort(std::string name, CFMessagePortCallBack callback, void *info);

    const std::string m_name;
    const CFMessagePortCallBack m_callback;
    void *const m_info;
    WakeFd m_wake;
    mutable std::mutex m_mutex; ///< guards what follows
    bool m_valid = true;
    std::deque<SInt32> m_requests;
};

} // namespace vexa::quartz
