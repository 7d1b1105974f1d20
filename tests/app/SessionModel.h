// SPDX-License-Identifier: MIT
#pragma once

#include "platform/quartz/VirtualKeys.h"
#include "support/ViewNumbers.h"

#include <QPoint>
#include <QSize>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

/// What a session with the pen is, in as few words as possible: an account of its own beside the program's.
/// Times are milliseconds of a given clock. It says no, by `complaint`, to what comes when it must not.
class SessionModel {
public:
    explicit SessionModel(const QSize &screen = {}) : m_screen(screen) {}

    enum Kind { Spotlight, Magnifier, Laser }; // as key 4 chooses them
    enum Timer { SlideShow, PlayPause, Refocus, timers };

    QString complaint;

    void advance(int time) {
        m_now += time;
        for (int timer = 0; timer < timers; ++timer)
            if (m_due[timer] && m_now > *m_due[timer] + late)
                complaint = QStringLiteral("timer %1 did not come").arg(timer);
    }

    /// Returns the timer that was started, if one was.
    std::optional<Timer> receive(int key, int state) {
        const bool chord = m_control && m_shift && m_option && state != 0;
        m_started.reset();
        switch (key) {
        case kVK_Control:
            m_control = state != 0;
            break;
        case kVK_Shift:
            m_shift = state != 0;
            break;
        case kVK_Option:
            m_option = state != 0;
            break;
        case kVK_ANSI_A:
            if (chord)
                m_longPress2 = true;
            else if (std::exchange(m_longPress2, false))
                act(m_key2);
            break;
        case kVK_ANSI_S:
            if (chord)
                releaseHeldTools();
            break;
        case kVK_ANSI_D:
            if (chord)
                act(m_key4);
            break;
        case kVK_ANSI_G:
            if (chord)
                hold();
            break;
        case kVK_ANSI_I:
            if (chord && m_armed)
                toggle(m_annotation);
            m_armed = chord ? false : m_armed || state == 0;
            break;
        case kVK_ANSI_J:
            if (chord)
                m_longPress3 = true;
            else if (state == 0 && m_longPress3 && m_armed) {
                m_armed = m_longPress3 = false;
                act(m_key3);
            }
            break;
        case kVK_ANSI_M:
            m_armed = m_armed || chord;
            break;
        default:
            break;
        }
        return m_started;
    }

    /// The settings view has chosen: a message of one of the keys.
    void choose(ViewMessage message, int value) {
        (message == ViewMessage::Key2P   ? m_key2
         : message == ViewMessage::Key3P ? m_key3
         : message == ViewMessage::Key4C ? m_key4
                                         : m_tool) = value;
        m_armed = m_armed || message != ViewMessage::Key4P;
    }

    void move(int x, int y) {
        const bool reachable =
            std::any_of(m_held.begin(), m_held.end(), [](const Held &one) { return one.current; });
        const QPoint kept(std::min(std::max(x, 4), m_screen.width() - 4),
                          std::min(std::max(y, 4), m_screen.height() - 4));
        if (m_following && reachable && kept != QPoint(x, y))
            m_posts += QStringLiteral("pointer 5 at %1,%2").arg(kept.x()).arg(kept.y());
    }

    /// A timer of the program is about to fire.
    void fire(Timer timer, const QPoint &pointer) {
        if (!m_due[timer] || std::abs(m_now - *m_due[timer]) > late)
            complaint = QStringLiteral("timer %1 came when it was not due").arg(timer);
        m_due[timer].reset();
        if (timer == PlayPause)
            m_posts +=
                QStringList{QStringLiteral("down key 49 flags 0"), QStringLiteral("up key 49 flags 0")};
        if (timer == SlideShow) {
            m_posts +=
                m_show ? QStringLiteral("down key 53 flags 0") : QStringLiteral("down key 36 flags 1048576");
            m_show = !m_show;
        }
        if (timer == Refocus) {
            const QString corner =
                QStringLiteral(" at %1,%2").arg(m_screen.width() - 10).arg(m_screen.height() - 10);
            for (const char *event : {"pointer 5", "pointer 1", "pointer 2"})
                m_posts += event + corner;
            m_posts += QStringLiteral("pointer 5 at %1,%2").arg(pointer.x()).arg(pointer.y());
            m_posts += QStringLiteral("down key 116 flags 0");
        }
    }

