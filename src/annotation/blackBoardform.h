// SPDX-License-Identifier: MIT
#pragma once

#include "annotation/DrawingForm.h"

#include <memory>

namespace Ui {
class blackBoardform;
}

/// The blackboard: drawing on a plain dark board.
class blackBoardform : public vexa::DrawingForm {
    Q_OBJECT

public:
    explicit blackBoardform(QWidget *parent = nullptr);
    ~blackBoardform() override;

    /// Makes the background the board. Setbackground() makes it a picture instead.
    void Setbackground2();

signals:
    /// The user leaves by the exit button; `window` is always 0.
    void signalPizhukWindow(int window);

private slots:
    // The form connects these by their names and the constructor once more: a click runs its slot twice.
    void on_pushButton_clicked();
    void on_pushButton_eraser_clicked();
    void on_pushButton_pen_clicked();

private:
    Controls controls() const override;
    void reportExit() override;

    std::unique_ptr<Ui::blackBoardform> m_form;
};
