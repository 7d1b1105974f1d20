// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QRegion>
#include <QWidget>

#include <optional>

namespace vexa {

/// What the tools held on a pen key have in common: a full-screen window over a frozen picture of the primary
/// screen, on which a tool is drawn at the pointer, at most every 33 ms, until it is asked to leave.
///
/// A tool lives at least 900 ms, however short the key was pressed, then deletes itself. One that was asked
/// to leave reports before it closes; one that a click or the desktop closed reports nothing. Positions and
/// sizes are points from the primary screen's top-left corner. GUI thread only.
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
    void setDrawing(bool drawing);

    /// The mouse is the tool's until it is released; if the window is not on the screen yet, from then on.
    void takeMouse();
    void giveMouseBack();

    /// Brings the layer up to date with what the tool depends on.
    void render();
    /// Has what changed in the layer painted.
    void showChanges();

    /// The veil over the whole screen on which the tool is drawn; nothing for a clear screen.
    virtual std::optional<int> veil() const { return std::nullopt; }
    virtual void drawVeil(QPainter &layer) const;
    /// The size and the colour that the tool would be drawn with now.
    virtual int extent() const = 0;
    virtual QRgb ink() const { return 0; }
    /// Draws the tool and returns the area it touched.
    virtual QRectF draw(QPainter &layer) = 0;

    const QPixmap &background() const { return m_background; }
    QSize screenSize() const { return m_screen.size(); }
    /// How many of the background's pixels make a point: a whole number, 0 without a background.
    int backgroundScale() const;

    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Look {
        QPoint position;
        int extent;
        QRgb ink;
        bool operator==(const Look &other) const;
    };

    void stopTimer(int &timer);
    void guardTick();
    void finish();
    void clear(QPainter &layer, const QRect &area) const;

    const QRect m_screen; // the primary screen, its own top-left corner as origin
    QPoint m_position;
    bool m_drawing = false;
    QPixmap m_background;
    QPixmap m_layer;

    std::optional<Look> m_look;  // what the layer shows,
    std::optional<int> m_veiled; // on which veil,
    QRect m_touched;             // and where
    QRegion m_changed;           // what of it the window does not show yet
    QRegion m_due;               // and what it was asked to paint

    bool m_exitRequested = false;
    bool m_closed = false;
    bool m_mouseTaken = false;
    int m_elapsed = 0;
    int m_guardTimer;
    int m_frameTimer;
};

} // namespace vexa
