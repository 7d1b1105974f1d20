// SPDX-License-Identifier: MIT
#include "annotation/PizhuForm.h"

#include "overlays/ClosingReport.h"
#include "ui_PizhuForm.h"

PizhuForm::PizhuForm(QWidget *parent) : DrawingForm(parent), m_form(std::make_unique<Ui::PizhuForm>()) {
    m_form->setupUi(this);
    connect(m_form->pushButton, &QPushButton::clicked, this, &PizhuForm::on_pushButton_clicked);
    connect(m_form->pushButton_eraser, &QPushButton::clicked, this, &PizhuForm::on_pushButton_eraser_clicked);
    connect(m_form->pushButton_pen, &QPushButton::clicked, this, &PizhuForm::on_pushButton_pen_clicked);
    setUpControls(tr("批注模式"));
}

PizhuForm::~PizhuForm() = default;

vexa::DrawingForm::Controls PizhuForm::controls() const {
    return {m_form->pushButton, m_form->pushButton_eraser, m_form->pushButton_pen, m_form->label};
}

void PizhuForm::on_pushButton_clicked() {
    close();
}

void PizhuForm::on_pushButton_eraser_clicked() {
    takeEraser();
}

void PizhuForm::on_pushButton_pen_clicked() {
    takePen();
}

void PizhuForm::reportExit() {
    emit signalPizhukWindow(int(vexa::ClosingReport::Annotation));
}
