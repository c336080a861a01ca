#pragma once

#include "Forms/FormField.h"
#include "Library/LibraryStore.h"

/// The record at which a cursor stands, for conditions: it answers the keys of StoredRecord, and
/// reads only the values that it is asked for.
///
/// \code
/// ScannedRecord record(library);
/// record.setCursor(&cursor);
/// while (cursor.next())
///     use(predicate.evaluateWithObject(&record));
/// \endcode
class ScannedRecord : public FormRecord
{
    Q_OBJECT

public:
    explicit ScannedRecord(const Library &library);

    /// \param cursor must live as long as the record is asked.
    void setCursor(const RecordCursor *cursor) { _cursor = cursor; }

    std::optional<QVariant> valueForKey(const QString &key) const override;
    /// Nothing can be set.
    bool setValueForKey(const QVariant &value, const QString &key) override;

private:
    const RecordCursor *_cursor = nullptr;
    QHash<QString, qsizetype> _fields;
};
