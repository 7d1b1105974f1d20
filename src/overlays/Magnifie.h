// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/HeldTool.h"

#include <QPainterPath>

#include <array>
#include <memory>

namespace Ui {
class Magnifie;
}

/// The magnifier: a round lens at the pointer that shows the screen a quarter larger, in a coloured ring.
/// Radius and ring are the settings MagnifierSize (points) and MagnifierColor (slider value).
class Magnifie : public vexa::HeldTool {
    Q_OBJECT

public:
    explicit Magnifie(QWidget *parent = nullptr);
    ~Magnifie() override;

    /// Takes the ring's colour from the settings.
    void setColorInit();
    /// Does nothing: the picture comes from the caller.
    void grabScreen();
    /// Takes the mouse and draws the lens where the pointer is.
    void SetMousePress(bool pressed);

signals:
    /// The magnifier closes because it was asked to; `window` is always 3.
    void singalExitWindow(int window);

public slots:
    void ExitWindow();

protected:
    void press(const QPointF &position) override;
    void report() override;
    int extent() const override;
    QRgb ink() const override;
    QRectF prepare() override;
    void draw(QPainter &painter) const override;

private:
    /// Enlarges the piece of the screen that the lens shows.
    void prepareLens();

    std::unique_ptr<Ui::Magnifie> m_form;
    QColor m_ringColour;
    QPixmap m_magnified;
    QPointF m_lensAt;
    std::array<QPainterPath, 3> m_rings;
};
