// SPDX-License-Identifier: MIT
#include "app/PrivacyprivilegesWindow.h"

#include "app/QuickViews.h"
#include "platform/ProgramIcon.h"
#include "settings/ZrToolXmlClass.h"
#include "ui_PrivacyprivilegesWindow.h"

#include <QQuickItem>

PrivacyprivilegesWindow::PrivacyprivilegesWindow(QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::PrivacyprivilegesWindow>()) {
    m_ui->setupUi(this);
    ZrToolXmlClass::ZrXmlRead();
    changeLanguage(ZrToolXmlClass::Language);
    connect(m_ui->pushButton, &QPushButton::clicked, this, &PrivacyprivilegesWindow::ClickButton);
    connect(m_ui->pushButton_2, &QPushButton::clicked, this, &PrivacyprivilegesWindow::ClickButton2);

    setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setWindowIcon(vexa::platform::programIcon());
    QPalette transparent = palette();
    transparent.setBrush(QPalette::Window, Qt::transparent);
    setPalette(transparent);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_TranslucentBackground);
    loadView();
}

PrivacyprivilegesWindow::~PrivacyprivilegesWindow() = default;

void PrivacyprivilegesWindow::changeLanguage(int language) {
    m_language.change(language);
    m_ui->retranslateUi(this);
}

void PrivacyprivilegesWindow::ClickButton() {
    done(1);
}

void PrivacyprivilegesWindow::ClickButton2() {
    done(0);
}

void PrivacyprivilegesWindow::recvQmlMessage(int id, int /*var1*/) {
    if (id == 0 || id == 1)
        done(id);
}

void PrivacyprivilegesWindow::loadView() {
    m_ui->quickWidget->setClearColor(Qt::transparent);
    vexa::loadView(*m_ui->quickWidget, QStringLiteral("qrc:/PrivacyWindow.qml"));
    m_ui->quickWidget->setFocus();
    if (const QObject *root = m_ui->quickWidget->rootObject())
        connect(root, SIGNAL(qmlSignal(int, int)), this, SLOT(recvQmlMessage(int, int)));
}
