// SPDX-License-Identifier: MIT
#include "fakes/mac/QuartzObjects.h"

#include <QString>

#include <algorithm>
#include <cstdlib>
#include <list>
#include <map>

namespace fakes {

namespace {

struct Desktop {
    Quartz *quartz = nullptr;
    std::list<CFMachPortRef> taps;
    std::map<std::string, CFMessagePortRef> localPorts;
    std::vector<std::string> calls;
    std::vector<TapRequest> requests;
    std::vector<InputEvent> posted;
    std::vector<Alert> alerts;
    std::list<Object *> events;
    std::list<std::unique_ptr<__CGEventSource>> eventSources;
    std::condition_variable heard;
    int objects = 0;
    bool swallowsNothing = true;
};

std::mutex lock;

Desktop &desktop() {
    static Desktop instance;
    return instance;
}

using Guard = std::unique_lock<std::mutex>;

bool same(const InputEvent &one, const InputEvent &other) {
    return one.type == other.type && one.keyCode == other.keyCode && one.flags == other.flags &&
           one.point.x == other.point.x && one.point.y == other.point.y && one.button == other.button;
}

// Puts an event before one tap, on the loop that has its source. Each hearing counts down.
void tell(CFMachPortRef tap, const InputEvent &event, int &outstanding) {
    ++outstanding;
    tap->source->loop->queue([tap, event, &outstanding] {
        Guard guard(lock);
        if (tap->valid) {
            __CGEvent handed;
            handed.content = event;
            guard.unlock();
            const CGEventRef answer = tap->callback(nullptr, event.type, &handed, tap->userInfo);
            guard.lock();
            desktop().swallowsNothing &= answer == &handed && same(handed.content, event);
        }
        --outstanding;
        desktop().heard.notify_all();
    });
}

bool tellAll(const InputEvent &event, const std::function<bool(CFMachPortRef)> &hears) {
    Guard guard(lock);
    int outstanding = 0;
    bool any = false;
    for (const CFMachPortRef tap : desktop().taps) {
        if (tap->valid && tap->source && tap->source->loop && hears(tap)) {
            tell(tap, event, outstanding);
            any = true;
        }
    }
    desktop().heard.wait(guard, [&] { return outstanding == 0; });
    return any;
}

} // namespace

std::mutex &quartzLock() {
    return lock;
}

Quartz &currentQuartz() {
    if (!desktop().quartz)
        std::abort();
    return *desktop().quartz;
}

void keepCall(std::string call) {
    desktop().calls.push_back(std::move(call));
}

Object::Object(Kind ofKind, std::string ofName) : kind(ofKind), name(std::move(ofName)) {
    if (kind == Kind::Event)
        desktop().events.push_back(this);
    else if (kind == Kind::Lasting)
        ++desktop().objects;
}

Object::~Object() {
    if (kind == Kind::Event)
        desktop().events.remove(this);
    else if (kind == Kind::Lasting)
        --desktop().objects;
}

Quartz::Quartz() {
    desktop().quartz = this;
}

Quartz::~Quartz() {
    while (!desktop().events.empty())
        delete desktop().events.front();
    desktop().eventSources.clear();
    desktop().calls.clear();
    desktop().requests.clear();
    desktop().posted.clear();
    desktop().alerts.clear();
    desktop().swallowsNothing = true;
    desktop().quartz = nullptr;
}

bool Quartz::send(const InputEvent &event) {
    return tellAll(event, [&](CFMachPortRef tap) {
        return tap->enabled && (tap->mask & CGEventMaskBit(event.type)) != 0;
    });
}

void Quartz::disableTaps(CGEventType type) {
    tellAll({type, 0, 0, {0, 0}, kCGMouseButtonLeft, kCGSessionEventTap, false}, [](CFMachPortRef tap) {
        tap->enabled = false;
        return true;
    });
}

std::vector<std::string> Quartz::calls() const {
    const Guard guard(lock);
    return desktop().calls;
}

std::vector<TapRequest> Quartz::taps() const {
    const Guard guard(lock);
    return desktop().requests;
}

int Quartz::enabledTaps() const {
    const Guard guard(lock);
    const auto &taps = desktop().taps;
    return static_cast<int>(std::count_if(taps.begin(), taps.end(), [](auto tap) { return tap->enabled; }));
}

std::vector<InputEvent> Quartz::posted() const {
    const Guard guard(lock);
    return desktop().posted;
}

std::vector<Alert> Quartz::alerts() const {
    const Guard guard(lock);
    return desktop().alerts;
}

int Quartz::objectsAlive() const {
    const Guard guard(lock);
    return desktop().objects;
}

int Quartz::eventsAlive() const {
    const Guard guard(lock);
    return static_cast<int>(desktop().events.size());
}

bool Quartz::swallowsNothing() const {
    const Guard guard(lock);
    return desktop().swallowsNothing;
}

} // namespace fakes

