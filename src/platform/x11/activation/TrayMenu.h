// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>

namespace vexa::platform {

/// What the tray offers, in the language of the interface. GUI thread.
class TrayMenu : public QMenu {
public:
    TrayMenu();
    ~TrayMenu() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    QAction *const m_settings;
    QAction *const m_quit;
};

} // namespace vexa::platform
