// SPDX-License-Identifier: MIT
#pragma once

#include "app/Page_Num.h"

#include <array>
#include <vector>

class QStackedWidget;
class QWidget;

namespace vexa {

/// The widget pages of a window and their history. Showing a page also gives the window that page's height.
/// GUI thread only; nothing here is owned.
class PageNavigation {
public:
    /// The page of each slot; null where none is built.
    using Slots = std::array<QWidget *, 10>;

    PageNavigation(QWidget &window, QStackedWidget &stack, QWidget &backButton, const Slots &pages = {});

    /// Shows a page; any other value does nothing.
    void show(Page_Num page);

    /// Appends a page to the history and shows the back button.
    void remember(Page_Num page);

    /// Remembers the page now shown, unless that is the settings page, and shows the settings page.
    void showSettings();

    /// Shows the last page of the history and removes it there; without history nothing happens.
    void goBack();

private:
    QWidget &m_window;
    QStackedWidget &m_stack;
    QWidget &m_backButton;
    Slots m_pages;
    std::vector<Page_Num> m_history;
};

} // namespace vexa
