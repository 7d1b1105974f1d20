// SPDX-License-Identifier: MIT
#include "overlays/HeldTool.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QScreen>
#include <QTimerEvent>
#include <QWindow>

namespace vexa {
namespace {

constexpr int frameInterval = 33;
constexpr int guardInterval = 150;
constexpr int leastLife = 900;
constexpr int noTimer = -1;

} // namespace

bool HeldTool::Look::operator==(const Look &other) const {
    return position == other.position && extent == other.extent && ink == other.ink;
}

HeldTool::HeldTool(QWidget *parent)
    : QWidget(parent), m_screen(QPoint(), QGuiApplication::primaryScreen()->size()) {
    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_MouseTracking);
    setCursor(Qt::BlankCursor);

    m_guardTimer = startTimer(guardInterval);
    m_frameTimer = startTimer(frameInterval);
}

void HeldTool::Setbackground(QPixmap *picture) {
    m_background = picture ? *picture : QPixmap();
    // Without the ratio the window would show only the first quarter of a double-density picture.
    if (backgroundScale() > 1 && m_background.devicePixelRatio() == 1.0)
        m_background.setDevicePixelRatio(backgroundScale());
    m_look.reset();

    QPalette dressed = palette();
    dressed.setBrush(QPalette::All, QPalette::Window, QBrush(m_background));
    setPalette(dressed);
}

void HeldTool::SetMouseMove(int x, int y) {
    m_position = QPoint(x, y);
}

void HeldTool::leave() {
    if (m_closed)
        return;
    // The last picture stays on the screen until the window closes, so it has to be there whole.
    if (!m_due.isEmpty())
        repaint(m_due);
    m_drawing = false;
    m_exitRequested = true;
    stopTimer(m_frameTimer);
    if (m_elapsed >= leastLife)
        finish();
}

void HeldTool::guardTick() {
    m_elapsed += guardInterval;
    if (m_elapsed < leastLife)
        return;
    stopTimer(m_guardTimer);
    if (m_exitRequested)
        finish();
}

void HeldTool::finish() {
    m_closed = true;
    giveMouseBack();
    const QPointer<HeldTool> alive(this);
    report();
    if (alive)
        close();
}

void HeldTool::closeEvent(QCloseEvent *event) {
    // The object lives on until the event loop deletes it; nobody shall hear of it again.
    m_closed = true;
    stopTimer(m_guardTimer);
    stopTimer(m_frameTimer);
    giveMouseBack();
    QWidget::closeEvent(event);
}

void HeldTool::stopTimer(int &timer) {
    if (timer != noTimer)
        killTimer(timer);
    timer = noTimer;
}

void HeldTool::timerEvent(QTimerEvent *event) {
    if (event->timerId() == m_guardTimer) {
        guardTick();
        return;
    }
    render();
    showChanges();
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
    m_changed = m_screen;
}

void HeldTool::takeMouse() {
    m_mouseTaken = true;
    grabMouse();
}

void HeldTool::giveMouseBack() {
    if (!m_mouseTaken)
        return;
    m_mouseTaken = false;
    releaseMouse();
}

void HeldTool::showEvent(QShowEvent *event) {
    // A window that appears is painted whole.
    m_changed = QRegion();
    windowHandle()->installEventFilter(this);
    QWidget::showEvent(event);
}

bool HeldTool::eventFilter(QObject *watched, QEvent *event) {
    // A grab before the window can be seen is refused without a word.
    if (event->type() == QEvent::Expose && watched == windowHandle() && windowHandle()->isExposed()) {
        watched->removeEventFilter(this);
        if (m_mouseTaken)
            grabMouse();
    }
    return QWidget::eventFilter(watched, event);
}

int HeldTool::backgroundScale() const {
    return m_background.width() / screenSize().width();
}

void HeldTool::drawVeil(QPainter & /*painter*/) const {}

QPixmap HeldTool::clearPicture(const QRect &area) const {
    const qreal ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    QPixmap picture((QSizeF(area.size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

void HeldTool::renderVeil() {
    m_veilAlpha = veil();
    m_veil = clearPicture(m_screen);
    QPainter painter(&m_veil);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    drawVeil(painter);
    m_changed = m_screen;
}

void HeldTool::render() {
    if (veil() != m_veilAlpha)
        renderVeil();

    const Look look{m_position, extent(), ink()};
    if (m_look == look)
        return;
    m_look = look;
    m_changed += m_area;
    // One point more on each side, for the soft edge.
    m_area = (prepare().adjusted(-1, -1, 1, 1) & QRectF(m_screen)).toAlignedRect();
    m_changed += m_area;
    if (m_area.isEmpty())
        return;

    m_picture = clearPicture(m_area);
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(-m_area.topLeft());
    draw(painter);
}

void HeldTool::showChanges() {
    if (m_changed.isEmpty())
        return;
    m_due += m_changed;
    update(m_changed);
    m_changed = QRegion();
}

void HeldTool::paintEvent(QPaintEvent *event) {
    m_due -= event->region();
    if (!m_drawing)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    // Rectangle by rectangle: through any other clip, double-density pictures are resampled.
    for (const QRect &rect : event->region()) {
        painter.setClipRect(rect);
        if (!m_veil.isNull())
            painter.drawPixmap(0, 0, m_veil);
        if (!m_area.isEmpty())
            painter.drawPixmap(m_area.topLeft(), m_picture);
    }
}

} // namespace vexa