using namespace fakes;

// Texts and alerts

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar *characters, CFIndex count) {
    const std::string text = QString::fromUtf16(characters, int(count)).toStdString();
    const Guard guard(lock);
    return new __CFString(Object::Kind::Lasting, text);
}

SInt32 CFUserNotificationDisplayAlert(CFTimeInterval timeout, CFOptionFlags, CFURLRef, CFURLRef, CFURLRef,
                                      CFStringRef header, CFStringRef message, CFStringRef button,
                                      CFStringRef, CFStringRef, CFOptionFlags *) {
    const Guard guard(lock);
    desktop().alerts.push_back({timeout, header->text, message->text, button->text});
    return 0;
}

// Event taps

CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void *userInfo) {
    const Guard guard(lock);
    note("CGEventTapCreate", tap, place, options, eventsOfInterest);
    desktop().requests.push_back({tap, place, options, eventsOfInterest});
    if (!currentQuartz().permitsTaps)
        return nullptr;
    auto *const made = new __CFMachPort;
    made->mask = eventsOfInterest & ~currentQuartz().withheld;
    made->callback = callback;
    made->userInfo = userInfo;
    desktop().taps.push_back(made);
    return made;
}

__CFMachPort::~__CFMachPort() {
    desktop().taps.remove(this);
    if (source)
        source->tap = nullptr;
}

void CGEventTapEnable(CFMachPortRef tap, bool enable) {
    const Guard guard(lock);
    note("CGEventTapEnable", enable);
    tap->enabled = enable;
}

void CFMachPortInvalidate(CFMachPortRef port) {
    const Guard guard(lock);
    note("CFMachPortInvalidate", port->name);
    port->valid = false;
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef port, CFIndex order) {
    const Guard guard(lock);
    note("CFMachPortCreateRunLoopSource", port->name, order);
    port->source = new __CFRunLoopSource("source of the tap");
    port->source->tap = port;
    return port->source;
}

// Events

CGPoint CGEventGetLocation(CGEventRef event) {
    return event->content.point;
}
CGEventFlags CGEventGetFlags(CGEventRef event) {
    const Guard guard(lock);
    note("CGEventGetFlags");
    return event->content.flags;
}
void CGEventSetFlags(CGEventRef event, CGEventFlags flags) {
    const Guard guard(lock);
    note("CGEventSetFlags", flags);
    event->content.flags = flags;
}
void CGEventSetType(CGEventRef event, CGEventType type) {
    const Guard guard(lock);
    note("CGEventSetType", type);
    event->content.type = type;
}

std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field) {
    return field == kCGKeyboardEventKeycode ? event->content.keyCode : 0;
}

CGEventSourceRef CGEventSourceCreate(CGEventSourceStateID stateID) {
    const Guard guard(lock);
    note("CGEventSourceCreate", stateID);
    desktop().eventSources.push_back(std::make_unique<__CGEventSource>(__CGEventSource{stateID}));
    return desktop().eventSources.back().get();
}

