// SPDX-License-Identifier: MIT
#include "overlays/HeldTool.h"

#include "platform/OverlayWindow.h"
#include "platform/Screens.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QScreen>
#include <QTimerEvent>

#include <algorithm>
#include <cmath>

namespace vexa {
namespace {

constexpr int frameInterval = 33;
constexpr int guardInterval = 150;
constexpr int leastLife = 900;
constexpr int restAfter = 2000;

} // namespace

HeldTool::HeldTool(QWidget *parent)
    : QWidget(parent)
    , m_screen(QGuiApplication::primaryScreen()->size())
    , m_layer(platform::coveringPoints(*QGuiApplication::primaryScreen()),
              QGuiApplication::primaryScreen()->devicePixelRatio())
    , m_mouse(*this)
    , m_follower([this] { followScreen(); }) {
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_MouseTracking);
    setCursor(Qt::BlankCursor);

    m_guard.start(guardInterval, this);
    m_frames.start(frameInterval, this);
}

void HeldTool::Setbackground(QPixmap *picture) {
    m_background = picture ? *picture : QPixmap();
    // Without the ratio the window would show only the first quarter of a double-density picture.
    if (backgroundScale() > 1 && m_background.devicePixelRatio() == 1.0)
        m_background.setDevicePixelRatio(backgroundScale());
    m_layer.forgetLook();

    QPalette pictured = palette();
    pictured.setBrush(QPalette::All, QPalette::Window, QBrush(m_background));
    setPalette(pictured);
}

void HeldTool::followScreen() {
    const QScreen &screen = *QGuiApplication::primaryScreen();
    m_screen = screen.size();
    const QSize covering = platform::coveringPoints(screen);
    m_layer = ToolLayer(covering, screen.devicePixelRatio());
    if (!m_background.isNull()) {
        const int scale = int(std::ceil(screen.devicePixelRatio()));
        QPixmap stretched =
            m_background.scaled(covering * scale, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        stretched.setDevicePixelRatio(scale);
        Setbackground(&stretched);
    }
    if (isVisible())
        platform::fitToPrimaryScreen(*this);
}

void HeldTool::SetMouseMove(int x, int y) {
    m_position = QPoint(x, y);
    m_rested = 0;
}

void HeldTool::leave() {
    if (m_life == Life::Leaving || m_life == Life::Over)
        return;
    // This frame stays on the screen until the window closes, so it has to be complete.
    if (!m_layer.due().isEmpty())
        repaint(m_layer.due());
    m_drawing = false;
    m_frames.stop();
    if (m_life == Life::Grown)
        finish();
    else
        m_life = Life::Leaving;
}

void HeldTool::guardTick() {
    m_age += guardInterval;
    if (m_age < leastLife)
        return;
    m_guard.stop();
    if (m_life == Life::Leaving)
        finish();
    else
        m_life = Life::Grown;
}

void HeldTool::finish() {
    m_life = Life::Over;
    m_mouse.give();
    const QPointer<HeldTool> alive(this);
    report();
    if (alive)
        close();
}

void HeldTool::closeEvent(QCloseEvent *event) {
    // The object lives until the event loop deletes it; it must not report a second time.
    m_life = Life::Over;
    m_guard.stop();
    m_frames.stop();
    m_mouse.give();
    QWidget::closeEvent(event);
}

void HeldTool::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_guard.timerId()) {
        guardTick();
        return;
    }
    holdMouse();
    render();
    showChanges();
}

/// A program that locks the screen needs the mouse, and fails where it cannot have it. A tool that was left
/// open must not keep the screen from being locked. Where it covers the pointer, clicks reach it without a
/// grab too.
void HeldTool::holdMouse() {
    m_rested = std::min(m_rested + frameInterval, restAfter);
    if (m_rested < restAfter)
        m_mouse.renew();
    else
        m_mouse.rest();
}

void HeldTool::mousePressEvent(QMouseEvent *event) {
    press(event->localPos());
}

void HeldTool::mouseReleaseEvent(QMouseEvent * /*event*/) {
    m_mouse.give();
    setDrawing(false);
    close();
}

void HeldTool::placeAtPointer() {
    m_position = QCursor::pos() - QGuiApplication::primaryScreen()->geometry().topLeft();
}

void HeldTool::placeAt(const QPointF &position) {
    m_position = position.toPoint();
}

void HeldTool::setDrawing(bool drawing) {
    if (drawing == m_drawing)
        return;
    m_drawing = drawing;
    m_layer.setStale();
}

void HeldTool::showEvent(QShowEvent *event) {
    m_layer.windowAppears();
    QWidget::showEvent(event);
}

int HeldTool::backgroundScale() const {
    return m_background.width() / m_screen.width();
}

void HeldTool::render() {
    m_layer.setVeil(veil(), [this](QPainter &painter) { drawVeil(painter); });
    const ToolLayer::Look look{m_position, extent(), ink()};
    if (!m_layer.shows(look))
        m_layer.setTool(look, prepare(), [this](QPainter &painter) { draw(painter); });
}

void HeldTool::showChanges() {
    update(m_layer.takeStale());
}

void HeldTool::paintEvent(QPaintEvent *event) {
    m_layer.setPainted(event->region());
    if (!m_drawing)
        return;
    QPainter painter(this);
    m_layer.paint(painter, event->region());
}

} // namespace vexa
