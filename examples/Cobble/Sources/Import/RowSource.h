#pragma once

#include "Text/Outcome.h"

#include <QStringList>

#include <functional>

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

    /// Hands over the rows of values, numbered from 1, as they are, shorter or longer than the
    /// headers, until \a use gives false.
    virtual void
    whileRows(const std::function<bool(qint64 row, const QStringList &fields)> &use) const = 0;
    /// What stands between the fields.
    virtual QChar separator() const = 0;
    /// The line of a quote that is never closed, 0 if there is none.
    virtual qint64 unclosedQuoteLine() const { return 0; }

    /// The headers as they are typed, with an empty one for each column that only longer rows have.
    const QStringList &headers() const { return _headers; }
    /// The rows without that of the headers.
    qint64 rowCount() const { return _rowCount; }
    /// Those of them that have fewer or more fields than there are headers.
    qint64 raggedRowCount() const { return _raggedRowCount; }

protected:
    RowSource() = default;
    RowSource(const RowSource &) = default;
    RowSource(RowSource &&) = default;
    RowSource &operator=(const RowSource &) = default;
    RowSource &operator=(RowSource &&) = default;

    // What derived classes call once, as they meet the rows.

    /// \param line where a reader of the file finds it.
    Outcome<> addHeaders(const QStringList &headers, qint64 line);
    Outcome<> addRow(const QStringList &fields, qint64 line);
    /// Names the columns without headers.
    void endRows();

private:
    Outcome<> addWidth(qsizetype width, qint64 line);

    QStringList _headers;
    qsizetype _widest = 0;
    qint64 _rowCount = 0;
    qint64 _raggedRowCount = 0;
};