    /// The held tool with that number is about to look how old it is, which it does every 150 ms.
    void guard(int number) {
        const auto held = find(number);
        if (held == m_held.end() || held->age >= leastLife)
            complaint = QStringLiteral("a guard where there is none");
        else if (held->age += 150; std::abs(m_now - held->born - held->age) > late)
            complaint = QStringLiteral("a guard at the wrong time");
        else if (held->age >= leastLife && held->leaving)
            close(held);
    }

    /// A click dismisses a held tool without a word.
    void click(int number) { m_held.erase(find(number)); }

    void exitAnnotation() { report(m_annotation); }
    void exitBlackboard() { report(m_blackboard); }

    /// The number of the held tool that was opened last, and what kind it is.
    int newest() const { return m_held.empty() ? -1 : m_held.back().number; }

    /// What is to be seen of all this, and what was posted since this was asked last.
    QString told() {
        QString all;
        for (const Held &held : m_held)
            all += QStringLiteral("tool %1, ").arg(held.kind);
        all += QStringLiteral("annotation %1, blackboard %2, show %3, posts: %4")
                   .arg(m_annotation)
                   .arg(m_blackboard)
                   .arg(m_show)
                   .arg(m_posts.join(QStringLiteral("; ")));
        m_posts.clear();
        return all;
    }

private:
    static constexpr int leastLife = 900;
    static constexpr int late = 80; ///< how far a coarse timer may be off, and the looks at it

    struct Held {
        int number;
        int kind;
        int born;
        int age = 0;
        bool leaving = false;
        bool current = true; ///< the last one of its kind
    };

    std::vector<Held>::iterator find(int number) {
        return std::find_if(m_held.begin(), m_held.end(),
                            [=](const Held &one) { return one.number == number; });
    }

    void start(Timer timer, int delay) {
        m_due[timer] = m_now + delay;
        m_started = timer;
    }
    void refocusSoon() {
        if (m_show)
            m_due[Refocus] = m_now + 1000;
    }
    void cancelRefocus() {
        if (m_show)
            m_due[Refocus].reset();
    }

    void act(int action) {
        if (KeyAction(action) == KeyAction::SlideShow)
            start(SlideShow, 200);
        if (KeyAction(action) == KeyAction::PlayPause)
            start(PlayPause, 200);
        if (KeyAction(action) == KeyAction::Blackboard)
            toggle(m_blackboard);
    }
    void toggle(bool &window) {
        window = !window;
        window ? cancelRefocus() : refocusSoon();
    }
    void report(bool &window) {
        window = false;
        refocusSoon();
    }

    void hold() {
        m_following = true;
        cancelRefocus();
        if (m_tool < Spotlight || m_tool > Laser)
            return;
        for (Held &held : m_held)
            held.current = held.current && held.kind != m_tool;
        m_held.push_back({++m_numbers, m_tool, m_now});
    }
    void releaseHeldTools() {
        m_following = false;
        for (std::size_t i = 0; i < m_held.size();) {
            m_held[i].leaving = true;
            if (m_held[i].age >= leastLife)
                close(m_held.begin() + long(i));
            else
                ++i;
        }
    }
    void close(std::vector<Held>::iterator held) {
        m_held.erase(held);
        refocusSoon();
    }

    QSize m_screen;
    int m_now = 0;
    bool m_control = false, m_shift = false, m_option = false;
    bool m_armed = true, m_longPress2 = false, m_longPress3 = false;
    bool m_annotation = false, m_blackboard = false, m_following = false, m_show = false;
    int m_key2 = vexa::test::Number(KeyAction::SlideShow);
    int m_key3 = vexa::test::Number(KeyAction::Blackboard);
    int m_key4 = vexa::test::Number(KeyAction::Screenshot);
    int m_tool = Laser;
    int m_numbers = 0;
    std::vector<Held> m_held;
    std::optional<int> m_due[timers]; ///< when each timer is to fire
    std::optional<Timer> m_started;
    QStringList m_posts;
};
