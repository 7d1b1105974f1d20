// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/DrawingForm.h"

#include <memory>

namespace Ui {
class PizhuForm;
}

/// Annotation: drawing over a frozen picture of the screen, which Setbackground() hands over.
class PizhuForm : public vexa::DrawingForm {
    Q_OBJECT

public:
    explicit PizhuForm(QWidget *parent = nullptr);
    ~PizhuForm() override;

signals:
    /// The user leaves by the exit button; `window` is always 1.
    void signalPizhukWindow(int window);

private slots:
    // The form connects these by their names and the constructor once more: a click runs its slot twice.
    void on_pushButton_clicked();
    void on_pushButton_eraser_clicked();
    void on_pushButton_pen_clicked();

private:
    Controls controls() const override;
    void reportExit() override;

    std::unique_ptr<Ui::PizhuForm> m_form;
};
