// SPDX-License-Identifier: MIT
#include "overlays/PromptWindow.h"

#include "ui_PromptWindow.h"

#include <QMouseEvent>

namespace {

constexpr int messageDelay = 400;
constexpr int stripStep = 150;
constexpr QSize stripSize(300, 60);
constexpr QSize titleSize(300, 50);

QFont boldArial(int points) {
    return {QStringLiteral("Arial"), points, QFont::Bold};
}

} // namespace

PromptWindow::PromptWindow(QWidget *parent)
    : PromptCard(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint, messageDelay)
    , m_form(std::make_unique<Ui::PromptWindow>()) {
    m_form->setupUi(this);

    QPalette white = m_form->label->palette();
    white.setColor(QPalette::WindowText, Qt::white);
    m_form->label->setPalette(white);
    m_form->label->setFont(boldArial(30));
    m_form->label->setText(QStringLiteral("Vexa Orbilo Setting"));
    m_form->label->setGeometry((width() - titleSize.width()) / 2, (height() - titleSize.height()) / 2,
                               titleSize.width(), titleSize.height());

    m_form->label_2->setText(QString());
    m_form->label_2->setGeometry(50, 40, 100, 100);
    m_form->label_2->setStyleSheet(PromptWindow::swatchStyle(0, QStringLiteral("red")));

    QPalette pen = m_form->label_3->palette();
    pen.setBrush(QPalette::All, QPalette::Window, QBrush(QPixmap(QStringLiteral(":/icon-pen2@1080p.png"))));
    m_form->label_3->setText(QString());
    m_form->label_3->setGeometry(200, 47, 138, 86);
    m_form->label_3->setAutoFillBackground(true);
    m_form->label_3->setPalette(pen);
}

PromptWindow::~PromptWindow() = default;

void PromptWindow::setMode(int mode) {
    const bool textAlone = mode == 0;
    m_form->label->setVisible(textAlone);
    if (textAlone) {
        m_form->label_2->setVisible(false);
        m_form->label_3->setVisible(false);
    }
}

void PromptWindow::showWithTimer2() {
    setStyleSheet(QStringLiteral("background-color:#2F2F2F;border:1px solid #2F2F2F;border-radius:5px;"));
    m_form->label->setFont(boldArial(20));
    m_form->label->setGeometry(70, 10, 200, 40);
    m_form->label_3->setGeometry(10, 14, 32, 32);
    m_form->label_3->setStyleSheet(
        QStringLiteral("QLabel{border-image:url(:/appicon.png);background-color:transparent;border:0px}"));
    m_form->label_3->setVisible(true);
    showAndFade(stripSize, stripStep);
}

QLabel &PromptWindow::textLabel() const {
    return *m_form->label;
}

QLabel &PromptWindow::swatchLabel() const {
    return *m_form->label_2;
}

QString PromptWindow::swatchStyle(int /*slot*/, const QString &colour) const {
    return QStringLiteral("QLabel{border:2px solid yellow;border-radius:5px;background-color:%1;}")
        .arg(colour);
}

void PromptWindow::retranslate() {
    m_form->retranslateUi(this);
}

void PromptWindow::mousePressEvent(QMouseEvent *event) {
    event->ignore();
}

void PromptWindow::mouseReleaseEvent(QMouseEvent *event) {
    event->ignore();
}

void PromptWindow::mouseMoveEvent(QMouseEvent *event) {
    event->ignore();
}
