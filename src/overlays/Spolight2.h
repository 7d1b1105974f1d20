// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/HeldTool.h"

#include <memory>

namespace Ui {
class Spolight2;
}

/// The spotlight: the screen under a black veil, but for a disc at the pointer. The disc's radius and the
/// veil's alpha are the settings SportLightSize (points) and SportLightTran; an alpha above 255 is no veil.
class Spolight2 : public vexa::HeldTool {
    Q_OBJECT

public:
    explicit Spolight2(QWidget *parent = nullptr);
    ~Spolight2() override;

    /// A black window of that alpha instead of a picture of the screen.
    void Set_Background_OpaCity(int alpha);
    /// Draws the veil and the disc where the pointer is, or nothing at all.
    void SetMousePress(bool pressed);

signals:
    /// The spotlight closes because it was asked to; `window` is always 2.
    void singalExitWindow(int window);

public slots:
    void ExitWindow();

protected:
    void press(const QPointF &position) override;
    void report() override;
    std::optional<int> veil() const override;
    void drawVeil(QPainter &painter) const override;
    int extent() const override;
    QRectF prepare() override;
    void draw(QPainter &painter) const override;

private:
    std::unique_ptr<Ui::Spolight2> m_form;
    QPixmap m_disc;
    QPointF m_discAt;
};
