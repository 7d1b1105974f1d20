// SPDX-License-Identifier: MIT
#pragma once

/// The widget pages of the main window. Page_0 is the first one, which has nothing to go back to; Page_9
/// holds the settings. Any other int is a value too, of no page.
enum Page_Num : int { Page_0, Page_1, Page_2, Page_3, Page_4, Page_5, Page_6, Page_7, Page_8, Page_9 };
