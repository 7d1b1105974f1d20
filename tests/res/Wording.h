// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

/// The wording of the interface as agreed, kept apart from the catalogues so that the tests can compare the
/// two.

/// One text with its meaning in the other languages; a null translation means that the catalogue has no such
/// row.
struct Wording {
    const char *source;
    const char *english;
    const char *traditional;
    const char *contexts; ///< Separated by blanks.
};

/// A text that passes through translation but means nothing: its rows have an empty translation.
struct Inert {
    const char *source;
    const char *contexts; ///< Separated by blanks.
};

const QVector<Wording> &wordings();
const QVector<Inert> &inertRows();
