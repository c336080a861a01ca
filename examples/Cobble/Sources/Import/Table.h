#pragma once

#include "Interfaces/CobbleImporter.h"
#include "RowSource.h"

/// The rows of a table that an importer has made of a file.
///
/// What the importer leaves out is empty, not nil. A table without titles has one column without a
/// header, and a row without anything has one empty field.
///
/// \code
/// CobbleTable table;
/// table.titles = {u"name"_s, u"note"_s};
/// table.rows = {{u"Ann"_s, u"a, b"_s}};
/// Table::of(table)->rowCount();    // 1
/// \endcode
class Table : public RowSource
{
public:
    static Outcome<Table> of(const CobbleTable &table);

    std::unique_ptr<RowCursor> cursor() const override;
    /// A comma, which people take such files for: there was none.
    QChar separator() const override { return u','; }

private:
    class Cursor;

    explicit Table(const QList<QStringList> &rows) : _rows(rows) {}

    QList<QStringList> _rows;
};
