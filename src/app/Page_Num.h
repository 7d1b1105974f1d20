// SPDX-License-Identifier: MIT
#pragma once

/// The widget pages of the main window. Page_0 is the first one, without a back button; Page_9 holds the
/// settings. Any other int is a valid value that stands for no page.
enum Page_Num : int { Page_0, Page_1, Page_2, Page_3, Page_4, Page_5, Page_6, Page_7, Page_8, Page_9 };
