// SPDX-License-Identifier: MIT
#include "app/Language.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontDatabase>
#include <QStringList>
#include <array>
#include <cstddef>

namespace vexa {

namespace {

constexpr const char *simplifiedFace = "Noto Sans CJK SC";
constexpr const char *traditionalFace = "Noto Sans CJK TC";

struct Catalogue {
    const char *file;
    const char *chineseFace;
};

constexpr std::array<Catalogue, 3> catalogues{{
    {":/language_qm/lang_Cn.qm", simplifiedFace},
    {":/language_qm/lang_Tw.qm", traditionalFace},
    {":/language_qm/lang_En.qm", simplifiedFace},
}};

const Catalogue *catalogueOf(int language) {
    const auto index = static_cast<std::size_t>(language); // a negative one is then far too large
    return index < catalogues.size() ? &catalogues[index] : nullptr;
}

/// Makes the toolkit forget the faces it has drawn a family with, which outlive a change of substitutions. It
/// does so when an application font goes; the one that comes and goes here is none.
void forgetDrawnFaces() {
    QFontDatabase::addApplicationFontFromData(QByteArray(1, 'x'));
    QFontDatabase::removeAllApplicationFonts();
}

} // namespace

void Language::chooseFace(int language) {
    const Catalogue *catalogue = catalogueOf(language);
    const QString face = QStringLiteral("Arial");
    QFont::removeSubstitutions(face);
    // Where there is no Arial, its metric twin stands in for it. Left to itself the system draws Chinese text
    // outside a Chinese session with the Japanese forms.
    QFont::insertSubstitutions(face, {QStringLiteral("Liberation Sans"),
                                      QLatin1String(catalogue ? catalogue->chineseFace : simplifiedFace)});
    forgetDrawnFaces();
}

void Language::change(int language) {
    chooseFace(language);
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
