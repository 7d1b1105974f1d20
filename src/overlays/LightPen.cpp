// SPDX-License-Identifier: MIT
#include "overlays/LightPen.h"

#include "overlays/ClosingReport.h"
#include "overlays/ColourBands.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_LightPen.h"

#include <QPainter>
#include <QPainterPath>

LightPen::LightPen(QWidget *parent) : HeldTool(parent), m_form(std::make_unique<Ui::LightPen>()) {
    m_form->setupUi(this);
    setColorInit();
}

LightPen::~LightPen() = default;

void LightPen::setColorInit() {
    m_colour = vexa::colourOfSlider(ZrToolXmlClass::LaserPenColor);
}

void LightPen::Setbackground_transparent() {
    QPalette clear = palette();
    clear.setBrush(QPalette::All, QPalette::Window, QBrush(Qt::transparent));
    setPalette(clear);
}

void LightPen::SetMousePress(bool /*pressed*/) {
    takeMouse();
    placeAtPointer();
    drawNow();
}

void LightPen::ExitWindow() {
    leave();
}

void LightPen::press(const QPointF &position) {
    placeAt(position);
    drawNow();
}

void LightPen::drawNow() {
    setDrawing(true);
    render();
    showChanges();
}

void LightPen::report() {
    emit singalExitWindow(int(vexa::ClosingReport::Laser));
}

int LightPen::extent() const {
    return ZrToolXmlClass::LaserPenSize;
}

QRgb LightPen::ink() const {
    return m_colour.rgba();
}

QRectF LightPen::prepare() {
    const double radius = extent();
    m_dot = QRectF(position().x() - radius, position().y() - radius, 2 * radius, 2 * radius);
    return m_dot.normalized();
}

void LightPen::draw(QPainter &painter) const {
    QPainterPath path;
    path.addEllipse(m_dot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, QBrush(m_colour, Qt::SolidPattern));
}
