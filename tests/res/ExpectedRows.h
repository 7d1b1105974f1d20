// SPDX-License-Identifier: MIT
#pragma once

#include "res/TsFile.h"

enum class Catalogue { English, Simplified, Traditional };
constexpr Catalogue catalogues[] = {Catalogue::English, Catalogue::Simplified, Catalogue::Traditional};

/// The rows, as numbers, of a test that holds for each.
void everyCatalogue();

/// Every row that the catalogue must have, and no other, worked out from the agreed wording.
QVector<TsRow> expectedRows(Catalogue catalogue);

/// The name part of the catalogue's files: "En", "Cn" or "Tw".
QString catalogueName(Catalogue catalogue);
