// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QQuickWidget;

namespace vexa {

/// Moves the window of a view, by as little as will do, so that the control to which the keyboard goes is
/// wholly on a screen: a view that is larger than the screen is worked with the tab key alone. A press of the
/// mouse moves nothing, since its release has to meet the same control. A child of its view. GUI thread.
class FocusInSight : public QObject {
public:
    explicit FocusInSight(QQuickWidget &view);

private:
    void follow();

    QQuickWidget &m_view;
};

} // namespace vexa
