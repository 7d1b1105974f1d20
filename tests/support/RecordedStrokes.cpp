// SPDX-License-Identifier: MIT
#include "support/RecordedStrokes.h"

#include <QHash>
#include <QPointF>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace vexa::test {
namespace {

/// The sample at each time, seen from the middle of a layer whose half width and half height are given.
using Movement = std::function<QPointF(double time, double width, double height)>;

class ShakyHand {
public:
    double tremble(double amplitude) {
        return (static_cast<double>(m_random()) / 4294967295.0 * 2 - 1) * amplitude;
    }

private:
    std::mt19937 m_random{7};
};

Movement wanderingWithin(double reach, double step, double turn, double shake) {
    return [=, hand = ShakyHand(), heading = 0.0, at = QPointF()](double, double w, double h) mutable {
        heading += hand.tremble(turn);
        at += QPointF(step * std::cos(heading) + hand.tremble(shake),
                      step * std::sin(heading) + hand.tremble(shake));
        const QPointF limit(w * reach, h * reach);
        at = {std::clamp(at.x(), -limit.x(), limit.x()), std::clamp(at.y(), -limit.y(), limit.y())};
        return at;
    };
}

Movement movement(const QString &kind) {
    static const QHash<QString, Movement> movements{
        {"straight",
         [](double t, double w, double h) { return QPointF(0.7 * t - 0.9 * w, 0.2 * t - 0.7 * h); }},
        {"slow",
         [](double t, double w, double) { return QPointF(0.4 * t - 0.8 * w, 20 * std::sin(t * 0.02)); }},
        {"curved",
         [](double t, double w, double h) {
             return QPointF(0.85 * w * std::sin(t * 0.004 - 1.4), 0.8 * h * std::cos(t * 0.0025));
         }},
        {"fast",
         [](double t, double w, double h) {
             // Rows like those of a hand that fills a page, some thirty pixels a sample.
             const double row = std::floor(t / 20);
             const double along = t - 20 * row;
             return QPointF((std::fmod(row, 2) < 1 ? along : 20 - along) * w * 0.09 - 0.9 * w,
                            row * 25 - 0.9 * h);
         }},
        {"spiral", [](double t, double,
                      double) { return QPointF(std::cos(t * 0.06), std::sin(t * 0.06)) * (4 + 0.12 * t); }},
        {"wave",
         [](double t, double w, double h) {
             return QPointF(0.9 * w * std::sin(t * 0.0231), 0.9 * h * std::sin(t * 0.0373));
         }},
        {"leaving",
         [](double t, double w, double h) {
             return QPointF(1.2 * w * std::sin(t * 0.0231), 1.3 * h * std::sin(t * 0.0373));
         }},
        {"zigzag", [](double t, double w,
                      double) { return QPointF(0.3 * t - 0.6 * w, std::fmod(t, 2) < 1 ? -20 : 20); }},
    };
    if (kind == "shaky")
        return wanderingWithin(0.9, 2, 0.3, 3);
    if (kind == "scribble")
        return wanderingWithin(0.4, 0, 0, 14);
    if (kind == "tremor")
        return [hand = ShakyHand()](double t, double w, double) mutable {
            const double x = 0.35 * t - 0.8 * w + hand.tremble(1.6);
            return QPointF(x, hand.tremble(1.6));
        };
    return movements.value(kind);
}

} // namespace

std::vector<QPoint> recordedStroke(const QString &kind, std::size_t samples, const QSize &layer) {
    const double halfWidth = layer.width() / 2.0;
    const double halfHeight = layer.height() / 2.0;
    const Movement at = movement(kind);
    std::vector<QPoint> stroke;
    for (std::size_t i = 0; i < samples; ++i)
        stroke.push_back(
            (QPointF(halfWidth, halfHeight) + at(static_cast<double>(i), halfWidth, halfHeight)).toPoint());
    return stroke;
}

} // namespace vexa::test
