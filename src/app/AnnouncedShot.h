// SPDX-License-Identifier: MIT
#pragma once

#include <QBasicTimer>
#include <QDeadlineTimer>
#include <QImage>
#include <QObject>
#include <QRect>

#include <functional>

namespace vexa {

class PromptCard;

/// A screenshot and the prompt that announces it. The prompt is shown first, but held back from the screen
/// until the picture is taken, so that it does not stand in it. GUI thread only.
class AnnouncedShot : public QObject {
public:
    /// `shoot` takes the picture of the screen. Both outlive this object.
    AnnouncedShot(PromptCard &prompt, std::function<void()> shoot);
    /// A shot that is still due is taken now.
    ~AnnouncedShot() override;

    /// Takes the picture at once, or, when the prompt of an earlier shot is still to be seen, as soon as what
    /// it has covered is drawn again, at the latest after half a second. Until then further calls mean the
    /// same shot.
    void take();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void shootNow();
    bool uncovered() const;

    PromptCard &m_prompt;
    const std::function<void()> m_shoot;
    QRect m_area; ///< where the prompt was seen, in points of the desktop
    QImage m_covered;
    int m_clearLooks = 0;
    QDeadlineTimer m_deadline;
    QBasicTimer m_looks; ///< runs while a shot is due
};

} // namespace vexa
