// SPDX-License-Identifier: MIT
#include "platform/x11/BandedFirstFrame.h"

#include "platform/x11/ScreenBands.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QCursor>
#include <QExposeEvent>
#include <QWidget>
#include <QWindow>

#include <cstdlib>

#include <xcb/xcb.h>

namespace vexa::platform {
namespace {

/// By itself an update leaves out what opaque children cover.
void updateWithChildren(QWidget &widget, const QRegion &region) {
    widget.update(region);
    for (QObject *child : widget.children())
        if (child->isWidgetType() && !static_cast<QWidget *>(child)->isWindow())
            updateWithChildren(static_cast<QWidget &>(*child),
                               region.translated(-static_cast<QWidget *>(child)->pos()));
}

/// What is seen first is what differs from the screen that the window covers: mostly its buttons and titles,
/// and what it draws at the pointer. A row of a child ranks 0, others by their distance from the pointer.
class RowRank {
public:
    explicit RowRank(const QWidget &widget) : m_pointer(widget.mapFromGlobal(QCursor::pos()).y()) {
        for (const QObject *child : widget.children())
            if (child->isWidgetType() && static_cast<const QWidget *>(child)->isVisibleTo(&widget))
                m_children += static_cast<const QWidget *>(child)->geometry();
    }

    int operator()(int top, int rows) const {
        const QRect area(0, top, QWIDGETSIZE_MAX, rows);
        return m_children.intersects(area) ? 0 : 1 + std::abs(m_pointer - area.center().y());
    }

private:
    int m_pointer;
    QRegion m_children;
};

} // namespace

void BandedFirstFrame::paint(QWidget &widget) {
    if (ScreenBands::instance() && !widget.findChild<BandedFirstFrame *>({}, Qt::FindDirectChildrenOnly))
        new BandedFirstFrame(widget);
}

BandedFirstFrame::BandedFirstFrame(QWidget &widget) : QObject(&widget), m_widget(widget) {
    m_widget.windowHandle()->installEventFilter(this);
    QCoreApplication::instance()->installNativeEventFilter(this);
    // A store that has not the window's size when the window appears is painted whole.
    m_widget.backingStore()->resize(m_widget.size());
    // Only the attribute: setUpdatesEnabled(true) would paint everything.
    m_widget.setAttribute(Qt::WA_UpdatesDisabled);
}

bool BandedFirstFrame::eventFilter(QObject *watched, QEvent *event) {
    if (m_passing || event->type() != QEvent::Expose || !m_widget.windowHandle()->isExposed())
        return false;
    // What show() has posted, that all of it shall be painted, has to come while updates are disabled. Of a
    // window that is shown by a posted event, as by a chord, it has not come yet.
    if (m_state == State::Awaited)
        QCoreApplication::sendPostedEvents(&m_widget, QEvent::UpdateLater);
    passOn(watched, event);
    if (m_state == State::Awaited)
        m_state = paintWhole() ? State::Painted : State::Uncovered;
    if (m_state == State::Uncovered)
        updateWithChildren(m_widget, static_cast<QExposeEvent *>(event)->region());
    // Updates that were requested while they were disabled are recorded as dirty, but no paint event was
    // posted for them.
    QCoreApplication::postEvent(&m_widget, new QEvent(QEvent::UpdateRequest));
    return true;
}

/// The toolkit reports a window's appearance twice, when it is mapped and when the server has exposed it.
/// Only what the server exposes after it began to get the frame has to be painted again.
bool BandedFirstFrame::nativeEventFilter(const QByteArray & /*type*/, void *message, long * /*result*/) {
    const auto &event = *static_cast<const xcb_generic_event_t *>(message);
    if (m_state == State::Painted && event.response_type == XCB_EXPOSE &&
        reinterpret_cast<const xcb_expose_event_t &>(event).window == m_widget.internalWinId() &&
        qint32(event.full_sequence - m_begun) >= 0)
        m_state = State::Uncovered;
    return false;
}

/// Lets the toolkit learn that the window is there, but not fetch from the store what was never painted.
void BandedFirstFrame::passOn(QObject *window, QEvent *event) {
    m_widget.setAttribute(Qt::WA_UpdatesDisabled);
    m_passing = true;
    QCoreApplication::sendEvent(window, event);
    m_passing = false;
    m_widget.setAttribute(Qt::WA_UpdatesDisabled, false);
}

bool BandedFirstFrame::paintWhole() {
    const qreal ratio = m_widget.devicePixelRatioF();
    const int step = qRound(ratio);
    if (!qFuzzyCompare(ratio, qreal(step)))
        return false;
    const auto begun = ScreenBands::instance()->show(
        quint32(m_widget.internalWinId()), m_widget.size() * step, step,
        [rank = RowRank(m_widget), step](int top, int rows) { return rank(top / step, rows / step); },
        [this, step](QImage &band, int top) {
            band.setDevicePixelRatio(step);
            m_widget.render(&band, {}, QRect(0, top / step, m_widget.width(), band.height() / step),
                            QWidget::DrawWindowBackground | QWidget::DrawChildren);
        });
    m_begun = begun.value_or(0);
    return begun.has_value();
}

} // namespace vexa::platform
