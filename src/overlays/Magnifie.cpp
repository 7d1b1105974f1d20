// SPDX-License-Identifier: MIT
#include "overlays/Magnifie.h"

#include "overlays/ClosingReport.h"
#include "overlays/ColourBands.h"
#include "overlays/LensCutter.h"
#include "overlays/Truncation.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_Magnifie.h"

#include <QPainter>

using vexa::truncated;

namespace {

constexpr float zoom = 1.25F;

/// Along one axis: where the lens is drawn, and how far the disc in the piece begins before the piece does.
struct Placing {
    double at;
    int discAt;
};

Placing placeLens(double begin, bool atEdge) {
    if (atEdge)
        return {0, truncated(float(begin) / zoom)};
    return {begin, 0};
}

} // namespace

Magnifie::Magnifie(QWidget *parent) : HeldTool(parent), m_form(std::make_unique<Ui::Magnifie>()) {
    m_form->setupUi(this);
    setColorInit();
}

Magnifie::~Magnifie() = default;

void Magnifie::setColorInit() {
    m_ringColour = vexa::colourOfSlider(ZrToolXmlClass::MagnifierColor);
}

void Magnifie::grabScreen() {}

void Magnifie::SetMousePress(bool /*pressed*/) {
    takeMouse();
    setDrawing(true);
    placeAtPointer();
    render();
}

void Magnifie::ExitWindow() {
    leave();
}

void Magnifie::press(const QPointF &position) {
    takeMouseByPress();
    setDrawing(true);
    placeAt(position);
}

void Magnifie::report() {
    emit singalExitWindow(int(vexa::ClosingReport::Magnifier));
}

int Magnifie::extent() const {
    return ZrToolXmlClass::MagnifierSize;
}

QRgb Magnifie::ink() const {
    return m_ringColour.rgba();
}

QRectF Magnifie::prepare() {
    prepareLens();
    QRectF touched(m_lensAt, QSizeF(m_magnified.size()) / m_magnified.devicePixelRatio());
    double radius = extent();
    for (QPainterPath &ring : m_rings) {
        ring = QPainterPath();
        ring.addEllipse(position().x() - radius, position().y() - radius, 2 * radius, 2 * radius);
        touched |= ring.boundingRect();
        radius += 1;
    }
    return touched;
}

void Magnifie::prepareLens() {
    const double scale = backgroundScale();
    const float diameter = 2 * float(extent());
    const int sourceRadius = truncated(diameter / (2 * zoom));
    const int sourceDiameter = truncated(diameter / zoom);
    const int side = truncated(sourceDiameter * scale);
    const QRect source(truncated((position().x() - sourceRadius) * scale),
                       truncated((position().y() - sourceRadius) * scale), side, side);

    // Near the left and the top edge the lens stands at the edge and the disc in it moves instead.
    const double left = double(position().x()) - extent();
    const double top = double(position().y()) - extent();
    const Placing x = placeLens(left, left < 1);
    const Placing y = placeLens(top, top <= 0);
    const QPoint discAt(truncated(x.discAt * scale), truncated(y.discAt * scale));

    const QPixmap piece = vexa::LensCutter::of<Magnifie>().cut(
        background(), source, {QRect(discAt, QSize(side, side)), sourceRadius * scale});
    if (piece.isNull()) {
        m_magnified = QPixmap();
        return;
    }
    m_magnified =
        piece.scaled(truncated(zoom * float(piece.width())), truncated(float(piece.height()) * zoom),
                     Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    m_lensAt = QPointF(x.at, y.at);
}

void Magnifie::draw(QPainter &painter) const {
    painter.drawPixmap(m_lensAt, m_magnified);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_ringColour);
    for (const QPainterPath &ring : m_rings)
        painter.drawPath(ring);
}
