// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QImage>
#include <QObject>
#include <QRect>

#include <chrono>
#include <functional>

namespace vexa {

class PromptCard;

/// A screenshot and the prompt that announces it. The prompt's time starts first, but it stays invisible
/// until the picture is taken, so that it is not in the picture. GUI thread only.
class AnnouncedShot : public QObject {
public:
    /// How long a shot waits for what an earlier prompt has covered.
    static constexpr std::chrono::milliseconds usualWait{500};

    /// `shoot` takes the picture of the screen. Both outlive this object.
    AnnouncedShot(PromptCard &prompt, std::function<void()> shoot,
                  std::chrono::milliseconds longestWait = usualWait);
    /// Takes a shot that is still due.
    ~AnnouncedShot() override;

    /// Takes the picture at once or, while the prompt of an earlier shot is still visible, as soon as the
    /// windows below it have repainted, at the latest after the longest wait. Until then further calls do
    /// nothing: the one shot that is due stands for all of them.
    void take();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void shootNow();
    bool uncovered() const;

    PromptCard &m_prompt;
    const std::function<void()> m_shoot;
    const std::chrono::milliseconds m_longestWait;
    QRect m_area;     ///< where the prompt was visible, in points of the desktop
    QImage m_covered; ///< what the screen showed there with the prompt
    int m_clearLooks = 0;
    QDeadlineTimer m_deadline;
    QBasicTimer m_looks; ///< runs while a shot is due
};

} // namespace vexa
