// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

/// One row of a translation source file (.ts). `type` is empty for a finished row.
struct TsRow {
    QString context;
    QString source;
    QString translation;
    QString type;
};

/// The rows of `fileName` in their order; empty, with a warning, when the file cannot be read or is not well
/// formed.
QVector<TsRow> readTsFile(const QString &fileName);
