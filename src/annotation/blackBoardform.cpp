// SPDX-License-Identifier: MIT
#include "annotation/blackBoardform.h"

#include "overlays/ClosingReport.h"
#include "ui_blackBoardform.h"

namespace {
constexpr QRgb boardColour = qRgb(24, 24, 39);
} // namespace

blackBoardform::blackBoardform(QWidget *parent)
    : DrawingForm(parent), m_form(std::make_unique<Ui::blackBoardform>()) {
    m_form->setupUi(this);
    connect(m_form->pushButton, &QPushButton::clicked, this, &blackBoardform::on_pushButton_clicked);
    connect(m_form->pushButton_eraser, &QPushButton::clicked, this,
            &blackBoardform::on_pushButton_eraser_clicked);
    connect(m_form->pushButton_pen, &QPushButton::clicked, this, &blackBoardform::on_pushButton_pen_clicked);
    setUpControls(tr("黑板"));
}

blackBoardform::~blackBoardform() = default;

vexa::DrawingForm::Controls blackBoardform::controls() const {
    return {m_form->pushButton, m_form->pushButton_eraser, m_form->pushButton_pen, m_form->label};
}

void blackBoardform::Setbackground2() {
    setBackgroundBrush(QColor(boardColour));
}

void blackBoardform::on_pushButton_clicked() {
    close();
}

void blackBoardform::on_pushButton_eraser_clicked() {
    takeEraser();
}

void blackBoardform::on_pushButton_pen_clicked() {
    takePen();
}

void blackBoardform::reportExit() {
    emit signalPizhukWindow(int(vexa::ClosingReport::Blackboard));
}
