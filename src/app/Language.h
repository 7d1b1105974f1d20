// SPDX-License-Identifier: MIT
#pragma once

#include <QTranslator>

#include <memory>

namespace vexa {

/// The interface language of the whole application, as long as this object lives. GUI thread only.
class Language {
public:
    /// Replaces the catalogue in use by that of the language: 0 Simplified Chinese, 1 Traditional Chinese, 2
    /// English. For any other value, and when the catalogue cannot be loaded, the source texts show, which
    /// are Simplified Chinese.
    void change(int language);

    /// Sets the application's font, with the forms of the Chinese characters that readers of that language
    /// expect. Widgets take it at once, views when they are translated next. change() does it too.
    static void chooseFont(int language);

private:
    std::unique_ptr<QTranslator> m_translator;     ///< null while the source texts show
    std::unique_ptr<QTranslator> m_portTranslator; ///< the texts that only this port has
};

} // namespace vexa
