// SPDX-License-Identifier: MIT
#include "fakes/mac/AppKit.h"

#include <algorithm>
#include <utility>

namespace fakes {

namespace {

AppKit *theAppKit = nullptr;

struct Text : objc_object {
    std::string characters;
};

struct Bitmap : objc_object {
    Cursor content;
    bool unpacked = false;
};

template<typename Object = objc_object> std::unique_ptr<Object> make(const char *type) {
    auto object = std::make_unique<Object>();
    object->isa = objc_getClass(type);
    return object;
}

id lasting(const char *type) {
    return AppKit::instance().lasting(make<>(type));
}

id autoreleased(const char *type) {
    return AppKit::instance().autoreleased(make<>(type));
}

void defineApplication(AppKit &fresh) {
    const Class object = defineClass("NSObject");
    method(
        object, "class", "#@:", +[](id self, SEL) { return self->isa; });
    classMethod(
        defineClass("NSApplication", object), "sharedApplication",
        "@@:", +[](id, SEL) { return AppKit::instance().hasApplication ? lasting("NSApplication") : id{}; });
    method(
        objc_getClass("NSApplication"), "delegate", "@@:", +[](id, SEL) {
            const AppKit &kit = AppKit::instance();
            return kit.hasDelegate ? lasting(kit.delegateClass->name.c_str()) : id{};
        });
    fresh.delegateClass = defineClass("ToolkitDelegate", defineClass("ToolkitDelegateParent", object));
}

void definePools() {
    const Class pool = defineClass("NSAutoreleasePool", objc_getClass("NSObject"));
    classMethod(
        pool, "alloc", "@@:", +[](id, SEL) { return AppKit::instance().openPool(); });
    method(
        pool, "init", "@@:", +[](id self, SEL) { return self; });
    method(
        pool, "drain", "v@:", +[](id self, SEL) { AppKit::instance().drain(self); });
}

void defineCursor() {
    const Class object = objc_getClass("NSObject");
    classMethod(
        defineClass("NSCursor", object), "currentSystemCursor",
        "@@:", +[](id, SEL) { return AppKit::instance().cursor.exists ? autoreleased("NSCursor") : id{}; });
    method(
        objc_getClass("NSCursor"), "image",
        "@@:", +[](id, SEL) { return AppKit::instance().cursor.hasImage ? autoreleased("NSImage") : id{}; });
    const Class image = defineClass("NSImage", object);
    defineClass("NSData", object);
    method(
        image, "TIFFRepresentation",
        "@@:", +[](id, SEL) { return AppKit::instance().cursor.hasData ? autoreleased("NSData") : id{}; });
    method(
        image, "size", "{CGSize=dd}@:", +[](id, SEL) { return AppKit::instance().cursor.size; });
}

// The layout of a bitmap may change when its bytes are unpacked.
const Cursor &contentOf(id object) {
    const auto *const bitmap = static_cast<Bitmap *>(object);
    if (!bitmap->unpacked)
        misuse("a bitmap's layout was asked for before its bytes");
    return bitmap->content;
}

void defineBitmap() {
    const Class bitmap = defineClass("NSBitmapImageRep", objc_getClass("NSObject"));
    classMethod(
        bitmap, "imageRepWithData:", "@@:@", +[](id, SEL, id data) -> id {
            if (!data)
                misuse("imageRepWithData: raises without data");
            AppKit &kit = AppKit::instance();
            if (!kit.cursor.decodes)
                return nullptr;
            auto made = make<Bitmap>("NSBitmapImageRep");
            made->content = kit.cursor;
            return kit.autoreleased(std::move(made));
        });
    method(
        bitmap, "bitmapData", "*@:", +[](id self, SEL) -> unsigned char * {
            static_cast<Bitmap *>(self)->unpacked = true;
            auto &content = static_cast<Bitmap *>(self)->content;
            return content.hasBytes ? content.bytes.data() : nullptr;
        });
    method(
        bitmap, "pixelsWide", "q@:", +[](id self, SEL) { return contentOf(self).pixelsWide; });
    method(
        bitmap, "pixelsHigh", "q@:", +[](id self, SEL) { return contentOf(self).pixelsHigh; });
    method(
        bitmap, "bytesPerRow", "q@:", +[](id self, SEL) { return contentOf(self).bytesPerRow; });
    method(
        bitmap, "bitsPerPixel", "q@:", +[](id self, SEL) { return contentOf(self).bitsPerPixel; });
    method(
        bitmap, "bitsPerSample", "q@:", +[](id self, SEL) { return contentOf(self).bitsPerSample; });
    method(
        bitmap, "samplesPerPixel", "q@:", +[](id self, SEL) { return contentOf(self).samplesPerPixel; });
    method(
        bitmap, "isPlanar", "B@:", +[](id self, SEL) -> BOOL { return contentOf(self).planar; });
    method(
        bitmap, "bitmapFormat", "Q@:", +[](id self, SEL) { return contentOf(self).format; });
}

void defineWorkspace() {
    const Class object = objc_getClass("NSObject");
    const auto text = +[](id, SEL, const char *characters) {
        auto made = make<Text>("NSString");
        made->characters = characters;
        return AppKit::instance().autoreleased(std::move(made));
    };
    classMethod(defineClass("NSString", object), "stringWithUTF8String:", "@@:r*", text);
    classMethod(
        defineClass("NSURL", object), "URLWithString:", "@@:@", +[](id, SEL, id string) -> id {
            if (!AppKit::instance().acceptsUrls)
                return nullptr;
            auto made = make<Text>("NSURL");
            made->characters = static_cast<Text *>(string)->characters;
            return AppKit::instance().autoreleased(std::move(made));
        });
    const Class workspace = defineClass("NSWorkspace", object);
    classMethod(
        workspace, "sharedWorkspace", "@@:", +[](id, SEL) { return lasting("NSWorkspace"); });
    method(
        workspace, "openURL:", "B@:@", +[](id, SEL, id url) -> BOOL {
            AppKit::instance().whenOpened();
            AppKit::instance().openedUrls.push_back(static_cast<Text *>(url)->characters);
            return true;
        });
}

void defineEvent() {
    const Class event = defineClass("NSEvent", objc_getClass("NSObject"));
    classMethod(
        event, "setMouseCoalescingEnabled:", "v@:B",
        +[](id, SEL, BOOL enabled) { AppKit::instance().mouseCoalescing = enabled; });
    classMethod(
        event, "isMouseCoalescingEnabled",
        "B@:", +[](id, SEL) -> BOOL { return AppKit::instance().mouseCoalescing; });
}

/// Goes on until it is gone.
struct Activity : objc_object {
    explicit Activity(unsigned long options) : goesOn(AppKit::instance().activity) { goesOn = options; }
    ~Activity() override { goesOn = 0; }
    Activity(const Activity &) = delete;
    Activity &operator=(const Activity &) = delete;

