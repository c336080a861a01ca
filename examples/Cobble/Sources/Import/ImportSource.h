#pragma once

#include <QStringList>

#include <functional>
#include <optional>

/// What an import learns from reading a separated text once: the headers, how many rows there are,
/// and what is wrong with them.
///
/// \code
/// const ImportSource source = ImportSource::fromText(u"a;b\n1;2;3\n4\n");
/// source.headers;         // {"a", "b", ""}
/// source.rowCount;        // 2
/// source.raggedRowCount;  // 2
/// \endcode
struct ImportSource
{
    /// A library holds at most this many columns: SQLite takes 2,000, and one is the record's own.
    static constexpr qsizetype ColumnLimit = 1999;

    /// Reads \a text: a "sep=" line if there is one, a row of headers, rows of values.
    /// \param separator what to use instead of the one that the text names or seems to use.
    static ImportSource fromText(QStringView text, std::optional<QChar> separator = std::nullopt);

    /// Hands over the rows of values once more, numbered from 1, as they are: ragged.
    /// \param text what fromText() read.
    void forEachRow(QStringView text,
                    const std::function<void(qint64 row, const QStringList &fields)> &use) const;
    /// The same until \a use gives false.
    void whileRows(QStringView text,
                   const std::function<bool(qint64 row, const QStringList &fields)> &use) const;

    /// Why the text cannot be imported; nil if it can be.
    QString errorDescription;
    /// The headers as they are typed, with an empty one for each column that only longer rows have.
    QStringList headers;
    QChar separator = u',';
    /// The rows without that of the headers.
    qint64 rowCount = 0;
    /// Those of them that have fewer or more fields than there are headers.
    qint64 raggedRowCount = 0;
    /// The line of a quote that is never closed, 0 if there is none.
    qint64 unclosedQuoteLine = 0;

private:
    void readRows(QStringView text, qint64 firstLine);
    bool checkWidth(qsizetype width, qint64 line);
};
