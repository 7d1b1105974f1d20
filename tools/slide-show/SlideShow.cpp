// SPDX-License-Identifier: MIT
#include "SlideShow.h"

#include "Slides.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

namespace vexa {

SlideShow::SlideShow() {
    setWindowTitle(QStringLiteral("Slide show"));
    setCursor(Qt::ArrowCursor);
}

void SlideShow::showSlide(int number) {
    m_slide = std::clamp(number, 0, slideCount - 1);
    update();
}

void SlideShow::keyPressEvent(QKeyEvent *event) {
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
    if (!m_running)
        return;
    QSizeF size(16, 9);
    size.scale(this->size(), Qt::KeepAspectRatio);
    QRectF area(QPointF(), size);
    area.moveCenter(QRectF(rect()).center());
    painter.setRenderHint(QPainter::Antialiasing);
    paintSlide(painter, area, m_slide);
}

} // namespace vexa