CGEventRef CGEventCreateKeyboardEvent(CGEventSourceRef source, CGKeyCode virtualKey, bool keyDown) {
    const Guard guard(lock);
    note("CGEventCreateKeyboardEvent", given(source), virtualKey, keyDown);
    if (!currentQuartz().permitsEvents)
        return nullptr;
    auto *const event = new __CGEvent;
    event->content.type = keyDown ? kCGEventKeyDown : kCGEventKeyUp;
    event->content.keyCode = virtualKey;
    event->content.flags = currentQuartz().held;
    event->content.privateSource = source && source->state == kCGEventSourceStatePrivate;
    return event;
}

CGEventRef CGEventCreateMouseEvent(CGEventSourceRef source, CGEventType mouseType,
                                   CGPoint mouseCursorPosition, CGMouseButton mouseButton) {
    const Guard guard(lock);
    note("CGEventCreateMouseEvent", given(source), mouseType, mouseCursorPosition.x, mouseCursorPosition.y,
         mouseButton);
    if (!currentQuartz().permitsEvents)
        return nullptr;
    auto *const event = new __CGEvent;
    event->content.type = mouseType;
    event->content.point = mouseCursorPosition;
    event->content.button = mouseButton;
    event->content.privateSource = source && source->state == kCGEventSourceStatePrivate;
    return event;
}

void CGEventPost(CGEventTapLocation tap, CGEventRef event) {
    const Guard guard(lock);
    note("CGEventPost", tap);
    InputEvent posted = event->content;
    posted.location = tap;
    desktop().posted.push_back(posted);
}

// Message ports

CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef, CFStringRef name, CFMessagePortCallBack callout,
                                          CFMessagePortContext *context, Boolean *) {
    const Guard guard(lock);
    note("CFMessagePortCreateLocal", name->text, given(context));
    if (!currentQuartz().permitsLocalPorts)
        return nullptr;
    if (const auto found = desktop().localPorts.find(name->text); found != desktop().localPorts.end()) {
        ++found->second->references; // as documented: that port once more, and what else was said is ignored
        return found->second;
    }
    auto *const port = new __CFMessagePort(name->text, true);
    port->callback = callout;
    port->info = context ? context->info : nullptr;
    desktop().localPorts[port->address] = port;
    return port;
}

CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef, CFStringRef name) {
    const Guard guard(lock);
    note("CFMessagePortCreateRemote", name->text);
    if (!currentQuartz().permitsRemotePorts || !desktop().localPorts.count(name->text))
        return nullptr;
    return new __CFMessagePort(name->text, false);
}

__CFMessagePort::~__CFMessagePort() {
    if (source)
        source->port = nullptr;
}

void CFMessagePortInvalidate(CFMessagePortRef port) {
    const Guard guard(lock);
    note("CFMessagePortInvalidate", port->name);
    port->valid = false;
    if (port->local)
        desktop().localPorts.erase(port->address);
}

CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef, CFMessagePortRef local, CFIndex order) {
    const Guard guard(lock);
    note("CFMessagePortCreateRunLoopSource", local->name, order);
    local->source = new __CFRunLoopSource("source of the port");
    local->source->port = local;
    return local->source;
}

// Queues the request and waits for no reply, as without a reply mode.
SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 messageId, CFDataRef data,
                                CFTimeInterval sendTimeout, CFTimeInterval receiveTimeout,
                                CFStringRef replyMode, CFDataRef *returnData) {
    const Guard guard(lock);
    note("CFMessagePortSendRequest", messageId, given(data), sendTimeout, receiveTimeout, given(replyMode),
         given(returnData));
    constexpr SInt32 success = 0, invalid = -3;
    const auto found = desktop().localPorts.find(remote->address);
    if (found == desktop().localPorts.end() || !found->second->source || !found->second->source->loop)
        return invalid;
    const CFMessagePortRef local = found->second;
    local->source->loop->queue(
        [local, messageId, data] { local->callback(local, messageId, data, local->info); });
    return success;
}
