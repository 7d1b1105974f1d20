// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace vexa {

/// Keeps the mouse grabbed for a window that is about to open.
///
/// What the mouse did before the window was on the screen belongs to other windows, also when it is handled
/// only afterwards: while a button is down that was pressed elsewhere, the grab waits for its release. The
/// system, too, silently refuses a grab for a window that cannot be seen yet: it is repeated on
/// exposure.
///
/// Not the owner of the window, and to be destroyed before it. GUI thread only.
class MouseHold : public QObject {
public:
    explicit MouseHold(QWidget &window) : m_window(window) {}

    void take();
    /// As a button was pressed on the window itself: at once.
    void takeByPress();
    /// Does nothing while the mouse is not held.
    void give();
    /// Grabs the mouse if it is to be held and could not be grabbed so far. To be called now and then.
    void renew();
    /// Lets others grab the mouse until it is renewed. While a button is down it stays grabbed.
    void rest();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isExposed() const;

    QWidget &m_window;
    bool m_held = false;
};

} // namespace vexa
