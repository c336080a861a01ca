#include "ImportCommand.h"

#include "Import/ImportFile.h"
#include "ImportReport.h"
#include "ProgressLine.h"
#include "Text/AlignedTable.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
void warnOfQuote(const ImportRequest &request, const ImportSource &source, CommandContext &context)
{
    if (source.unclosedQuoteLine > 0)
        context.warn(request.path,
                     u"line %1: a quote is never closed; everything to the end of "
                     "the file was read as one field"_s.arg(source.unclosedQuoteLine));
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
    const ImportFile::Outcome outcome = file.store(request);
    if (!outcome.errorDescription.isNull())
        return context.fail(bundlePath, outcome.errorDescription);
    ImportReport::printValues(file.schema, outcome.values, context.out());
    context.out() << '\n'
                  << u"Stored %1 in the library '%2' of %3\n"_s.arg(
                         recordCountText(outcome.recordCount), printableText(outcome.stored.name),
                         printableText(bundlePath));
    return ExitCode::Success;
}

ExitCode import(const ImportRequest &request, CommandContext &context)
{
    ImportFile file;
    const LocaleScope scope(request.locale);
    const QString mistake = ImportFile::read(request, &file);
    if (!mistake.isNull())
        return context.fail(request.path, mistake);
    ProgressLine line(context.progress(), u"Reading values"_s, file.source.rowCount);
    file.settings.progress = [&line](qint64 row, qint64) {
        line.show(row);
        return true;
    };
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
