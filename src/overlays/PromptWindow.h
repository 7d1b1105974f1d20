// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/PromptCard.h"

#include <memory>

namespace Ui {
class PromptWindow;
}

/// The prompt of the main window: a card with a text, a colour swatch and a pen, or a slim strip with the
/// program's icon and a text. The owner shows it; it does not delete itself.
class PromptWindow : public vexa::PromptCard {
    Q_OBJECT

public:
    explicit PromptWindow(QWidget *parent = nullptr);
    ~PromptWindow() override;

    /// 0: the text alone. Anything else takes the text away and leaves the rest as it is.
    void setMode(int mode);
    /// The strip, for three seconds.
    void showWithTimer2();

protected:
    QLabel &textLabel() const override;
    QLabel &swatchLabel() const override;
    QString swatchStyle(int slot, const QString &colour) const override;
    void retranslate() override;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    std::unique_ptr<Ui::PromptWindow> m_form;
};
