// SPDX-License-Identifier: MIT
#include "platform/RefusedStart.h"

#include <CoreFoundation/CoreFoundation.h>

namespace vexa::platform {

namespace {

/// A text of Core Foundation's, as long as this lives.
class SystemText {
public:
    explicit SystemText(const QString &text)
        : m_text(CFStringCreateWithCharacters(kCFAllocatorDefault,
                                              reinterpret_cast<const UniChar *>(text.utf16()), text.size())) {
    }
    ~SystemText() { CFRelease(m_text); }
    SystemText(const SystemText &) = delete;
    SystemText &operator=(const SystemText &) = delete;

    CFStringRef get() const { return m_text; }

private:
    CFStringRef m_text;
};

} // namespace

// Who starts a program in the Finder never sees its stderr. The alert is shown by the system, which needs
// neither an event loop nor a window of this program.
void showRefusedStart(RefusalWords (*words)()) {
    const RefusalWords said = words();
    const SystemText heading(said.heading);
    const SystemText permission(said.permission);
    const SystemText button(said.button);
    constexpr CFTimeInterval forEver = 0;
    CFOptionFlags answer = 0;
    CFUserNotificationDisplayAlert(forEver, kCFUserNotificationStopAlertLevel, nullptr, nullptr, nullptr,
                                   heading.get(), permission.get(), button.get(), nullptr, nullptr, &answer);
}

} // namespace vexa::platform
