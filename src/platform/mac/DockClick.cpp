// SPDX-License-Identifier: MIT
#include "platform/mac/DockClick.h"

#include "platform/Activation.h"
#include "platform/mac/ObjectiveC.h"

#include <QtDebug>

bool dockClickHandler(id, SEL, ...) {
    vexa::platform::activateWindow();
    return false;
}

namespace {

// A lookup also finds what a class inherits. Replacing such a method answers "there was none before" although
// it worked, so an inherited method counts as missing and is overridden by adding.
bool hasOwnMethod(Class type, SEL selector) {
    const Method method = class_getInstanceMethod(type, selector);
    return method && method != class_getInstanceMethod(class_getSuperclass(type), selector);
}

} // namespace

void setupDockClickHandler() {
    using vexa::platform::send;
    const id application = send<id>(vexa::platform::classNamed("NSApplication"), "sharedApplication");
    const id delegate = send<id>(application, "delegate");
    const Class type = send<Class>(delegate, "class");
    if (!type)
        return;

    const SEL reopen = sel_registerName("applicationShouldHandleReopen:hasVisibleWindows:");
    const IMP handler = (IMP)dockClickHandler;
    const char *const encoding = "B@:"; // the handler uses none of the method's own arguments
    if (hasOwnMethod(type, reopen)) {
        if (!class_replaceMethod(type, reopen, handler, encoding))
            qWarning("Failed to replace method for dock click handler");
    } else if (!class_addMethod(type, reopen, handler, encoding)) {
        qWarning("Failed to register dock click handler");
    }
}

namespace vexa::platform {

// Launch services keep a bundle to one instance and send the second start to it as a reopen.
bool forwardActivation() {
    return false;
}

} // namespace vexa::platform
