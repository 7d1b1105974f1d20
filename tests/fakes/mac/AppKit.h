// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/mac/ObjectiveCRuntime.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace fakes {

/// A cursor's picture as AppKit would hand it out, with the switches for everything that may be missing.
struct Cursor {
    bool exists = true;
    bool hasImage = true;
    bool hasData = true;
    bool decodes = true;
    bool hasBytes = true;
    CGSize size{0, 0};
    std::vector<unsigned char> bytes;
    long pixelsWide = 0;
    long pixelsHigh = 0;
    long bytesPerRow = 0;
    long bitsPerPixel = 32;
    long bitsPerSample = 8;
    long samplesPerPixel = 4;
    bool planar = false;
    unsigned long format = 0;
};

/// What AppKit keeps of a window.
struct Window : objc_object {
    std::vector<std::string> told; ///< selectors of what it was told, in order
    std::function<void()> whenTold = [] {};
    unsigned long styleMask = 0;
    unsigned long collectionBehavior = 0;
    long level = 0;
    bool hidesOnDeactivate = true; ///< as a tool window's
    bool ignoresMouseEvents = false;
    bool canHide = true;
    long animationBehavior = 4; ///< a utility window's, which the toolkit gives it
};

/// As much of AppKit as the program talks to, defined in the fake runtime for as long as this lives; one at a
/// time. Objects that methods return are autoreleased for real: they are gone, their bytes with them, when
/// the innermost pool is drained.
class AppKit {
public:
    AppKit();
    ~AppKit();
    AppKit(const AppKit &) = delete;
    AppKit &operator=(const AppKit &) = delete;

    bool hasApplication = true;
    bool hasDelegate = true;
    Class delegateClass = nullptr;
    Cursor cursor;
    bool acceptsUrls = true;
    std::vector<std::string> openedUrls;
    std::function<void()> whenOpened = [] {};
    bool mouseCoalescing = true;
    unsigned long activity = 0; ///< options of the one that goes on
    bool hasWindow = true;
    Window window; ///< that of every view

    /// Whether the toolkit has made a panel of the window, or would at its next showing.
    std::function<bool()> isPanel = [] { return false; };

    /// The window server's rule: over another program's full-screen space lies a panel that activates
    /// nothing, may join all spaces and stands high enough, also while its own program is not the active one.
    bool liesOverForeignFullScreenSpace() const;

    int poolsMade() const { return m_poolsMade; }
    int poolsOpen() const { return static_cast<int>(m_pools.size()); }
    /// How often an object was returned while no pool was there to own it.
    int strays() const { return m_strays; }

    // For the methods.
    static AppKit &instance();
    id autoreleased(std::unique_ptr<objc_object> object);
    id lasting(std::unique_ptr<objc_object> object);
    id retained(id autoreleased);
    id openPool();
    void drain(id pool);

private:
    using Pool = std::vector<std::unique_ptr<objc_object>>;
    std::vector<std::pair<std::unique_ptr<objc_object>, Pool>> m_pools;
    Pool m_lasting;
    int m_poolsMade = 0;
    int m_strays = 0;
};

} // namespace fakes
