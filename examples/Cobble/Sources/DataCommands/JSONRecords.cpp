#include "JSONRecords.h"

#include "Commands/LibraryJSON.h"
#include "JSONNumbers.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {
Outcome<QVariant> readJSONValue(DataChange &change, const LibraryField &field,
                                const QJsonValue &json)
{
    if (field.type == FieldType::Media && json.isString())
        return change.knownMedia(json.toString());
    const Outcome<QVariant> value = LibraryJSON::valueIn(field.type, json);
    return value ? value
                 : change.failure(ExitCode::Unread, u"%1: %2"_s.arg(field.title(), value.reason()));
}

/// The fields that records name, each of which is looked for once.
class KnownFields
{
public:
    KnownFields(DataChange &change, const Library &library) : _change(change), _library(library) {}

    const Outcome<qsizetype> &named(const QString &name)
    {
        auto known = _fields.find(name);
        if (known == _fields.end())
            known = _fields.insert(name, _change.fieldNamed(_library, name));
        return *known;
    }

private:
    DataChange &_change;
    const Library &_library;
    QHash<QString, Outcome<qsizetype>> _fields;
};

Outcome<FieldValues> readValues(DataChange &change, const Library &library, KnownFields &fields,
                                const QJsonObject &object)
{
    FieldValues values;
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const Outcome<qsizetype> &field = fields.named(entry.key());
        const Outcome<QVariant> value =
            field ? readJSONValue(change, library.fields.at(*field), entry.value())
                  : field.failure();
        if (!value)
            return value.failure();
        if (values.contains(*field))
            return change.failure(ExitCode::Unread, u"the field '%1' has two values"_s.arg(
                                                        library.fields.at(*field).title()));
        values.insert(*field, *value);
    }
    return values;
}

Outcome<JSONRecord> readRecord(DataChange &change, const Library &library, KnownFields &fields,
                               const QJsonValue &json)
{
    const QJsonValue id = json[u"id"];
    const bool isRecord = json[u"values"].isObject();
    const bool isNumbered = id.isDouble() && id.toInteger() > 0;
    if (!isRecord || !(isNumbered || id.isUndefined()))
        return change.failure(ExitCode::Unread, u"a record is an object with \"values\", "
                                                "and \"id\" a number"_s);
    const Outcome<FieldValues> values =
        readValues(change, library, fields, json[u"values"].toObject());
    if (!values)
        return values.failure();
    return JSONRecord{isNumbered ? std::optional(id.toInteger()) : std::nullopt, *values};
}

QJsonArray recordsInJSON(const QJsonDocument &document)
{
    if (document.isArray())
        return document.array();
    const QJsonObject object = document.object();
    return object.value(u"records"_s).isArray() ? object.value(u"records"_s).toArray()
                                                : QJsonArray{object};
}
} // namespace

Outcome<QList<JSONRecord>> JSONRecords::read(DataChange &change, const Library &library,
                                             const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document.isNull())
        return change.failure(ExitCode::Unread,
                              u"the standard input is no JSON: %1"_s.arg(error.errorString()));
    if (const QString number = JSONNumbers::firstInexact(json); !number.isNull())
        return change.failure(ExitCode::Unread, u"the number %1 has more digits than are kept; "
                                                "write it as a text"_s.arg(number));
    QList<JSONRecord> records;
    KnownFields fields(change, library);
    for (const QJsonValue &each : recordsInJSON(document)) {
        const Outcome<JSONRecord> record = readRecord(change, library, fields, each);
        if (!record)
            return record.failure();
        records += *record;
    }
    return records;
}
