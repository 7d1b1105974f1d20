// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/MouseHold.h"
#include "overlays/ScreenFollower.h"
#include "overlays/ToolLayer.h"

#include <QBasicTimer>
#include <QPixmap>
#include <QWidget>

#include <optional>

namespace vexa {

/// What the tools held on a pen key have in common: a full-screen window over a frozen picture of the primary
/// screen, on which a tool is drawn at the pointer, at most every 33 ms, until it is asked to leave.
///
/// A tool lives at least 900 ms, however short the key was pressed, then deletes itself. One that was asked
/// to leave reports before it closes; one that a click or the desktop closed reports nothing. Positions and
/// sizes are points from the primary screen's top-left corner. When that screen changes, the window follows
/// with its picture stretched, as it hides what a new one would have to show. GUI thread only.
///
/// The tools are this class's children but declare their signals and slots themselves: it carries no
/// Q_OBJECT.
class HeldTool : public QWidget {
public:
    /// Shows the picture as the window's background. The picture stays the caller's and may change or go
    /// afterwards.
    void Setbackground(QPixmap *picture);

    /// Where the tool is drawn at the next tick.
    void SetMouseMove(int x, int y);

protected:
    explicit HeldTool(QWidget *parent);

    /// Leaves now, or as soon as the tool has lived its 900 ms.
    void leave();
    virtual void report() = 0;

    void placeAtPointer();
    void placeAt(const QPointF &position);
    QPoint position() const { return m_position; }
    /// Whether the tool is seen above its background.
    void setDrawing(bool drawing);

    /// The mouse is the tool's until it closes.
    void takeMouse() { m_mouse.take(); }
    void takeMouseByPress() { m_mouse.takeByPress(); }
    /// A button was pressed on the tool. Its release dismisses the tool.
    virtual void press(const QPointF &position) = 0;

    /// Brings the tool's picture up to date with what it depends on.
    void render();
    /// Has what changed in it painted.
    void showChanges();

    /// The size and the colour that the tool would be drawn with now.
    virtual int extent() const = 0;
    virtual QRgb ink() const { return 0; }
    /// Makes ready what draw() needs and returns the area it will touch.
    virtual QRectF prepare() = 0;
    /// The painter does not antialias yet: a pixmap so drawn would get a thin edge where the screen ends.
    virtual void draw(QPainter &painter) const = 0;
    /// The alpha of the veil between the background and the tool, for tools that have one.
    virtual std::optional<int> veil() const { return std::nullopt; }
    virtual void drawVeil(QPainter & /*painter*/) const {}

    const QPixmap &background() const { return m_background; }
    QSize screenSize() const { return m_screen; }
    /// How many of the background's pixels make a point: a whole number, 0 without a background.
    int backgroundScale() const;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    enum class Life {
        Young,   // must stay: its 900 ms are not over
        Grown,   // may close at once
        Leaving, // was asked to close while young; closes when grown
        Over,    // has closed; the event loop deletes it
    };

    void guardTick();
    void holdMouse();
    void finish();
    void followScreen();

    QSize m_screen;
    QPoint m_position;
    int m_rested = 0; // milliseconds since the pointer moved, counted by ticks until it rests
    bool m_drawing = false;
    QPixmap m_background;
    ToolLayer m_layer;
    MouseHold m_mouse;
    ScreenFollower m_follower;

    Life m_life = Life::Young;
    int m_age = 0; // milliseconds, counted until it is grown
    QBasicTimer m_guard;
    QBasicTimer m_frames;
};

} // namespace vexa
