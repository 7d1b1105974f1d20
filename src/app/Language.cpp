// SPDX-License-Identifier: MIT
#include "app/Language.h"

#include <QApplication>
#include <QFont>
#include <QStringList>

#include <array>
#include <cstddef>

namespace vexa {

namespace {

constexpr const char *simplifiedFace = "Noto Sans CJK SC";
constexpr const char *traditionalFace = "Noto Sans CJK TC";

struct Catalogue {
    const char *file;
    const char *portFile; ///< the texts that only this port has
    const char *chineseFace;
};

constexpr std::array<Catalogue, 3> catalogues{{
    {":/language_qm/lang_Cn.qm", ":/language_qm/port_Cn.qm", simplifiedFace},
    {":/language_qm/lang_Tw.qm", ":/language_qm/port_Tw.qm", traditionalFace},
    {":/language_qm/lang_En.qm", ":/language_qm/port_En.qm", simplifiedFace},
}};

const Catalogue *catalogueOf(int language) {
    const auto index = static_cast<std::size_t>(language); // a negative number wraps to one past the end
    return index < catalogues.size() ? &catalogues[index] : nullptr;
}

/// Null when it cannot be loaded.
std::unique_ptr<QTranslator> installed(const char *file) {
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(QLatin1String(file)) || !QCoreApplication::installTranslator(translator.get()))
        return nullptr;
    return translator;
}

} // namespace

void Language::chooseFont(int language) {
    const Catalogue *catalogue = catalogueOf(language);
    // A widget's font that names a family of its own keeps these as its fall-backs. Liberation Sans has the
    // metrics of Arial, for systems without Arial. The face for Chinese is named because outside a Chinese
    // session the system would choose the Japanese forms of the characters.
    QFont font = QGuiApplication::font();
    font.setFamily(QStringLiteral("Arial"));
    font.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans"),
                      QLatin1String(catalogue ? catalogue->chineseFace : simplifiedFace)});
    // The toolkit's font cache does not tell two fonts apart that differ only in the fall-backs of a family
    // that is not installed. It does tell apart different style hints.
    font.setStyleHint(catalogue && catalogue->chineseFace == traditionalFace ? QFont::SansSerif
                                                                             : QFont::AnyStyle);
    QApplication::setFont(font);
}

void Language::change(int language) {
    chooseFont(language);
    m_portTranslator.reset(); // a translator takes itself out of the application
    m_translator.reset();
    const Catalogue *catalogue = catalogueOf(language);
    if (!catalogue)
        return;
    m_translator = installed(catalogue->file);
    if (m_translator)
        m_portTranslator = installed(catalogue->portFile);
}

} // namespace vexa
