#pragma once

#include "ImportSource.h"

#include <QList>
#include <QString>

class QTextStream;

/// The values of an import: the type of each column, and what its formatter reads of it.
///
/// \code
/// const ImportSource source = ImportSource::fromText(text);
/// const ImportValues values = ImportValues::fromText(text, source);
/// values.columns.at(0).typeName;     // "date"
/// values.unread.size();              // 3
/// \endcode
struct ImportValues
{
    /// What became of one column.
    struct Column
    {
        QString typeName; ///< "number", "currency (EUR)"
        qint64 read = 0;
        qint64 unread = 0;
        qint64 empty = 0; ///< also the fields that a short row lacks
    };

    /// A value that the column's type cannot read.
    struct Unread
    {
        qint64 row = 0; ///< from 1, without the headers
        qsizetype column = 0;
        QString text;
        QString reason;
    };

    /// Reads the rows twice: the beginning to find the types, then all of them.
    /// \param progress gets a line that tells how far it is; may be null.
    static ImportValues fromText(QStringView text, const ImportSource &source,
                                 QTextStream *progress = nullptr);

    QList<Column> columns;
    QList<Unread> unread;
};
