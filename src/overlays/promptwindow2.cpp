// SPDX-License-Identifier: MIT
#include "overlays/promptwindow2.h"

#include "overlays/PenPalette.h"
#include "ui_promptwindow2.h"

namespace {

constexpr int colourDelay = 500;
constexpr int textHeight = 95;

// The third pen in this colour has a square swatch: it always had one, and people know it by that.
constexpr int squareSlot = 2;
constexpr int squareIndex = 3;

} // namespace

promptwindow2::promptwindow2(QWidget *parent)
    : PromptCard(parent,
                 Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                     Qt::MaximizeUsingFullscreenGeometryHint,
                 colourDelay)
    , m_form(std::make_unique<Ui::promptwindow2>()) {
    m_form->setupUi(this);

    QPalette white = m_form->label->palette();
    white.setColor(QPalette::WindowText, Qt::white);
    m_form->label->setPalette(white);
    m_form->label->setFont(QFont(QStringLiteral("Arial"), 24, QFont::Bold));
    m_form->label->setText(tr("颜色"));
    m_form->label->setGeometry(20, (height() - textHeight) / 2, 140, textHeight);

    m_form->label_2->setText(QString());
    m_form->label_2->setGeometry(220, 40, 100, 100);
    m_form->label_2->setStyleSheet(promptwindow2::swatchStyle(0, QStringLiteral("red")));
}

promptwindow2::~promptwindow2() = default;

QLabel &promptwindow2::textLabel() const {
    return *m_form->label;
}

QLabel &promptwindow2::swatchLabel() const {
    return *m_form->label_2;
}

QString promptwindow2::swatchStyle(int slot, const QString &colour) const {
    const bool square = slot == squareSlot && colour == vexa::penColourName(squareIndex);
    return QStringLiteral("QLabel{border:3px solid #FFFFCC0D;border-radius:%1px;background-color:%2;}")
        .arg(square ? 5 : 50)
        .arg(colour);
}

void promptwindow2::retranslate() {
    m_form->retranslateUi(this);
}
