#include "LibraryNames.h"

#include <KTUtility/NSString_KTNaming>

using namespace Qt::StringLiterals;

namespace {
/// The name of the column of a field whose title gives no identifier.
const QString NamelessColumn = u"kt_field"_s;

void completeFields(Library *library)
{
    QStringList columns;
    for (LibraryField &field : library->fields) {
        field = LibraryNames::completed(field, columns);
        columns += field.columnName;
    }
}
} // namespace

QString LibraryNames::unique(const QString &base, const QStringList &taken)
{
    QString name = base;
    for (int number = 1; taken.contains(name, Qt::CaseInsensitive); ++number)
        name = base + QString::number(number);
    return name;
}

LibraryField LibraryNames::completed(LibraryField field, const QStringList &columns)
{
    const QString property = KTAdditions::propertyString(field.header);
    if (field.propertyName.isEmpty())
        field.propertyName = property.isEmpty() ? u"field"_s : property;
    if (field.label.isEmpty())
        field.label = KTAdditions::labelString(property);
    if (field.columnName.isEmpty())
        field.columnName =
            property.isEmpty() ? NamelessColumn : KTAdditions::tableColumnString(field.header);
    field.columnName = unique(field.columnName, columns + QStringList(u"id"_s));
    return field;
}

Library LibraryNames::completed(Library library, const QStringList &tables)
{
    if (library.libraryEntityName.isEmpty())
        library.libraryEntityName = KTAdditions::libraryEntityName(library.name);
    if (library.entityName.isEmpty())
        library.entityName = KTAdditions::bumpyCaseStringFromString(library.name, true);
    if (library.tableName.isEmpty())
        library.tableName = KTAdditions::tableNameString(library.name);
    library.tableName = unique(library.tableName, tables);
    completeFields(&library);
    return library;
}
