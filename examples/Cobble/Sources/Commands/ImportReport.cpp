#include "ImportReport.h"

#include "Text/AlignedTable.h"
#include "Text/CSVSeparator.h"

#include <KTUtility/KTLogger>

#include <QTextStream>

namespace {
QString raggedRowsText(const ImportSource &source)
{
    if (source.raggedRowCount == 0)
        return QStringLiteral("none");
    return QStringLiteral("%1 with fewer or more fields than there are headers")
        .arg(source.raggedRowCount);
}

void printSummary(const ImportSource &source, const ImportSchema &schema, QTextStream &out)
{
    AlignedTable summary;
    summary.addRow({QStringLiteral("Library:"), schema.libraryName});
    summary.addRow({QStringLiteral("Library entity:"), schema.libraryEntityName});
    summary.addRow({QStringLiteral("Entity:"), schema.entityName});
    summary.addRow({QStringLiteral("Table:"), schema.tableName});
    summary.addRow({QStringLiteral("Separator:"), CSVSeparator::nameOf(source.separator)});
    summary.addRow({QStringLiteral("Rows read:"), QString::number(source.rowCount)});
    summary.addRow({QStringLiteral("Ragged rows:"), raggedRowsText(source)});
    summary.addRow({QStringLiteral("Columns:"), QString::number(schema.columns.size())});
    summary.print(out);
}

void printColumns(const QList<ImportColumn> &columns, QTextStream &out)
{
    const auto digits = int(QString::number(columns.size()).size());
    AlignedTable table;
    table.addRow({QStringLiteral("#").rightJustified(digits), QStringLiteral("Header"),
                  QStringLiteral("Label"), QStringLiteral("Property"),
                  QStringLiteral("Internal name"), QStringLiteral("Column name")});
    for (qsizetype index = 0; index < columns.size(); ++index) {
        const ImportColumn &column = columns.at(index);
        table.addRow({QString::number(index + 1).rightJustified(digits), column.header,
                      column.label, column.propertyString, column.internalName, column.columnName});
    }
    table.print(out);
}

void printTypes(const QList<ImportColumn> &columns, const ImportValues &values, QTextStream &out)
{
    AlignedTable table;
    table.addRow({QStringLiteral("Column name"), QStringLiteral("Type"), QStringLiteral("Read"),
                  QStringLiteral("Not read"), QStringLiteral("Empty")});
    for (qsizetype index = 0; index < columns.size(); ++index) {
        const ImportValues::Column &counts = values.columns.at(index);
        table.addRow({columns.at(index).columnName, counts.typeName, QString::number(counts.read),
                      QString::number(counts.unread), QString::number(counts.empty)});
    }
    table.print(out);
}

void printUnread(const QList<ImportColumn> &columns, const ImportValues &values, QTextStream &out)
{
    AlignedTable table;
    table.addRow({QStringLiteral("Row"), QStringLiteral("Column name"), QStringLiteral("Text"),
                  QStringLiteral("Not read, since")});
    for (const ImportValues::Unread &unread : values.unread)
        table.addRow({QString::number(unread.row), columns.at(unread.column).columnName,
                      unread.text, unread.reason});
    table.print(out);
}

} // namespace

void ImportReport::printSchema(const ImportSource &source, const ImportSchema &schema,
                               QTextStream &out)
{
    printSummary(source, schema, out);
    out << '\n';
    printColumns(schema.columns, out);
}

void ImportReport::printValues(const ImportSchema &schema, const ImportValues &values,
                               QTextStream &out)
{
    out << '\n';
    printTypes(schema.columns, values, out);
    if (values.unread.isEmpty())
        return;
    out << '\n';
    printUnread(schema.columns, values, out);
}

void ImportReport::log(const QString &path, const ImportSource &source, const ImportSchema &schema)
{
    KTLog(kLog_ImportDialog, 4, u"%@: separator %@, %d rows, %d columns", printableText(path),
          CSVSeparator::nameOf(source.separator), source.rowCount, schema.columns.size());
    for (const ImportColumn &column : schema.columns)
        KTLog(kLog_ImportDialog, 7, u"'%@': label '%@', property %@, internal name %@, column %@",
              printableText(column.header), column.label, column.propertyString,
              column.internalName, column.columnName);
    KTLog(kLog_SchemaManager, 4, u"library '%@': library entity %@, entity %@, table %@",
          printableText(schema.libraryName), schema.libraryEntityName, schema.entityName,
          schema.tableName);
}
