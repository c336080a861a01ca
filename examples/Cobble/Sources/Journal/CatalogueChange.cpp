#include "CatalogueChange.h"

#include "Text/Reasons.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {
QJsonObject objectOf(const LibraryField &field)
{
    return {{u"column"_s, field.columnName},
            {u"header"_s, field.header},
            {u"label"_s, field.label},
            {u"property"_s, field.propertyName},
            {u"type"_s, FieldTypes::nameOf(field.type)},
            {u"options"_s, QJsonObject::fromVariantMap(field.options)}};
}

QJsonObject objectOf(const Library &library)
{
    QJsonArray fields;
    for (const LibraryField &field : library.fields)
        fields += objectOf(field);
    return {{u"name"_s, library.name},
            {u"libraryEntity"_s, library.libraryEntityName},
            {u"entity"_s, library.entityName},
            {u"table"_s, library.tableName},
            {u"fields"_s, fields}};
}

LibraryField fieldInObject(const QJsonObject &object)
{
    LibraryField field;
    field.columnName = object.value(u"column"_s).toString();
    field.header = object.value(u"header"_s).toString();
    field.label = object.value(u"label"_s).toString();
    field.propertyName = object.value(u"property"_s).toString();
    field.type = FieldTypes::storedTypeNamed(object.value(u"type"_s).toString());
    field.options = object.value(u"options"_s).toObject().toVariantMap();
    return field;
}

std::optional<Library> libraryInObject(const QJsonValue &value)
{
    if (!value.isObject())
        return std::nullopt;
    const QJsonObject object = value.toObject();
    Library library;
    library.name = object.value(u"name"_s).toString();
    library.libraryEntityName = object.value(u"libraryEntity"_s).toString();
    library.entityName = object.value(u"entity"_s).toString();
    library.tableName = object.value(u"table"_s).toString();
    for (const QJsonValue &field : object.value(u"fields"_s).toArray())
        library.fields += fieldInObject(field.toObject());
    return library;
}

QJsonValue valueOf(const std::optional<Library> &library)
{
    return library ? QJsonValue(objectOf(*library)) : QJsonValue();
}
} // namespace

QByteArray CatalogueChange::bytes() const
{
    const QJsonObject object = {{u"before"_s, valueOf(before)}, {u"after"_s, valueOf(after)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

Outcome<CatalogueChange> CatalogueChange::read(const QByteArray &bytes)
{
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    const CatalogueChange change = {libraryInObject(object.value(u"before"_s)),
                                    libraryInObject(object.value(u"after"_s))};
    if (!change.before && !change.after)
        return Failure{.reason = Reasons::tr("the step cannot be read"), .isFinal = true};
    return change;
}

bool CatalogueChange::areEqual(const Library &one, const Library &other)
{
    return objectOf(one) == objectOf(other);
}
