// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace vexa {

/// Keeps the mouse grabbed for a window, also when it is taken before the window can be seen: the system
/// refuses that without a word, so the grab is repeated when the window is exposed. Not the owner of the
/// window, and to be destroyed before it. GUI thread only.
class MouseHold : public QObject {
public:
    explicit MouseHold(QWidget &window);

    void take();
    /// Does nothing while the mouse is not held.
    void give();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_window;
    bool m_held = false;
};

} // namespace vexa
