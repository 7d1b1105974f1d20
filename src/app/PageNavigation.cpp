// SPDX-License-Identifier: MIT
#include "app/PageNavigation.h"

#include <QStackedWidget>

#include <algorithm>
#include <cstddef>

namespace vexa {

namespace {

struct PageLayout {
    std::size_t slot;
    int stackHeight;
    int windowHeight;
};

constexpr int pageWidth = 640;

/// By Page_Num.
constexpr std::array<PageLayout, 10> layouts{{
    {0, 428, 519},
    {3, 515, 606},
    {4, 515, 606},
    {5, 348, 439},
    {1, 520, 611},
    {2, 515, 606},
    {6, 600, 691},
    {7, 600, 691},
    {8, 600, 691},
    {9, 450, 541},
}};

} // namespace

PageNavigation::PageNavigation(QWidget &window, QStackedWidget &stack, QWidget &backButton,
                               const Slots &pages)
    : m_window(window), m_stack(stack), m_backButton(backButton), m_pages(pages) {}

void PageNavigation::show(Page_Num page) {
    const auto index = static_cast<std::size_t>(page);
    if (index >= layouts.size())
        return;
    const PageLayout &layout = layouts[index];
    m_stack.resize(pageWidth, layout.stackHeight);
    m_window.setFixedSize(pageWidth, layout.windowHeight);
    if (QWidget *widget = m_pages[layout.slot])
        m_stack.setCurrentWidget(widget);
    if (page == Page_0)
        m_backButton.hide();
}

void PageNavigation::remember(Page_Num page) {
    m_backButton.show();
    m_history.push_back(page);
}

void PageNavigation::showSettings() {
    const auto *const end = layouts.end() - 1; // the settings page is not remembered
    const auto *const shown = std::find_if(layouts.begin(), end, [this](const PageLayout &layout) {
        return m_pages[layout.slot] && m_pages[layout.slot] == m_stack.currentWidget();
    });
    if (shown != end)
        remember(static_cast<Page_Num>(shown - layouts.begin()));
    show(Page_9);
}

void PageNavigation::goBack() {
    if (m_history.empty())
        return;
    show(m_history.back());
    m_history.pop_back();
}

} // namespace vexa
