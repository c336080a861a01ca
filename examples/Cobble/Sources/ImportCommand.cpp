#include "ImportCommand.h"

#include "AlignedTable.h"
#include "CSVText.h"
#include "ImportReport.h"
#include "ImportRequest.h"
#include "LibraryImport.h"
#include "MediaReference.h"
#include "PlugIns.h"
#include "TextFile.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

namespace {
/// Whether a file type needs no importer.
bool isSeparatedText(const QString &fileType)
{
    static const QStringList types = {QStringLiteral(""), QStringLiteral("csv"),
                                      QStringLiteral("tsv"), QStringLiteral("txt")};
    return types.contains(fileType);
}

/// A file that was read once, and how it is to be read again.
struct ImportFile
{
    QString text;
    ImportSource source;
    ImportSchema schema;
    /// Where relative paths of media begin.
    QString folder;
    /// The files that an importer took out of it.
    std::shared_ptr<QTemporaryDir> extracted;
    ImportValues::Settings settings;
};

/// A table as separated values.
QString separatedText(const CobbleTable &table)
{
    QString text;
    const auto addRow = [&text](const QStringList &fields) {
        QStringList quoted;
        for (const QString &field : fields)
            quoted += CSVText::quoted(field);
        // A row without anything is a row, too.
        const QString row = quoted.join(u',');
        text += (row.isEmpty() ? QStringLiteral("\"\"") : row) + u'\n';
    };
    addRow(table.titles);
    for (const QStringList &row : table.rows)
        addRow(row);
    return text;
}

/// Turns the text of a file into separated values, if there is an importer for its extension.
/// \return why that failed; nil if it did not.
QString useImporter(const QString &path, ImportFile *file, std::optional<QChar> *separator)
{
    const QString fileType = QFileInfo(path).suffix().toLower();
    if (isSeparatedText(fileType))
        return {};
    const PlugIns plugIns;
    CobbleImporter *const importer = plugIns.importerFor(fileType);
    if (!importer)
        return {};
    CobbleTable table;
    QString error;
    bool isRead = false;
    const QString failure =
        PlugIns::failureOf([&] { isRead = importer->readTable(file->text, &table, &error); });
    if (!failure.isNull())
        return QStringLiteral("the importer failed: %1").arg(failure);
    if (!isRead)
        return error.isNull() ? QStringLiteral("the importer failed") : error;
    file->text = separatedText(table);
    file->extracted = table.files;
    for (qsizetype column = 0; column < table.typeNames.size(); ++column) {
        if (!table.typeNames.at(column).isEmpty())
            file->settings.types.insert(column,
                                        FieldTypes::storedTypeNamed(table.typeNames.at(column)));
    }
    *separator = u',';
    return {};
}

/// \return the first header that no column has; nil if there is none.
QString addMediaColumns(const QStringList &headers, ImportFile *file)
{
    for (const QString &header : headers) {
        const qsizetype column = file->source.headers.indexOf(header);
        if (column < 0)
            return header;
        file->settings.types.insert(column, FieldType::Media);
    }
    return {};
}

/// \return why the file cannot be imported; nil if it can be.
QString readFile(const ImportRequest &request, CommandContext &context, ImportFile *file)
{
    QString reason;
    file->text = TextFile::textOfFile(request.path, &reason);
    if (file->text.isNull())
        return reason;
    std::optional<QChar> separator = request.separator;
    const QString failure = useImporter(request.path, file, &separator);
    if (!failure.isNull())
        return failure;
    file->source = ImportSource::fromText(file->text, separator);
    if (!file->source.errorDescription.isNull())
        return file->source.errorDescription;
    const QString missing = addMediaColumns(request.mediaHeaders, file);
    if (!missing.isNull())
        return QStringLiteral("there is no column '%1'").arg(missing);
    file->schema = ImportSchema::fromHeaders(request.libraryName, file->source.headers);
    const QString folder = QFileInfo(request.path).absolutePath();
    file->folder = folder;
    file->settings.isMedia = [folder](const QString &text) {
        return MediaReference::isObvious(text, folder);
    };
    file->settings.progress = context.progress();
    return {};
}

void warnOfQuote(const ImportRequest &request, const ImportSource &source, CommandContext &context)
{
    if (source.unclosedQuoteLine > 0)
        context.warn(request.path,
                     QStringLiteral("line %1: a quote is never closed; everything to the end of "
                                    "the file was read as one field")
                         .arg(source.unclosedQuoteLine));
}

ExitCode showOnly(const ImportFile &file, CommandContext &context)
{
    ImportReport::printValues(
        file.schema, ImportValues::fromText(file.text, file.source, file.settings), context.out());
    return ExitCode::Success;
}

ExitCode store(const ImportRequest &request, const ImportFile &file, CommandContext &context)
{
    const QString &bundlePath = request.bundle.bundlePath();
    QString error;
    const auto transaction = ImportTransaction::begin(request.bundle, &error);
    if (!transaction)
        return context.fail(bundlePath, error);
    LibraryImport import(*transaction, file.schema, file.folder, request.replaces);
    ImportValues::Settings settings = file.settings;
    settings.sink = &import;
    const ImportValues values = ImportValues::fromText(file.text, file.source, settings);
    if (!values.errorDescription.isNull())
        return context.fail(bundlePath, values.errorDescription);
    if (!transaction->commit())
        return context.fail(bundlePath, transaction->store().errorText());
    ImportReport::printValues(file.schema, values, context.out());
    context.out() << '\n'
                  << QStringLiteral("Stored %1 in the library '%2' of %3\n")
                         .arg(recordCountText(import.recordCount()),
                              printableText(import.storedLibrary().name),
                              printableText(bundlePath));
    return ExitCode::Success;
}

ExitCode import(const ImportRequest &request, CommandContext &context)
{
    ImportFile file;
    const LocaleScope scope(request.locale);
    const QString mistake = readFile(request, context, &file);
    if (!mistake.isNull())
        return context.fail(request.path, mistake);
    warnOfQuote(request, file.source, context);
    ImportReport::log(request.path, file.source, file.schema);
    ImportReport::printSchema(file.source, file.schema, context.out());
    return request.isDryRun ? showOnly(file, context) : store(request, file, context);
}
} // namespace

ExitCode runImportCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    ImportRequest::addOptions(&parser);
    return context.run(arguments, &parser, ImportRequest::mistakeIn,
                       [](const QCommandLineParser &parsed, CommandContext &target) {
                           return import(ImportRequest::from(parsed), target);
                       });
}
