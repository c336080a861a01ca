#pragma once

#include "RowBatch.h"
#include "Text/Outcome.h"

#include <QStringList>

#include <functional>
#include <memory>

/// Goes through the rows of a file once.
class RowCursor
{
public:
    virtual ~RowCursor() = default;

    /// Takes the next rows, which are in no batch before.
    /// \return false at the end.
    virtual Outcome<bool> next(RowBatch *batch) = 0;
};

/// The rows of a file that is imported, with the headers above them. They can be read as often as it
/// takes.
///
/// \code
/// rows.headers();    // {"name", "note"}
/// rows.whileRows([](qint64 row, const QStringList &fields) {
///     use(row, fields);    // 1, {"Ann", "a, b"}
///     return true;         // goes on
/// });
/// \endcode
class RowSource
{
public:
    /// A library holds at most this many columns: SQLite takes 2,000, and one is the record's own.
    static constexpr qsizetype ColumnLimit = 1999;

    virtual ~RowSource() = default;

    /// What goes through the rows from the first on; it must not outlive this.
    virtual std::unique_ptr<RowCursor> cursor() const = 0;
    /// What stands between the fields.
    virtual QChar separator() const = 0;
    /// What the file is encoded in; nil if it is no text of its own.
    virtual QString encoding() const { return {}; }
    /// The line of a quote that is never closed, 0 if there is none.
    virtual qint64 unclosedQuoteLine() const { return 0; }

    /// Hands over the rows of values, numbered from 1, as they are, shorter or longer than the
    /// headers, until \a use gives false.
    Outcome<>
    whileRows(const std::function<bool(qint64 row, const QStringList &fields)> &use) const;
    /// The same for many rows at once.
    Outcome<> whileBatches(const std::function<bool(const RowBatch &batch)> &use) const;

    /// The headers as they are typed, with an empty one for each column that only longer rows have.
    const QStringList &headers() const { return _headers; }
    /// The rows without that of the headers.
    qint64 rowCount() const { return _rowCount; }
    /// Those of them that have fewer or more fields than there are headers.
    qint64 raggedRowCount() const { return _raggedRowCount; }
    /// The columns of the file that are shown, by their positions; all if there are none.
    const QList<qsizetype> &selected() const { return _selected; }

    /// Leaves columns out, as if they were not in the file.
    void skip(const QList<qsizetype> &columns);
    /// Gives a column another header.
    void rename(qsizetype column, const QString &header) { _headers[column] = header; }

protected:
    RowSource() = default;
    RowSource(const RowSource &) = default;
    RowSource(RowSource &&) = default;
    RowSource &operator=(const RowSource &) = default;
    RowSource &operator=(RowSource &&) = default;

    // What derived classes call once, as they meet the rows.

    /// \param line where a reader of the file finds it.
    Outcome<> addHeaders(const QStringList &headers, qint64 line);
    /// \param width how many fields it has.
    Outcome<> addRow(qsizetype width, qint64 line);
    /// Names the columns without headers.
    void endRows();

private:
    Outcome<> addWidth(qsizetype width, qint64 line);

    QStringList _headers;
    QList<qsizetype> _selected;
    qsizetype _widest = 0;
    qint64 _rowCount = 0;
    qint64 _raggedRowCount = 0;
};