    unsigned long &goesOn;
};

void defineProcess() {
    const Class object = objc_getClass("NSObject");
    method(
        object, "retain", "@@:", +[](id self, SEL) { return AppKit::instance().retained(self); });
    const Class process = defineClass("NSProcessInfo", object);
    classMethod(
        process, "processInfo", "@@:", +[](id, SEL) { return lasting("NSProcessInfo"); });
    method(
        process, "beginActivityWithOptions:reason:", "@@:Q@", +[](id, SEL, unsigned long options, id reason) {
            if (!reason)
                misuse("beginActivityWithOptions: raises without a reason");
            auto made = std::make_unique<Activity>(options);
            made->isa = objc_getClass("NSObject");
            return AppKit::instance().autoreleased(std::move(made));
        });
}

Window &told(id window, const char *what) {
    auto &self = *static_cast<Window *>(window);
    self.told.emplace_back(what);
    self.whenTold();
    return self;
}

void defineWindow() {
    const Class object = objc_getClass("NSObject");
    method(
        defineClass("NSView", object), "window", "@@:", +[](id, SEL) -> id {
            AppKit &kit = AppKit::instance();
            kit.autoreleased(make<>("NSObject")); // the reference that is handed out
            return kit.hasWindow ? &kit.window : nullptr;
        });
    const Class window = defineClass("NSWindow", object);
    method(
        window, "styleMask", "Q@:", +[](id self, SEL) { return static_cast<Window *>(self)->styleMask; });
    method(
        window, "setStyleMask:", "v@:Q",
        +[](id self, SEL, unsigned long value) { told(self, "setStyleMask:").styleMask = value; });
    method(
        window, "setCollectionBehavior:", "v@:Q", +[](id self, SEL, unsigned long value) {
            told(self, "setCollectionBehavior:").collectionBehavior = value;
        });
    method(
        window, "setLevel:", "v@:q",
        +[](id self, SEL, long value) { told(self, "setLevel:").level = value; });
    method(
        window, "setHidesOnDeactivate:", "v@:B",
        +[](id self, SEL, BOOL value) { told(self, "setHidesOnDeactivate:").hidesOnDeactivate = value; });
    method(
        window, "setIgnoresMouseEvents:", "v@:B",
        +[](id self, SEL, BOOL value) { told(self, "setIgnoresMouseEvents:").ignoresMouseEvents = value; });
    method(
        window, "setCanHide:", "v@:B",
        +[](id self, SEL, BOOL value) { told(self, "setCanHide:").canHide = value; });
    method(
        window, "setAnimationBehavior:", "v@:q",
        +[](id self, SEL, long value) { told(self, "setAnimationBehavior:").animationBehavior = value; });
    method(
        window, "orderFrontRegardless", "v@:", +[](id self, SEL) { told(self, "orderFrontRegardless"); });
}

} // namespace

AppKit::AppKit() {
    if (theAppKit)
        misuse("two AppKits at a time");
    theAppKit = this;
    defineApplication(*this);
    definePools();
    defineCursor();
    defineBitmap();
    defineWorkspace();
    defineEvent();
    defineProcess();
    defineWindow();
    window.isa = objc_getClass("NSWindow");
    aliasWindowNumbers(lasting(make<>("NSView")));
}

AppKit::~AppKit() {
    forgetClasses();
    theAppKit = nullptr;
}

AppKit &AppKit::instance() {
    if (!theAppKit)
        misuse("there is no AppKit");
    return *theAppKit;
}

bool AppKit::liesOverForeignFullScreenSpace() const {
    constexpr unsigned long nonactivating = 128, allSpaces = 1, auxiliary = 256;
    constexpr long aboveFullScreen = 25; // a status window's
    const unsigned long joins = allSpaces | auxiliary;
    return isPanel() && (window.styleMask & nonactivating) && (window.collectionBehavior & joins) == joins &&
           window.level > aboveFullScreen && !window.hidesOnDeactivate;
}

id AppKit::autoreleased(std::unique_ptr<objc_object> object) {
    if (m_pools.empty()) {
        ++m_strays;
        return lasting(std::move(object));
    }
    Pool &owner = m_pools.back().second;
    owner.push_back(std::move(object));
    return owner.back().get();
}

id AppKit::lasting(std::unique_ptr<objc_object> object) {
    m_lasting.push_back(std::move(object));
    return m_lasting.back().get();
}

id AppKit::retained(id autoreleased) {
    for (auto &pool : m_pools) {
        Pool &owned = pool.second;
        const auto found = std::find_if(owned.begin(), owned.end(),
                                        [&](const auto &each) { return each.get() == autoreleased; });
        if (found != owned.end()) {
            m_lasting.push_back(std::move(*found));
            owned.erase(found);
            return autoreleased;
        }
    }
    misuse("nothing owns what is retained");
}

id AppKit::openPool() {
    ++m_poolsMade;
    m_pools.emplace_back(make<>("NSAutoreleasePool"), Pool{});
    return m_pools.back().first.get();
}

void AppKit::drain(id pool) {
    if (m_pools.empty() || m_pools.back().first.get() != pool)
        misuse("a pool is drained that is not the innermost one");
    m_pools.pop_back();
}

} // namespace fakes
