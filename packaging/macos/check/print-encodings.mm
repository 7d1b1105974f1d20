// SPDX-License-Identifier: MIT
// print-encodings: for each selector named on a line of its input, the type encodings that an AppKit has for methods of
// that name in the classes this program sends messages to, one line each: "selector encoding". Built against GNUstep.
#import <AppKit/AppKit.h>
#include <iostream>
#include <objc/runtime.h>
#include <string>

int main() {
    const Class classes[] = {[NSApplication class], [NSAutoreleasePool class], [NSBitmapImageRep class],
                             [NSCursor class],      [NSEvent class],           [NSImage class],
                             [NSPanel class],       [NSProcessInfo class],     [NSString class],
                             [NSURL class],         [NSView class],            [NSWindow class],
                             [NSWorkspace class]};
    for (std::string name; std::getline(std::cin, name);) {
        const SEL selector = sel_registerName(name.c_str());
        for (const Class type : classes) {
            for (const Method method : {class_getInstanceMethod(type, selector), class_getClassMethod(type, selector)})
                if (method)
                    std::cout << name << ' ' << method_getTypeEncoding(method) << '\n';
        }
    }
}
