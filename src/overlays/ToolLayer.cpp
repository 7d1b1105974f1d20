// SPDX-License-Identifier: MIT
#include "overlays/ToolLayer.h"

#include <QPainter>

#include <cmath>
#include <utility>

namespace vexa {
namespace {

constexpr int veilEdge = 2;        // points
constexpr double tolerance = 1e-6; // pixels

/// The least number of points that is a whole number of pixels; 1 where there is none worth its size.
int gridOf(qreal ratio) {
    constexpr int coarsest = 32;
    for (int points = 1; points <= coarsest; ++points)
        if (std::abs(points * ratio - std::round(points * ratio)) < tolerance)
            return points;
    return 1;
}

} // namespace

bool ToolLayer::Look::operator==(const Look &other) const {
    return position == other.position && extent == other.extent && ink == other.ink;
}

ToolLayer::ToolLayer(const QSize &covering, qreal devicePixelRatio)
    : m_screen(QPoint(), covering), m_ratio(devicePixelRatio), m_grid(gridOf(devicePixelRatio)) {}

QRect ToolLayer::onGrid(const QRectF &area) const {
    const QRectF cells(area.topLeft() / m_grid, area.bottomRight() / m_grid);
    const QRect whole = cells.toAlignedRect();
    return QRect(whole.topLeft() * m_grid, whole.size() * m_grid) & m_screen;
}

QPixmap ToolLayer::clearPicture(const QRect &area) const {
    const auto pixels = [this](int points) { return int(std::ceil(points * m_ratio - tolerance)); };
    QPixmap picture(pixels(area.width()), pixels(area.height()));
    picture.setDevicePixelRatio(m_ratio);
    picture.fill(Qt::transparent);
    return picture;
}

void ToolLayer::setVeil(std::optional<int> alpha, const Draw &draw) {
    if (alpha == m_veilAlpha)
        return;
    m_veilAlpha = alpha;
    m_stale = m_screen;
    m_veilEdges.clear();
    m_veilInside = QRect();
    if (!alpha)
        return;
    // A picture of the whole veil would be as large as the screen, for one colour.
    const int begin = (veilEdge + m_grid - 1) / m_grid * m_grid;
    const auto end = [this](int size) { return (size - veilEdge) / m_grid * m_grid; };
    m_veilInside.setCoords(begin, begin, end(m_screen.width()) - 1, end(m_screen.height()) - 1);
    const QPoint middle = onGrid(QRectF(m_screen.center(), QSizeF(1, 1))).topLeft();
    m_veilColour = veilPicture({middle, QSize(m_grid, m_grid)}, draw).toImage().pixelColor(0, 0);
    for (const QRect &area : QRegion(m_screen) - m_veilInside)
        m_veilEdges.push_back({area, veilPicture(area, draw)});
}

QPixmap ToolLayer::veilPicture(const QRect &area, const Draw &draw) const {
    QPixmap picture = clearPicture(area);
    QPainter painter(&picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.translate(-area.topLeft());
    draw(painter);
    return picture;
}

void ToolLayer::setTool(const Look &look, const QRectF &touched, const Draw &draw) {
    m_look = look;
    m_stale += m_area;
    // One point more on each side, for the soft edge.
    m_area = onGrid(touched.adjusted(-1, -1, 1, 1) & QRectF(m_screen));
    m_stale += m_area;
    m_tool = QPixmap();
    if (m_area.isEmpty())
        return;
    m_tool = clearPicture(m_area);
    QPainter painter(&m_tool);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(-m_area.topLeft());
    draw(painter);
}

QRegion ToolLayer::takeStale() {
    m_due += m_stale;
    return std::exchange(m_stale, QRegion());
}

void ToolLayer::paint(QPainter &painter, const QRegion &region) const {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // Rectangle by rectangle: through any other clip, double-density pictures are resampled.
    for (const QRect &rect : region) {
        painter.setClipRect(rect);
        if (!m_veilInside.isEmpty())
            painter.fillRect(m_veilInside & rect, m_veilColour);
        for (const Edge &edge : m_veilEdges)
            painter.drawPixmap(edge.area.topLeft(), edge.picture);
        if (!m_tool.isNull())
            painter.drawPixmap(m_area.topLeft(), m_tool);
    }
}

} // namespace vexa
