// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRect>

#include <memory>

namespace vexa::test {

/// A window of another program: an own connection to the X server, nothing of Qt. Geometry in device pixels.
class ForeignWindow {
public:
    enum class Kind {
        Plain,      ///< an ordinary managed window
        FullScreen, ///< managed and full-screen, as a slide show
        Panel,      ///< a dock window above others, as a task bar
        Unmanaged,  ///< placed by itself
    };

    ForeignWindow(Kind kind, const QRect &geometry, const QColor &colour);
    ~ForeignWindow();

    /// Takes the focus, where no window manager gives it.
    void focus();
    bool isViewable() const;
    bool hasFocus() const;
    /// Grabs the mouse and lets it go again. False when another program has it.
    bool mayGrabMouse() const;
    /// How many times a button was pressed on it so far.
    int presses();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace vexa::test
