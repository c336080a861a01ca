#pragma once

#include "Text/CSVScanner.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// Some rows of a file that follow each other, with their text in one piece. Its fields can be asked
/// for by several threads at once.
///
/// \code
/// for (qsizetype row = 0; row < batch.rowCount(); ++row)
///     use(batch.number(row), batch.field(row, 2));
/// \endcode
class RowBatch
{
public:
    RowBatch() = default;
    /// \param text that of all rows that will be added.
    /// \param firstNumber the number of the first row, from 1 without that of the headers.
    RowBatch(QString text, qint64 firstNumber);

    /// Adds a row that stands in the text.
    /// \param line where a reader of the file finds it.
    void addRow(const std::vector<CSVField> &fields, qint64 line);
    /// Adds a row with a text of its own, which is taken as it is.
    void addRow(const QStringList &fields, qint64 line);
    /// Shows some of the columns only, in their order; each is a position in the rows of the file.
    void select(const QList<qsizetype> &columns) { _columns = columns; }

    qsizetype rowCount() const { return qsizetype(_rows.size()); }
    bool isEmpty() const { return _rows.empty(); }
    qint64 number(qsizetype row) const { return _firstNumber + row; }
    qint64 line(qsizetype row) const { return _rows[size_t(row)].line; }
    /// How many fields the row has in the file.
    qsizetype width(qsizetype row) const;
    /// A field without the mark that keeps a spreadsheet from running it; nil where the row has none.
    QString field(qsizetype row, qsizetype column) const;
    /// All fields of a row, shorter or longer than the headers.
    QStringList fields(qsizetype row) const;

private:
    struct Row
    {
        qint64 line;
        size_t end; ///< of its fields
    };

    size_t beginOf(qsizetype row) const { return row == 0 ? 0 : _rows[size_t(row - 1)].end; }
    QString fieldInFile(qsizetype row, qsizetype column) const;

    QString _text;
    qint64 _firstNumber = 1;
    /// Whether marks are a part of the fields.
    bool _isAsTyped = true;
    std::vector<CSVField> _fields;
    std::vector<Row> _rows;
    QList<qsizetype> _columns;
};
