// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QMap>
#include <QObject>
#include <QTimerEvent>

namespace vexa::test {

/// Counts the ticks of a held tool's two timers, its paints and the presses of a button on it, so that tests
/// can wait for a tick instead of a time. The quick one is the one that ticks first. While held, the tool
/// does not get its ticks; while kept young, not the slow ones.
class TickCounter : public QObject {
public:
    explicit TickCounter(QObject *tool) { tool->installEventFilter(this); }

    int quickTicks() const { return m_ticks.value(m_quick); }
    int slowTicks() const {
        int all = 0;
        for (const int ticks : m_ticks)
            all += ticks;
        return all - quickTicks();
    }
    int paints() const { return m_paints; }
    int presses() const { return m_presses; }
    bool held = false;
    bool keptYoung = false;

    /// One quick tick more, at once. There has to have been one.
    void tick(QObject *tool) const {
        QTimerEvent event(m_quick);
        QCoreApplication::sendEvent(tool, &event);
    }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() == QEvent::Timer) {
            const int id = static_cast<QTimerEvent *>(event)->timerId();
            if (held || (keptYoung && !m_ticks.isEmpty() && id != m_quick))
                return true;
            if (m_ticks.isEmpty())
                m_quick = id;
            ++m_ticks[id];
        }
        if (event->type() == QEvent::Paint)
            ++m_paints;
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
            ++m_presses;
        return false;
    }

private:
    QMap<int, int> m_ticks;
    int m_quick = 0;
    int m_paints = 0;
    int m_presses = 0; // of mouse buttons
};

} // namespace vexa::test
