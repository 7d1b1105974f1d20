// SPDX-License-Identifier: MIT
#include "overlays/Spolight2.h"

#include "overlays/ClosingReport.h"
#include "overlays/LensCutter.h"
#include "overlays/Truncation.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_Spolight2.h"

#include <QPainter>

#include <algorithm>

using vexa::truncated;

Spolight2::Spolight2(QWidget *parent) : HeldTool(parent), m_form(std::make_unique<Ui::Spolight2>()) {
    m_form->setupUi(this);
}

Spolight2::~Spolight2() = default;

void Spolight2::Set_Background_OpaCity(int alpha) {
    QPalette veiled = palette();
    veiled.setBrush(QPalette::All, QPalette::Window, QBrush(QColor(0, 0, 0, alpha)));
    setAutoFillBackground(true);
    setPalette(veiled);
}

void Spolight2::SetMousePress(bool pressed) {
    setDrawing(pressed);
    placeAtPointer();
    render();
}

void Spolight2::ExitWindow() {
    leave();
}

void Spolight2::press(const QPointF &position) {
    setDrawing(true);
    placeAt(position);
    showChanges();
}

void Spolight2::report() {
    emit singalExitWindow(int(vexa::ClosingReport::Spotlight));
}

std::optional<int> Spolight2::veil() const {
    return ZrToolXmlClass::SportLightTran;
}

void Spolight2::drawVeil(QPainter &painter) const {
    // With the painter's own pen: the veil has an outline, which darkens the screen's outermost pixels.
    const QRect whole(QPoint(), screenSize());
    painter.setBrush(QColor(0, 0, 0, ZrToolXmlClass::SportLightTran));
    painter.drawRects(&whole, 1);
}

int Spolight2::extent() const {
    return ZrToolXmlClass::SportLightSize;
}

QRectF Spolight2::prepare() {
    const double scale = backgroundScale();
    const double radius = extent();
    const double left = position().x() - radius;
    const double top = position().y() - radius;
    const int side = truncated(2 * radius * scale);

    // Where the screen's edge cuts the piece, its mask moves back by as much, so that the disc stays at the
    // pointer.
    const QPoint discAt(truncated(std::min(left, 0.0) * scale), truncated(std::min(top, 0.0) * scale));
    const QRect source(truncated(left * scale), truncated(top * scale), side, side);
    m_disc = vexa::LensCutter::of<Spolight2>().cut(background(), source,
                                                   {QRect(discAt, QSize(side, side)), radius * scale});
    if (m_disc.isNull())
        return {};
    m_discAt = QPointF(std::clamp(left, 0.0, double(screenSize().width())),
                       std::clamp(top, 0.0, double(screenSize().height())));
    return {m_discAt, QSizeF(m_disc.size()) / m_disc.devicePixelRatio()};
}

void Spolight2::draw(QPainter &painter) const {
    // As the window paints its background: within the disc every pixel of the screen is as it was.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    painter.drawPixmap(m_discAt, m_disc);
}
