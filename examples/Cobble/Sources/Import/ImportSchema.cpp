#include "ImportSchema.h"

#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSString_KTNaming>

using namespace Qt::StringLiterals;

namespace {
/// The name of a column whose header gives no identifier.
const QString NamelessBase = u"field"_s;

ImportColumn columnForHeader(const QString &header, const QList<ImportColumn> &columnsSoFar)
{
    ImportColumn column;
    column.header = header;
    column.propertyString = KTAdditions::propertyString(header);
    column.label = KTAdditions::labelString(column.propertyString);
    column.internalName = KTAdditions::internalCaseInsensitiveUniqueStringWithBase(
        columnsSoFar, column.propertyString.isEmpty() ? NamelessBase : column.propertyString,
        u"internalName"_s);
    column.columnName = column.internalName == column.propertyString
                            ? KTAdditions::tableColumnString(header)
                            : QString(u"kt_" + column.internalName);
    return column;
}
} // namespace

ImportSchema ImportSchema::fromHeaders(const QString &libraryName, const QStringList &headers)
{
    ImportSchema schema;
    schema.libraryName = libraryName;
    schema.libraryEntityName = KTAdditions::libraryEntityName(libraryName);
    schema.entityName = entityNameForText(libraryName);
    schema.tableName = KTAdditions::tableNameString(libraryName);
    for (const QString &header : headers)
        schema.columns.append(columnForHeader(header, schema.columns));
    return schema;
}

QString entityNameForText(const QString &text)
{
    return KTAdditions::bumpyCaseStringFromString(text.mid(text.lastIndexOf(u'.') + 1), true);
}
