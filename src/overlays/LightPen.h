// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/HeldTool.h"

#include <memory>

namespace Ui {
class LightPen;
}

/// The laser: a coloured dot at the pointer. Radius and colour are the settings LaserPenSize (points) and
/// LaserPenColor (slider value).
class LightPen : public vexa::HeldTool {
    Q_OBJECT

public:
    explicit LightPen(QWidget *parent = nullptr);
    ~LightPen() override;

    /// Takes the colour from the settings.
    void setColorInit();
    /// A clear window instead of a picture of the screen.
    void Setbackground_transparent();
    /// Takes the mouse and draws the dot where the pointer is.
    void SetMousePress(bool pressed);

signals:
    /// The laser closes because it was asked to; `window` is always 4.
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
    void drawNow();

    std::unique_ptr<Ui::LightPen> m_form;
    QColor m_colour;
    QRectF m_dot;
};
