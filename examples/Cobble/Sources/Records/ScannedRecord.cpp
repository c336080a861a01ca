#include "ScannedRecord.h"

ScannedRecord::ScannedRecord(const Library &library) : FormRecord({})
{
    for (qsizetype field = 0; field < library.fields.size(); ++field)
        _fields.insert(library.fields.at(field).columnName, field);
}

std::optional<QVariant> ScannedRecord::valueForKey(const QString &key) const
{
    const auto field = _fields.constFind(key);
    if (field == _fields.constEnd() || !_cursor)
        return std::nullopt;
    return _cursor->value(*field);
}

bool ScannedRecord::setValueForKey(const QVariant &, const QString &)
{
    return false;
}
