// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/ScreenFollower.h"

#include <QBasicTimer>
#include <QSize>
#include <QString>
#include <QWidget>

class QLabel;

namespace vexa {

/// What the two prompts have in common: a card in the middle of the primary screen, above everything, that
/// fades out by itself. It leaves the focus where it is; once faded it is still shown, but neither seen nor
/// clicked.
///
/// The prompts are this class's children; it carries no Q_OBJECT. GUI thread only.
class PromptCard : public QWidget {
public:
    void setText(const QString &text);
    /// Shows the colour of one of the three pens (0 to 2) in the swatch; changes nothing for other slots, and
    /// for settings outside the palette.
    void setCurcolor(int slot);

    void showWithTimer();
    /// There, but invisible, without a fade.
    void showWithTransperent();
    /// Invisible at once; a fade ends.
    void hideWindow();
    /// Does showWithTimer() after the prompt's delay.
    void delayShow();

    bool isSeen() const { return windowOpacity() > 0.0; }
    /// Invisible whatever else is done with the card, until letOut(): for a picture of the screen.
    void holdBack();
    void letOut();

protected:
    /// `delay` in milliseconds, for delayShow().
    PromptCard(QWidget *parent, Qt::WindowFlags flags, int delay);

    /// Shows the card with that size, fully visible, and lets it fade: 20 steps of so many milliseconds.
    void showAndFade(const QSize &size, int stepInterval);

    /// The labels of the designer form; valid once the subclass's constructor has set it up.
    virtual QLabel &textLabel() const = 0;
    virtual QLabel &swatchLabel() const = 0;
    virtual QString swatchStyle(int slot, const QString &colour) const = 0;
    virtual void retranslate() = 0;

    void timerEvent(QTimerEvent *event) override;
    void changeEvent(QEvent *event) override;

    int m_colourSlot = 0;

private:
    void setBackgroundPicture();
    void showCentred(const QSize &size, double opacity);
    void centre();
    void setOpacity(double opacity);

    const int m_delay;
    QBasicTimer m_fade;
    QBasicTimer m_delayed;
    QSize m_size; // points; what was asked for, whatever the toolkit makes of it while the scale changes
    double m_opacity = 1.0;
    bool m_heldBack = false;
    ScreenFollower m_follower;
};

} // namespace vexa
