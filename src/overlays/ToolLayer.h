// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QRegion>

#include <functional>
#include <optional>
#include <vector>

class QPainter;

namespace vexa {

/// What a held tool draws above its background, and how much of that its window does not show yet.
///
/// Two things make it up: a veil over the whole screen, for tools that have one, and above it the tool
/// itself, whose picture is as large as the area it touches and clear where it draws nothing.
///
/// A place that has changed is first stale, then due (its window was asked to paint it), then painted. From
/// the window's first complete painting on, every point of it that differs from what paint() draws is stale
/// or due, so painting no more than these is as good as painting everything.
///
/// All regions keep to a grid of points that lie between device pixels: at a scale of 1.5 every second one
/// does. A picture or an update that began within a pixel would leave a seam there.
///
/// Sizes and places are points of the screen, its top-left corner the origin. GUI thread only.
class ToolLayer {
public:
    /// All that the tool's picture depends on besides the background.
    struct Look {
        QPoint position;
        int extent;
        QRgb ink;
        bool operator==(const Look &other) const;
    };
    using Draw = std::function<void(QPainter &)>;

    /// The size of its window, which covers the screen.
    ToolLayer(const QSize &covering, qreal devicePixelRatio);

    /// Has the veil drawn with that alpha, unless it is there already; nullopt is no veil. It has to be a
    /// veil of one colour but for the outermost two points of the screen.
    void setVeil(std::optional<int> alpha, const Draw &draw);

    /// Whether the tool's picture has this look.
    bool shows(const Look &look) const { return m_look == look; }
    /// Has the tool drawn, within `touched` but for a soft edge.
    void setTool(const Look &look, const QRectF &touched, const Draw &draw);
    /// The background has been replaced: the tool's picture has no look any more that could be asked for.
    void forgetLook() { m_look.reset(); }

    /// The layer appears or disappears as a whole.
    void setStale() { m_stale = m_screen; }
    /// The window comes onto the screen, where it is painted whole without being asked.
    void windowAppears() { m_stale = QRegion(); }
    /// What its window has to be asked to paint; due from now on.
    QRegion takeStale();
    const QRegion &due() const { return m_due; }
    void setPainted(const QRegion &region) { m_due -= region; }

    /// Draws the part of the layer that lies in the region.
    void paint(QPainter &painter, const QRegion &region) const;

private:
    QPixmap clearPicture(const QRect &area) const;
    QPixmap veilPicture(const QRect &area, const Draw &draw) const;
    QRect onGrid(const QRectF &area) const;

    QRect m_screen;
    qreal m_ratio;
    int m_grid; // points
    std::optional<int> m_veilAlpha;
    QColor m_veilColour; // of all but its edges
    QRect m_veilInside;
    struct Edge {
        QRect area;
        QPixmap picture;
    };
    std::vector<Edge> m_veilEdges;
    std::optional<Look> m_look;
    QPixmap m_tool;
    QRect m_area; // of the tool's picture
    QRegion m_stale;
    QRegion m_due;
};

} // namespace vexa
