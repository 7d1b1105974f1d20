// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>

class QWidget;

namespace vexa::platform {

/// Puts a large window's first frame onto the screen band by band, without the toolkit's store for the whole
/// window: until something changes there, none of the store's pages exist, which would take most of the time
/// that a full-screen tool needs to appear. Afterwards the toolkit paints as always, but only what changes or
/// has been uncovered. A child of its window. GUI thread.
class BandedFirstFrame : public QObject, QAbstractNativeEventFilter {
    Q_OBJECT

public:
    /// For a window that has its native window and its size, and is about to be shown. Does nothing where
    /// pictures cannot be moved in bands.
    static void paint(QWidget &widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit BandedFirstFrame(QWidget &widget);

    bool nativeEventFilter(const QByteArray &type, void *message, long *result) override;

    void passOn(QObject *window, QEvent *event);
    bool paintWhole();

    QWidget &m_widget;
    enum class State {
        Awaited,   ///< the window has not appeared yet
        Painted,   ///< all that the server has asked for is there
        Uncovered, ///< parts of it were lost since, or it could not be painted
    } m_state = State::Awaited;
    quint32 m_begun = 0; ///< the number of the request that began the frame
    bool m_passing = false;
};

} // namespace vexa::platform
