#include "LibraryCatalogue.h"

#include "DatabaseTables.h"
#include "SQL.h"
#include "Text/Reasons.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
QString optionsText(const QVariantMap &options)
{
    return QString::fromUtf8(
        QJsonDocument(QJsonObject::fromVariantMap(options)).toJson(QJsonDocument::Compact));
}

LibraryField fieldIn(const QSqlQuery &row)
{
    LibraryField field;
    field.columnName = row.value(0).toString();
    field.header = row.value(1).toString();
    field.label = row.value(2).toString();
    field.propertyName = row.value(3).toString();
    field.type = FieldTypes::storedTypeNamed(row.value(4).toString());
    field.options = QJsonDocument::fromJson(row.value(5).toByteArray()).object().toVariantMap();
    return field;
}

Library libraryIn(const QSqlQuery &row)
{
    Library library;
    library.name = row.value(0).toString();
    library.libraryEntityName = row.value(1).toString();
    library.entityName = row.value(2).toString();
    library.tableName = row.value(3).toString();
    return library;
}

Outcome<QList<LibraryField>> fieldsOf(const QSqlDatabase &database, const QString &tableName)
{
    return SQL::rows(database,
                     u"SELECT column_name, header, label, property, type, options FROM "
                     "cobble_field WHERE table_name = ? ORDER BY position"_s,
                     {tableName}, fieldIn);
}

Outcome<QList<Library>> librariesIn(const QSqlDatabase &database)
{
    auto libraries = SQL::rows(database,
                               u"SELECT name, library_entity, entity, table_name FROM "
                               "cobble_library ORDER BY name COLLATE NOCASE"_s,
                               {}, libraryIn);
    if (!libraries)
        return libraries;
    for (Library &library : *libraries) {
        const auto fields = fieldsOf(database, library.tableName);
        if (!fields)
            return fields.failure();
        library.fields = *fields;
    }
    return libraries;
}

Outcome<> addField(const QSqlDatabase &database, const QString &tableName, qsizetype position,
                   const LibraryField &field)
{
    return SQL::run(database, u"INSERT INTO cobble_field VALUES (?, ?, ?, ?, ?, ?, ?, ?)"_s,
                    {tableName, position, field.columnName, field.header, field.label,
                     field.propertyName, FieldTypes::nameOf(field.type),
                     optionsText(field.options)});
}
/// The names by which SQLite knows the numbers of rows, and Cobble those of records.
bool isNumberOfRecord(const QString &column)
{
    static const QStringList names = {u"id"_s, u"rowid"_s, u"oid"_s, u"_rowid_"_s};
    return names.contains(column, Qt::CaseInsensitive);
}

/// \param taken the columns of the fields before, in lower case.
Outcome<> checkColumn(const QString &column, const QSet<QString> &columns, QSet<QString> *taken)
{
    const auto refusal = [&column](const QString &reason) {
        return Failure{.reason = reason.arg(column), .isFinal = true};
    };
    if (isNumberOfRecord(column))
        return refusal(Reasons::tr("a field has the column '%1', which is the records' number"));
    if (!columns.contains(column))
        return refusal(Reasons::tr("a field has the column '%1', which the table has not"));
    if (taken->contains(column.toLower()))
        return refusal(Reasons::tr("two fields have the column '%1'"));
    taken->insert(column.toLower());
    return {};
}
} // namespace

Outcome<> LibraryCatalogue::need(const QSqlDatabase &database)
{
    return SQL::run(database, u"CREATE TABLE IF NOT EXISTS cobble_library (name TEXT PRIMARY KEY, "
                              "library_entity TEXT, entity TEXT, table_name TEXT UNIQUE)"_s)
        .andThen([&] {
            return SQL::run(database,
                            u"CREATE TABLE IF NOT EXISTS cobble_field (table_name TEXT, position "
                            "INTEGER, column_name TEXT, header TEXT, label TEXT, property TEXT, "
                            "type TEXT, options TEXT, PRIMARY KEY (table_name, position))"_s);
        })
        .andThen([&] { return SQL::run(database, u"PRAGMA user_version = %1"_s.arg(Version)); });
}

Outcome<> LibraryCatalogue::checkVersion(const QSqlDatabase &database)
{
    const Outcome<qint64> version = SQL::number(database, u"PRAGMA user_version"_s);
    if (!version)
        return version.failure();
    if (*version > Version)
        return Failure{Reasons::tr("the database was made by a newer version of Cobble")};
    return {};
}

Outcome<QList<Library>> LibraryCatalogue::libraries(const QSqlDatabase &database)
{
    const Outcome<bool> isThere = DatabaseTables::has(database, u"cobble_library"_s);
    if (!isThere)
        return isThere.failure();
    if (!*isThere)
        return QList<Library>();
    const Outcome<> hasFields = DatabaseTables::need(database, u"cobble_field"_s);
    return hasFields ? librariesIn(database) : hasFields.failure();
}

Outcome<Library> LibraryCatalogue::libraryOf(const QSqlDatabase &database, const QString &tableName)
{
    const Outcome<QList<Library>> all = libraries(database);
    if (!all)
        return all.failure();
    const auto found = std::find_if(
        all->begin(), all->end(), [&](const Library &each) { return each.tableName == tableName; });
    if (found == all->end())
        return Failure{.reason = Reasons::tr("the library is no longer there"), .isFinal = true};
    return *found;
}

Outcome<> LibraryCatalogue::add(const QSqlDatabase &database, const Library &library)
{
    Outcome<> added =
        SQL::run(database, u"INSERT INTO cobble_library VALUES (?, ?, ?, ?)"_s,
                 {library.name, library.libraryEntityName, library.entityName, library.tableName});
    for (qsizetype position = 0; added && position < library.fields.size(); ++position)
        added = addField(database, library.tableName, position, library.fields.at(position));
    return added;
}

Outcome<> LibraryCatalogue::remove(const QSqlDatabase &database, const QString &tableName)
{
    return SQL::run(database, u"DELETE FROM cobble_library WHERE table_name = ?"_s, {tableName})
        .andThen([&] {
            return SQL::run(database, u"DELETE FROM cobble_field WHERE table_name = ?"_s,
                            {tableName});
        });
}

Outcome<> LibraryCatalogue::checkColumns(const QSqlDatabase &database, const Library &library)
{
    const Outcome<QStringList> columns = DatabaseTables::columnsOf(database, library.tableName);
    if (!columns)
        return columns.failure();
    const QSet<QString> present(columns->begin(), columns->end());
    QSet<QString> taken;
    for (const LibraryField &field : library.fields) {
        if (const Outcome<> checked = checkColumn(field.columnName, present, &taken); !checked)
            return checked;
    }
    return {};
}

/// Numbers have no declared type, so that SQLite keeps them as they are handed over.
QString LibraryCatalogue::declarationOf(const LibraryField &field)
{
    const bool isNumber = field.type == FieldType::Number || field.type == FieldType::Currency ||
                          field.type == FieldType::Duration;
    return SQL::quoted(field.columnName) + (isNumber ? u"" : u" TEXT");
}
