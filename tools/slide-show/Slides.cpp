// SPDX-License-Identifier: MIT
#include "Slides.h"

#include <QPainter>
#include <QPainterPath>
#include <QString>

#include <array>

namespace vexa {

namespace {

const QColor ink("#22252B");
const QColor quiet("#6B7280");
const QColor accent("#E0A800");
const QColor cool("#2F6FB3");

/// The slides are laid out on a sheet of 1600 by 900 and scaled to the screen.
void onSheet(QPainter &painter, const QRectF &area) {
    painter.translate(area.topLeft());
    painter.scale(area.width() / 1600, area.height() / 900);
}

void text(QPainter &painter, const QRectF &box, int pixels, const QColor &colour, const QString &words,
          bool bold = false) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, words);
}

void heading(QPainter &painter, const QString &title, int number) {
    painter.fillRect(QRectF(0, 0, 1600, 900), QColor("#FBFAF7"));
    painter.fillRect(QRectF(110, 176, 90, 8), accent);
    text(painter, QRectF(110, 80, 1300, 90), 64, ink, title, true);
    text(painter, QRectF(1460, 830, 80, 40), 24, quiet, QString::number(number));
}

void paintYear(QPainter &painter) {
    heading(painter, QStringLiteral("Four quarters, one direction"), 1);
    constexpr std::array<double, 12> values = {31, 34, 30, 42, 47, 45, 58, 63, 61, 72, 84, 96};
    constexpr double left = 120, bottom = 780, step = 112, unit = 5.2;
    painter.setPen(QPen(QColor("#E3E0D8"), 2));
    for (int line = 0; line <= 5; ++line)
        painter.drawLine(QPointF(left, bottom - line * 104), QPointF(left + step * 12, bottom - line * 104));
    painter.setPen(Qt::NoPen);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double height = values[i] * unit;
        painter.setBrush(i + 1 == values.size() ? accent : cool);
        painter.drawRoundedRect(
            QRectF(left + 20 + step * static_cast<double>(i), bottom - height, 72, height), 6, 6);
    }
    for (int quarter = 0; quarter < 4; ++quarter)
        text(painter, QRectF(left + 20 + quarter * 3 * step, 795, 300, 40), 26, quiet,
             QStringLiteral("Quarter %1").arg(quarter + 1));
}

void paintPoints(QPainter &painter) {
    heading(painter, QStringLiteral("What we heard from forty classrooms"), 2);
    const std::array<QString, 4> points = {
        QStringLiteral("Pointing at a detail beats describing where it is."),
        QStringLiteral("Twelve-point labels are lost beyond the third row."),
        QStringLiteral("A sketch made live is remembered; a finished one is filed."),
        QStringLiteral("Whoever walks around the room keeps the room.")};
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double y = 260 + 125 * static_cast<double>(i);
        painter.setPen(Qt::NoPen);
        painter.setBrush(accent);
        painter.drawEllipse(QPointF(130, y + 40), 12, 12);
        text(painter, QRectF(180, y, 1250, 80), 40, ink, points[i]);
    }
}

void paintLandscape(QPainter &painter) {
    QLinearGradient sky(0, 0, 0, 900);
    sky.setColorAt(0, QColor("#16233D"));
    sky.setColorAt(0.62, QColor("#C8775A"));
    sky.setColorAt(1, QColor("#F2C879"));
    painter.fillRect(QRectF(0, 0, 1600, 900), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor("#FFE9B8"));
    painter.drawEllipse(QPointF(1130, 520), 74, 74);
    const std::array<QColor, 3> ranges = {QColor("#5A4A63"), QColor("#3A3550"), QColor("#1D2238")};
    for (int range = 0; range < 3; ++range) {
        const double base = 560 + range * 90;
        QPainterPath hills(QPointF(0, 900));
        hills.lineTo(0, base);
        for (int x = 0; x <= 1600; x += 160)
            hills.quadTo(x + 80, base - 150 + ((x / 160 * 7 + range * 5) % 6) * 34, x + 160,
                         base - ((x / 160 * 3 + range) % 4) * 16);
        hills.lineTo(1600, 900);
        painter.setBrush(ranges.at(static_cast<std::size_t>(range)));
        painter.drawPath(hills);
    }
    text(painter, QRectF(110, 90, 1300, 90), 64, Qt::white,
         QStringLiteral("Seven kilometres before breakfast"), true);
}

} // namespace

void paintSlide(QPainter &painter, const QRectF &area, int number) {
    constexpr std::array<void (*)(QPainter &), slideCount> slides = {paintYear, paintPoints, paintLandscape};
    painter.save();
    onSheet(painter, area);
    slides.at(static_cast<std::size_t>(number))(painter);
    painter.restore();
}

} // namespace vexa
