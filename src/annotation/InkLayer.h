// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/DamageTiles.h"
#include "annotation/StrokeCoverage.h"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QRegion>

#include <vector>

namespace vexa {

/// A transparent picture with all the ink of a drawing, one pen and one eraser.
///
/// The picture is that of an antialiased pen which draws the whole stroke again at every sample: the edges of
/// a stroke grow heavier while it is drawn, until blending once more no longer changes a pixel. A pixel's
/// next value depends on its value and its coverage alone, so one that a sample leaves as it is stays so
/// until its coverage changes. Only the pixels that still move are kept in a list and blended again. An
/// opaque colour moves each channel by at least one at every step, so none stays in the list for more than
/// 255 samples, and a sample costs the same however long the stroke is.
///
/// Points in, areas of points that changed out. Any thread, no widget.
class InkLayer {
public:
    /// A transparent layer of so many points, with devicePixelRatio pixels to a point.
    InkLayer(const QSize &points, qreal devicePixelRatio);

    /// The same ink on a layer of another size, stretched to fill it, with the pen lifted.
    InkLayer stretchedTo(const QSize &points, qreal devicePixelRatio) const;

    const QImage &image() const { return m_image; }
    /// Whether the pen has not drawn yet: the image is transparent.
    bool isBlank() const { return m_blank; }

    /// The pen from now on; a stroke that is being drawn takes it over with its next sample. An invalid
    /// colour draws black.
    void setPen(const QPen &pen);

    /// Sets the pen down: a dot, the beginning of a stroke, or one more line of a stroke that has not ended.
    QRect begin(const QPoint &point);
    /// A sample of the stroke: a curve around the previous sample towards this one. Behind it the stroke
    /// grows heavier too; takeSettling() tells where.
    QRect extend(const QPoint &point);
    /// Lifts the pen.
    void end();

    /// Rubs out a disc.
    QRect erase(const QPoint &centre, int diameter, bool smoothEdge);

    /// Where the edges of the stroke have grown heavier since the last call. One step there is too small to
    /// be seen, so repainting these areas may wait.
    QRegion takeSettling() { return m_damage.take(m_image.devicePixelRatio()); }

private:
    struct Pixel {
        quint16 x, y;
    };

    void watch(int x, int y);
    void watchCovered(const QRect &pixels);
    void settle();
    QRect toPoints(const QRect &pixels) const;
    QRect toPixels(const QRect &points) const;
    QRect fillDisc(const QPoint &centre, int diameter, bool smoothEdge, QPainter::CompositionMode mode);

    QImage m_image;
    QPen m_pen;
    QRgb m_colour = 0;
    StrokeCoverage m_coverage;
    bool m_blank = true;
    bool m_drawing = false;
    QPoint m_last;
    std::vector<Pixel> m_moving; ///< the pixels that another blend may change
    std::vector<bool> m_watched; ///< whether a pixel is in that list
    DamageTiles m_damage;
};

} // namespace vexa
