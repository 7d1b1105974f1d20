// SPDX-License-Identifier: MIT
#include "app/Language.h"

#include <QCoreApplication>
#include <QFont>
#include <QStringList>
#include <array>
#include <cstddef>

namespace vexa {

namespace {

struct Catalogue {
    const char *file;
    const char *chineseFace;
};

constexpr std::array<Catalogue, 3> catalogues{{
    {":/language_qm/lang_Cn.qm", "Noto Sans CJK SC"},
    {":/language_qm/lang_Tw.qm", "Noto Sans CJK TC"},
    {":/language_qm/lang_En.qm", "Noto Sans CJK SC"},
}};

const Catalogue *catalogueOf(int language) {
    const auto index = static_cast<std::size_t>(language); // a negative one is then far too large
    return index < catalogues.size() ? &catalogues[index] : nullptr;
}

} // namespace

void Language::change(int language) {
    m_translator.reset(); // a translator takes itself out of the application
    const Catalogue *catalogue = catalogueOf(language);
    if (!catalogue)
        return;
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QLatin1String(catalogue->file)) ||
        !QCoreApplication::installTranslator(translator.get()))
        return;
    m_translator = std::move(translator);
}

} // namespace vexa
