#pragma once

#include "CopiedRecords.h"

#include <QMimeData>

#include <optional>

/// What a clipboard holds, as rows of cells: records that were copied here, or a table of another
/// program as HTML, separated values or text with tabs, or lines of text.
///
/// \code
/// const PastedTable table = PastedTable::of(*QGuiApplication::clipboard()->mimeData());
/// if (!table.isEmpty())
///     paste(table);
/// \endcode
struct PastedTable
{
    static PastedTable of(const QMimeData &data);
    /// Whether a clipboard holds anything that could be a table, without reading it.
    static bool canBeIn(const QMimeData *data);

    bool isEmpty() const { return exact ? exact->rows.isEmpty() : rows.isEmpty(); }

    /// Records that were copied here; nothing if it comes from elsewhere.
    std::optional<CopiedRecords> exact;
    /// The texts of what comes from elsewhere.
    QList<QStringList> rows;
};
