#include "ImportCommand.h"

#include "Import/ImportFile.h"
#include "ImportReport.h"
#include "Library/BundleOption.h"
#include "ProgressLine.h"
#include "Text/CSVSeparator.h"
#include "Text/PrintableText.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString LibraryOption = u"library"_s;
const QString SeparatorOption = u"separator"_s;
const QString MediaOption = u"media"_s;
const QString ReplaceOption = u"replace"_s;
const QString DryRunOption = u"dry-run"_s;

void addOptions(QCommandLineParser *parser)
{
    parser->addOption({LibraryOption, QString(), u"NAME"_s});
    parser->addOption({SeparatorOption, QString(), u"C"_s});
    parser->addOption({MediaOption, QString(), u"HEADER"_s});
    parser->addOption({ReplaceOption, QString()});
    parser->addOption({DryRunOption, QString()});
    BundleOption::add(parser);
    UserSettings::addLocaleOption(parser);
}

QString mistakeInImport(const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.first().isEmpty())
        return u"import needs the name of a file"_s;
    if (files.size() > 1)
        return u"import takes one file, not also '%1'"_s.arg(files.at(1));
    if (parser.isSet(LibraryOption) && parser.value(LibraryOption).trimmed().isEmpty())
        return u"--library needs a name"_s;
    const QString separator = parser.value(SeparatorOption);
    if (parser.isSet(SeparatorOption) && !CSVSeparator::fromName(separator))
        return u"bad separator '%1'"_s.arg(separator);
    const QString mistake = BundleOption::mistakeIn(parser);
    return mistake.isNull() ? UserSettings::mistakeInLocale(UserSettings::localeIn(parser))
                            : mistake;
}

ImportRequest requestIn(const QCommandLineParser &parser)
{
    ImportRequest request;
    request.path = parser.positionalArguments().first();
    request.libraryName = parser.isSet(LibraryOption)
                              ? parser.value(LibraryOption)
                              : ImportRequest::libraryNameForFile(request.path);
    request.separator = CSVSeparator::fromName(parser.value(SeparatorOption));
    request.locale = UserSettings::localeIn(parser);
    request.mediaHeaders = parser.values(MediaOption);
    request.replaces = parser.isSet(ReplaceOption);
    request.isDryRun = parser.isSet(DryRunOption);
    request.bundle = BundleOption::bundleIn(parser);
    return request;
}

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
    addOptions(&parser);
    return context.run(arguments, &parser, mistakeInImport,
                       [](const QCommandLineParser &parsed, CommandContext &target) {
                           return import(requestIn(parsed), target);
                       });
}
