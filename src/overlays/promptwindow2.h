// SPDX-License-Identifier: MIT
#pragma once

#include "overlays/PromptCard.h"

#include <memory>

namespace Ui {
class promptwindow2;
}

/// The prompt of annotation and blackboard: the word for colour and a round swatch of the pen's. The owner
/// shows it; it does not delete itself.
class promptwindow2 : public vexa::PromptCard {
    Q_OBJECT

public:
    explicit promptwindow2(QWidget *parent = nullptr);
    ~promptwindow2() override;

protected:
    QLabel &textLabel() const override;
    QLabel &swatchLabel() const override;
    QString swatchStyle(int slot, const QString &colour) const override;
    void retranslate() override;

private:
    std::unique_ptr<Ui::promptwindow2> m_form;
};
