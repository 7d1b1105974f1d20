// SPDX-License-Identifier: MIT
#pragma once

#include "app/Language.h"

#include <QDialog>

#include <memory>

namespace Ui {
class PrivacyprivilegesWindow;
}

/// Tells which privacy permissions of the system the program needs. Run with exec(): the result is 1 when the
/// user confirmed and does not want to be told again, else 0. It opens nothing and stores nothing itself.
/// GUI thread only.
class PrivacyprivilegesWindow : public QDialog {
    Q_OBJECT

public:
    /// Reads the settings again, to show itself in their language.
    explicit PrivacyprivilegesWindow(QWidget *parent = nullptr);
    ~PrivacyprivilegesWindow() override;

    /// Switches the catalogue: 0 Simplified Chinese, 1 Traditional Chinese, 2 English. Any other index, or a
    /// catalogue that cannot be loaded, leaves the source texts (Simplified Chinese).
    void changeLanguage(int language);

    Q_SLOT void ClickButton();
    Q_SLOT void ClickButton2();
    /// The view's button: id 1 confirms and hides the guide for good, 0 confirms for now. Any other id does
    /// nothing; the second number is not used.
    Q_SLOT void recvQmlMessage(int id, int var1);

private:
    void loadView();

    std::unique_ptr<Ui::PrivacyprivilegesWindow> m_ui;
    vexa::Language m_language;
};
