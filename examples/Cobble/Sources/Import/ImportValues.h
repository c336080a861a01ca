#pragma once

#include "ColumnConventions.h"
#include "ColumnDecision.h"
#include "ImportSink.h"
#include "RowSource.h"

#include <QList>
#include <QMap>
#include <QString>

#include <optional>

/// The values of an import: the type of each column, and what its formatter reads of it.
///
/// \code
/// const Outcome<SeparatedText> rows = SeparatedText::read(text);
/// const Outcome<ImportValues> values = ImportValues::of(*rows);
/// values->columns.at(0).typeName;     // "date"
/// values->unread.size();              // 3
/// \endcode
struct ImportValues
{
    /// What became of one column.
    struct Column
    {
        QString typeName; ///< "number", "currency (EUR)"
        FieldType type = FieldType::Text;
        QString currencyType; ///< the code of its currency; nil for other types
        qint64 read = 0;
        qint64 unread = 0;
        qint64 empty = 0; ///< also the fields that a short row lacks
        /// What had to be decided about how its values are typed, and was.
        ColumnDecision decision;
        /// The same about its currency.
        ColumnDecision currency;
        /// What was told of it in vain.
        ColumnDecision unused;
    };

    /// A value that the column's type cannot read.
    struct Unread
    {
        qint64 row = 0; ///< from 1, without the headers
        qsizetype column = 0;
        QString text;
        QString reason;
    };

    /// How an import is to be made.
    struct Settings
    {
        /// Is informed of each row before it is read, with the number of all, and says whether to
        /// go on; of row 0 while types are being found. May be empty.
        std::function<bool(qint64 row, qint64 rowCount)> progress;
        /// Whether a text names a media file; without it, none does.
        std::function<bool(const QString &)> isMedia;
        /// The types of columns that are known beforehand.
        QMap<qsizetype, FieldType> types;
        /// What is said of how columns are typed.
        QMap<qsizetype, ColumnConventions> conventions;
        /// The locale that the values were typed in; the user's if there is none.
        std::optional<NSLocale> locale;
        /// How many threads read values; 0 for as many as there are processors. What comes out is the
        /// same.
        int threads = 0;
        /// Gets the values; may be null.
        ImportSink *sink = nullptr;
    };

    /// Reads the rows three times: the beginning to find the types, all of them for what a column's
    /// values decide together, then all of them. It fails if the sink does, if the rows cannot be read
    /// to their end, and if it is cancelled.
    static Outcome<ImportValues> of(const RowSource &rows, const Settings &settings);
    static Outcome<ImportValues> of(const RowSource &rows) { return of(rows, Settings()); }

    /// So many values that are not read are listed, unless they are long.
    static constexpr qsizetype MostListed = 10'000;

    /// How many values were not read, also those that are not listed.
    qint64 unreadCount() const;
    /// Of these, how many are not listed.
    qint64 unlistedCount() const { return unreadCount() - unread.size(); }

    QList<Column> columns;
    /// The first values that were not read.
    QList<Unread> unread;
};
