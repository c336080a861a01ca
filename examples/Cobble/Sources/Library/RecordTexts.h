#pragma once

#include "Fields/FieldReader.h"
#include "LibraryStore.h"
#include "RecordRows.h"

#include <memory>
#include <vector>

/// Shows records as their fields' formatters do, in the user's locale.
///
/// \code
/// const RecordTexts texts(library);
/// while (records.next())
///     table.addRow(texts.textsOf(records));
/// \endcode
class RecordTexts
{
public:
    explicit RecordTexts(const Library &library);

    /// What stands above the fields.
    QStringList titles() const { return _titles; }
    /// A value as text, as a field shows it; texts that it could not read as they are, "" for nil.
    static QString textOf(const FieldReader &reader, const QVariant &value);
    /// A field's value as text; texts that the field could not read as they are, "" for nil.
    QString textOf(qsizetype field, const QVariant &value) const;
    /// All of the current record.
    QStringList textsOf(const RecordCursor &record) const;
    QStringList textsOf(const RecordRows &record) const;

private:
    template<typename Record>
    QStringList textsIn(const Record &record) const;

    QStringList _titles;
    std::vector<std::unique_ptr<FieldReader>> _readers;
};
