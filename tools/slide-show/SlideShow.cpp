// SPDX-License-Identifier: MIT
#include "SlideShow.h"

#include "Slides.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cstdio>

namespace vexa {

SlideShow::SlideShow() {
    setWindowTitle(QStringLiteral("Slide show"));
    setCursor(Qt::ArrowCursor);
    showSlide(0);
}

void SlideShow::showSlide(int number) {
    m_slide = std::clamp(number, 0, slideCount);
    std::printf("slide %d\n", m_slide + 1);
    std::fflush(stdout);
    update();
}

bool SlideShow::comesWithAButton(const QKeyEvent *event) const {
    constexpr ulong tooSoon = 20; // milliseconds
    return QGuiApplication::mouseButtons() != Qt::NoButton ||
           event->timestamp() - m_buttonChanged < tooSoon ||
           (m_sinceButton.isValid() && !m_sinceButton.hasExpired(tooSoon));
}

void SlideShow::mousePressEvent(QMouseEvent *event) {
    m_buttonChanged = event->timestamp();
}

void SlideShow::mouseReleaseEvent(QMouseEvent *event) {
    m_buttonChanged = event->timestamp();
    m_sinceButton.start();
    if (m_running && event->button() == Qt::LeftButton)
        showSlide(m_slide + 1);
}

void SlideShow::keyPressEvent(QKeyEvent *event) {
    if (comesWithAButton(event))
        return;
    switch (event->key()) {
    case Qt::Key_F5:
        m_running = true;
        showSlide(0);
        break;
    case Qt::Key_Escape:
        m_running = false;
        update();
        break;
    case Qt::Key_Space:
    case Qt::Key_PageDown:
        showSlide(m_slide + 1);
        break;
    case Qt::Key_PageUp:
        showSlide(m_slide - 1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SlideShow::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (!m_running || m_slide == slideCount)
        return;
    QSizeF size(16, 9);
    size.scale(this->size(), Qt::KeepAspectRatio);
    QRectF area(QPointF(), size);
    area.moveCenter(QRectF(rect()).center());
    painter.setRenderHint(QPainter::Antialiasing);
    paintSlide(painter, area, m_slide);
}

} // namespace vexa
