// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/EveryPointerSample.h"
#include "annotation/InkLayer.h"
#include "overlays/ScreenFollower.h"

#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <memory>

class QLabel;
class QPushButton;
class promptwindow2;

namespace vexa {

/// What the annotation and the blackboard have in common: a window over the whole primary screen on which the
/// mouse draws with one of the user's three pens, or rubs out. It deletes itself when it is closed; the ink
/// is never saved.
///
/// The two forms are this class's children and declare their signal and their slots themselves, in the order
/// their connections rely on: it carries no Q_OBJECT. Positions are points. GUI thread only.
class DrawingForm : public QWidget {
public:
    ~DrawingForm() override;

    /// Takes over the picture and shows it as the window's background, in place of an earlier one; null
    /// leaves the window without a picture.
    void Setbackground(QPixmap *picture);

    /// Steps to the next of the three pens and says so in the prompt. Not while something is being drawn and
    /// not while the eraser is chosen.
    void ChangePenColorID();

    /// Chooses the pen and reads its colour and width from the settings.
    void setPenInit();

    /// The form's own prompt; it goes with the form.
    promptwindow2 *prompt() const { return m_prompt.get(); }

protected:
    struct Controls {
        QPushButton *exit;
        QPushButton *eraser;
        QPushButton *pen;
        QLabel *title;
    };

    explicit DrawingForm(QWidget *parent);

    /// The controls of the designer form, which owns them; valid once the subclass's constructor has set it
    /// up.
    virtual Controls controls() const = 0;
    /// Gives the controls their looks and their places on the primary screen, and connects the exit button.
    /// Call it at the end of the subclass's constructor.
    void setUpControls(const QString &title);

    void setBackgroundBrush(const QBrush &brush);
    void takeEraser();
    void takePen();

    /// Says that the user leaves by the exit button; the window closes right after.
    virtual void reportExit() = 0;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void place() const;
    void setTitleColours() const;
    void followScreen();
    void penUp();
    void buildCursors();

    EveryPointerSample m_everySample;
    InkLayer m_ink;
    QTimer m_settling; // shows what the stroke's edges have become behind the pen
    std::unique_ptr<QPixmap> m_background;
    std::unique_ptr<promptwindow2> m_prompt;
    ScreenFollower m_follower;
    int m_colourIndex = 0;
    int m_penWidth = 0;
    QColor m_penColour;
    QCursor m_penCursor;
    QCursor m_eraserCursor;
    bool m_pressed = false;
    bool m_buttonSeenDown = false; // by the whole application, when the window was pressed
    bool m_erasing = false;
    bool m_leaving = false;
};

} // namespace vexa
