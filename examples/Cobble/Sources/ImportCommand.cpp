#include "ImportCommand.h"

#include "AlignedTable.h"
#include "ImportReport.h"
#include "ImportRequest.h"
#include "LibraryImport.h"
#include "MediaReference.h"
#include "TextFile.h"
#include "Usage.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

namespace {
/// A file that was read once, and how it is to be read again.
struct ImportFile
{
    QString text;
    ImportSource source;
    ImportSchema schema;
    /// Where relative paths of media begin.
    QString folder;
    ImportValues::Settings settings;
};

/// \return the first header that no column has; nil if there is none.
QString addMediaColumns(const QStringList &headers, ImportFile *file)
{
    for (const QString &header : headers) {
        const qsizetype column = file->source.headers.indexOf(header);
        if (column < 0)
            return header;
        file->settings.mediaColumns += column;
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
    file->source = ImportSource::fromText(file->text, request.separator);
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
                              printableText(import.library().name), printableText(bundlePath));
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
    if (!context.parse(arguments, &parser))
        return ExitCode::WrongUsage;
    if (parser.isSet(QStringLiteral("help"))) {
        context.out() << usageText();
        return ExitCode::Success;
    }
    const QString mistake = ImportRequest::mistakeIn(parser);
    return mistake.isNull() ? import(ImportRequest::from(parser), context)
                            : context.wrongUsage(mistake);
}
