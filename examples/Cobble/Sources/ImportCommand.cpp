#include "ImportCommand.h"

#include "AlignedTable.h"
#include "CSVSeparator.h"
#include "ImportSchema.h"
#include "ImportSource.h"
#include "ImportValues.h"
#include "TextFile.h"
#include "Usage.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

namespace {
const QString LibraryOption = QStringLiteral("library");
const QString SeparatorOption = QStringLiteral("separator");
const QString HelpOption = QStringLiteral("help");

/// What the command line asks for.
struct ImportRequest
{
    QString path;
    QString libraryName;
    std::optional<QChar> separator;
    QString locale;
};

void addOptions(QCommandLineParser *parser)
{
    parser->addOption({HelpOption, QString()});
    parser->addOption({LibraryOption, QString(), QStringLiteral("NAME")});
    parser->addOption({SeparatorOption, QString(), QStringLiteral("C")});
    UserSettings::addLocaleOption(parser);
}

/// The file's name without its extension; the whole name if nothing else is left.
QString libraryNameForFile(const QString &path)
{
    const QFileInfo file(path);
    const QString name = file.completeBaseName();
    return name.isEmpty() ? file.fileName() : name;
}

/// What is wrong with the values given; nil if nothing is.
QString mistakeIn(const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.first().isEmpty())
        return QStringLiteral("import needs the name of a file");
    if (files.size() > 1)
        return QStringLiteral("import takes one file, not also '%1'").arg(files.at(1));
    if (parser.isSet(LibraryOption) && parser.value(LibraryOption).trimmed().isEmpty())
        return QStringLiteral("--library needs a name");
    const QString separator = parser.value(SeparatorOption);
    if (parser.isSet(SeparatorOption) && !CSVSeparator::fromName(separator))
        return QStringLiteral("bad separator '%1'").arg(separator);
    return UserSettings::mistakeInLocale(UserSettings::localeIn(parser));
}

ImportRequest requestFrom(const QCommandLineParser &parser)
{
    ImportRequest request;
    request.path = parser.positionalArguments().first();
    request.libraryName = parser.isSet(LibraryOption) ? parser.value(LibraryOption)
                                                      : libraryNameForFile(request.path);
    request.separator = CSVSeparator::fromName(parser.value(SeparatorOption));
    request.locale = UserSettings::localeIn(parser);
    return request;
}

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

void printValues(const ImportSchema &schema, const ImportValues &values, QTextStream &out)
{
    out << '\n';
    printTypes(schema.columns, values, out);
    if (values.unread.isEmpty())
        return;
    out << '\n';
    printUnread(schema.columns, values, out);
}

void logImport(const ImportRequest &request, const ImportSource &source, const ImportSchema &schema)
{
    KTLog(kLog_ImportDialog, 4, u"%@: separator %@, %d rows, %d columns",
          printableText(request.path), CSVSeparator::nameOf(source.separator), source.rowCount,
          schema.columns.size());
    for (const ImportColumn &column : schema.columns)
        KTLog(kLog_ImportDialog, 7, u"'%@': label '%@', property %@, internal name %@, column %@",
              printableText(column.header), column.label, column.propertyString,
              column.internalName, column.columnName);
    KTLog(kLog_SchemaManager, 4, u"library '%@': library entity %@, entity %@, table %@",
          printableText(schema.libraryName), schema.libraryEntityName, schema.entityName,
          schema.tableName);
}

ExitCode import(const ImportRequest &request, CommandContext &context)
{
    QString reason;
    const QString text = TextFile::textOfFile(request.path, &reason);
    if (text.isNull())
        return context.fail(request.path, reason);
    const ImportSource source = ImportSource::fromText(text, request.separator);
    if (!source.errorDescription.isNull())
        return context.fail(request.path, source.errorDescription);
    if (source.unclosedQuoteLine > 0)
        context.warn(request.path,
                     QStringLiteral("line %1: a quote is never closed; everything to the end of "
                                    "the file was read as one field")
                         .arg(source.unclosedQuoteLine));
    const ImportSchema schema = ImportSchema::fromHeaders(request.libraryName, source.headers);
    logImport(request, source, schema);
    printSummary(source, schema, context.out());
    context.out() << '\n';
    printColumns(schema.columns, context.out());
    const LocaleScope scope(request.locale);
    const ImportValues values = ImportValues::fromText(text, source, context.progress());
    printValues(schema, values, context.out());
    return ExitCode::Success;
}
} // namespace

ExitCode runImportCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    addOptions(&parser);
    if (!context.parse(arguments, &parser))
        return ExitCode::WrongUsage;
    if (parser.isSet(HelpOption)) {
        context.out() << usageText();
        return ExitCode::Success;
    }
    const QString mistake = mistakeIn(parser);
    return mistake.isNull() ? import(requestFrom(parser), context) : context.wrongUsage(mistake);
}
