#include "ImportReport.h"

#include "Text/AlignedTable.h"
#include "Text/CSVSeparator.h"
#include "Text/PrintableText.h"

#include <KTUtility/KTLogger>

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
QString raggedRowsText(const RowSource &rows)
{
    if (rows.raggedRowCount() == 0)
        return u"none"_s;
    return u"%1 with fewer or more fields than there are headers"_s.arg(rows.raggedRowCount());
}

void printSummary(const RowSource &rows, const ImportSchema &schema, QTextStream &out)
{
    AlignedTable summary;
    summary.addRow({u"Library:"_s, schema.libraryName});
    summary.addRow({u"Library entity:"_s, schema.libraryEntityName});
    summary.addRow({u"Entity:"_s, schema.entityName});
    summary.addRow({u"Table:"_s, schema.tableName});
    summary.addRow({u"Separator:"_s, CSVSeparator::nameOf(rows.separator())});
    if (const QString encoding = rows.encoding(); !encoding.isNull() && encoding != u"UTF-8")
        summary.addRow({u"Encoding:"_s, encoding});
    summary.addRow({u"Rows read:"_s, QString::number(rows.rowCount())});
    summary.addRow({u"Ragged rows:"_s, raggedRowsText(rows)});
    summary.addRow({u"Columns:"_s, QString::number(schema.columns.size())});
    summary.print(out);
}

void printColumns(const QList<ImportColumn> &columns, QTextStream &out)
{
    const auto digits = int(QString::number(columns.size()).size());
    AlignedTable table;
    table.addRow({u"#"_s.rightJustified(digits), u"Header"_s, u"Label"_s, u"Property"_s,
                  u"Internal name"_s, u"Column name"_s});
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
    table.addRow({u"Column name"_s, u"Type"_s, u"Read"_s, u"Not read"_s, u"Empty"_s});
    for (qsizetype index = 0; index < columns.size(); ++index) {
        const ImportValues::Column &counts = values.columns.at(index);
        table.addRow({columns.at(index).columnName, counts.typeName, QString::number(counts.read),
                      QString::number(counts.unread), QString::number(counts.empty)});
    }
    table.print(out);
}

/// What was decided about columns, if anything was.
void printDecisions(const QList<ImportColumn> &columns, const ImportValues &values,
                    QTextStream &out)
{
    AlignedTable table;
    table.addRow({u"Column name"_s, u"Read as"_s, u"Since"_s, u"Contradicting"_s});
    qsizetype count = 0;
    for (qsizetype index = 0; index < columns.size(); ++index) {
        const ImportValues::Column &column = values.columns.at(index);
        for (const ColumnDecision &decision : {column.decision, column.currency, column.unused}) {
            if (!decision.isNeeded())
                continue;
            table.addRow({columns.at(index).columnName, decision.readAs, decision.since,
                          decision.contradicting});
            ++count;
        }
    }
    if (count == 0)
        return;
    out << '\n';
    table.print(out);
}

void printUnread(const QList<ImportColumn> &columns, const ImportValues &values, QTextStream &out)
{
    AlignedTable table;
    table.addRow({u"Row"_s, u"Column name"_s, u"Text"_s, u"Not read, since"_s});
    for (const ImportValues::Unread &unread : values.unread)
        table.addRow({QString::number(unread.row), columns.at(unread.column).columnName,
                      unread.text, unread.reason});
    table.print(out);
    if (values.unlistedCount() > 0)
        out << u"and %1 more, which are not listed\n"_s.arg(values.unlistedCount());
}
} // namespace

void ImportReport::printSchema(const RowSource &rows, const ImportSchema &schema, QTextStream &out)
{
    printSummary(rows, schema, out);
    out << '\n';
    printColumns(schema.columns, out);
}

void ImportReport::printValues(const ImportSchema &schema, const ImportValues &values,
                               QTextStream &out)
{
    out << '\n';
    printTypes(schema.columns, values, out);
    printDecisions(schema.columns, values, out);
    if (values.unread.isEmpty())
        return;
    out << '\n';
    printUnread(schema.columns, values, out);
}

void ImportReport::log(const QString &path, const RowSource &rows, const ImportSchema &schema)
{
    KTLog(kLog_ImportDialog, 4, u"%@: separator %@, %d rows, %d columns", printableText(path),
          CSVSeparator::nameOf(rows.separator()), rows.rowCount(), schema.columns.size());
    for (const ImportColumn &column : schema.columns)
        KTLog(kLog_ImportDialog, 7, u"'%@': label '%@', property %@, internal name %@, column %@",
              printableText(column.header), column.label, column.propertyString,
              column.internalName, column.columnName);
    KTLog(kLog_SchemaManager, 4, u"library '%@': library entity %@, entity %@, table %@",
          printableText(schema.libraryName), schema.libraryEntityName, schema.entityName,
          schema.tableName);
}
