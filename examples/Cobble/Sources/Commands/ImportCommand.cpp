#include "ImportCommand.h"

#include "Import/ImportFile.h"
#include "ImportReport.h"
#include "Library/BundleOption.h"
#include "ProgressLine.h"
#include "Text/CSVSeparator.h"
#include "Text/PrintableText.h"
#include "Text/TextEncodings.h"
#include "UserSettings.h"

#include <QCommandLineParser>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString LibraryOption = u"library"_s;
const QString SeparatorOption = u"separator"_s;
const QString EncodingOption = u"encoding"_s;
const QString NoHeaderOption = u"no-header"_s;
const QString SkipOption = u"skip"_s;
const QString RenameOption = u"rename"_s;
const QString TypeOption = u"type"_s;
const QString MediaOption = u"media"_s;
const QString OrderOption = u"order"_s;
const QString DecimalOption = u"decimal"_s;
const QString UnitOption = u"unit"_s;
const QString ReplaceOption = u"replace"_s;
const QString DryRunOption = u"dry-run"_s;

void addImportOptions(QCommandLineParser *parser)
{
    parser->addOption({LibraryOption, QString(), u"NAME"_s});
    parser->addOption({SeparatorOption, QString(), u"C"_s});
    parser->addOption({EncodingOption, QString(), u"NAME"_s});
    parser->addOption({NoHeaderOption, QString()});
    parser->addOption({SkipOption, QString(), u"HEADER"_s});
    parser->addOption({MediaOption, QString(), u"HEADER"_s});
    for (const QString &option : {RenameOption, TypeOption, OrderOption, DecimalOption, UnitOption})
        parser->addOption({option, QString(), u"HEADER=WHAT"_s});
    parser->addOption({ReplaceOption, QString()});
    parser->addOption({DryRunOption, QString()});
    BundleOption::add(parser);
    UserSettings::addLocaleOption(parser);
}

/// "Amount" and "," of "Amount=,".
std::pair<QString, QString> headerAndWhatIn(const QString &value)
{
    return {value.section(u'=', 0, -2), value.section(u'=', -1)};
}

/// The sign that is given by itself or by a name; else what is given.
QString pointOf(const QString &what)
{
    if (what == u"comma")
        return u","_s;
    return what == u"point" ? u"."_s : what;
}

std::optional<FieldType> typeNamed(const QString &name)
{
    const std::optional<FieldType> type = FieldTypes::typeNamed(name);
    const FieldType plain = FieldTypes::storedTypeNamed(name);
    return type || FieldTypes::nameOf(plain) != name ? type : plain;
}

/// Whether an option can be told what is told.
bool takes(const QString &option, const QString &what)
{
    using Column = KTColumnReading;
    if (option == RenameOption)
        return !what.trimmed().isEmpty();
    if (option == TypeOption)
        return typeNamed(what).has_value();
    if (option == OrderOption)
        return Column::conventionsOf(Column::Dates).contains(what);
    if (option == DecimalOption)
        return Column::conventionsOf(Column::Numbers).contains(pointOf(what));
    return Column::conventionsOf(Column::Durations).contains(what) ||
           NSLocale::commonISOCurrencyCodes().contains(what);
}

Outcome<> checkConventions(const QCommandLineParser &parser)
{
    for (const QString &option :
         {RenameOption, TypeOption, OrderOption, DecimalOption, UnitOption}) {
        for (const QString &value : parser.values(option)) {
            const auto [header, what] = headerAndWhatIn(value);
            if (header.isEmpty() || !takes(option, what))
                return Failure{u"bad --%1 '%2'"_s.arg(option, value)};
        }
    }
    return {};
}

QMap<QString, ColumnConventions> conventionsIn(const QCommandLineParser &parser)
{
    QMap<QString, ColumnConventions> conventions;
    const auto tell = [&](const QString &option, QString ColumnConventions::*convention) {
        for (const QString &value : parser.values(option)) {
            const auto [header, what] = headerAndWhatIn(value);
            conventions[header].*convention = option == DecimalOption ? pointOf(what) : what;
        }
    };
    tell(OrderOption, &ColumnConventions::order);
    tell(DecimalOption, &ColumnConventions::point);
    tell(UnitOption, &ColumnConventions::unit);
    return conventions;
}

Outcome<> checkEncoding(const QCommandLineParser &parser)
{
    const QString name = parser.value(EncodingOption);
    if (!parser.isSet(EncodingOption) || name == TextEncodings::Automatic ||
        TextEncodings::named(name))
        return {};
    return Failure{u"unknown encoding '%1'; there are %2, %3"_s.arg(
        name, TextEncodings::Automatic, TextEncodings::names().join(u", "_s))};
}

/// What is said of encodings; nil if nothing is.
QString encodingIn(const QCommandLineParser &parser)
{
    const QString name = parser.value(EncodingOption);
    return parser.isSet(EncodingOption) ? TextEncodings::named(name).value_or(name) : QString();
}

void tellColumns(const QCommandLineParser &parser, ImportRequest *request)
{
    request->skipped = parser.values(SkipOption);
    for (const QString &value : parser.values(RenameOption)) {
        const auto [header, what] = headerAndWhatIn(value);
        request->newHeaders.insert(header, what);
    }
    for (const QString &value : parser.values(TypeOption)) {
        const auto [header, what] = headerAndWhatIn(value);
        request->types.insert(header, *typeNamed(what));
    }
}

Outcome<> checkImport(const QCommandLineParser &parser)
{
    const QStringList files = parser.positionalArguments();
    if (files.isEmpty() || files.first().isEmpty())
        return Failure{u"import needs the name of a file"_s};
    if (files.size() > 1)
        return Failure{u"import takes one file, not also '%1'"_s.arg(files.at(1))};
    if (parser.isSet(LibraryOption) && parser.value(LibraryOption).trimmed().isEmpty())
        return Failure{u"--library needs a name"_s};
    const QString separator = parser.value(SeparatorOption);
    if (parser.isSet(SeparatorOption) && !CSVSeparator::fromName(separator))
        return Failure{u"bad separator '%1'"_s.arg(separator)};
    return BundleOption::check(parser)
        .andThen([&] { return UserSettings::checkLocale(parser); })
        .andThen([&] { return checkEncoding(parser); })
        .andThen([&] { return checkConventions(parser); });
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
    request.encoding = encodingIn(parser);
    request.hasHeaders = !parser.isSet(NoHeaderOption);
    tellColumns(parser, &request);
    request.mediaHeaders = parser.values(MediaOption);
    request.conventions = conventionsIn(parser);
    request.replaces = parser.isSet(ReplaceOption);
    request.isDryRun = parser.isSet(DryRunOption);
    request.bundle = BundleOption::bundleIn(parser);
    return request;
}

void warnOfQuote(const ImportRequest &request, const RowSource &rows, CommandContext &context)
{
    if (rows.unclosedQuoteLine() > 0)
        context.warn(request.path,
                     u"line %1: a quote is never closed; everything to the end of "
                     "the file was read as one field"_s.arg(rows.unclosedQuoteLine()));
}

ExitCode showOnly(const ImportRequest &request, const ImportFile &file, CommandContext &context)
{
    const Outcome<ImportValues> values = file.preview(request);
    if (!values)
        return context.fail(request.bundle.bundlePath(), values.reason());
    ImportReport::printValues(file.schema, *values, context.out());
    return ExitCode::Success;
}

ExitCode store(const ImportRequest &request, const ImportFile &file, CommandContext &context)
{
    const QString &bundlePath = request.bundle.bundlePath();
    const Outcome<StoredImport> stored = file.store(request);
    if (!stored)
        return context.fail(bundlePath, stored.reason());
    ImportReport::printValues(file.schema, stored->values, context.out());
    context.out() << '\n'
                  << u"Stored %1 in the library '%2' of %3\n"_s.arg(
                         recordCountText(stored->recordCount), printableText(stored->library.name),
                         printableText(bundlePath));
    return ExitCode::Success;
}

/// Shows what was read, and reads the values.
ExitCode importFile(const ImportRequest &request, ImportFile &file, CommandContext &context)
{
    ProgressLine line(context.progress(), u"Reading values"_s, file.rows->rowCount());
    file.settings.progress = [&line](qint64 row, qint64) {
        line.show(row);
        return true;
    };
    warnOfQuote(request, *file.rows, context);
    ImportReport::log(request.path, *file.rows, file.schema);
    ImportReport::printSchema(*file.rows, file.schema, context.out());
    return request.isDryRun ? showOnly(request, file, context) : store(request, file, context);
}

ExitCode import(const ImportRequest &request, CommandContext &context)
{
    const LocaleScope scope(request.locale);
    Outcome<ImportFile> file = ImportFile::read(request);
    return file ? importFile(request, *file, context) : context.fail(request.path, file.reason());
}
} // namespace

ExitCode runImportCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    addImportOptions(&parser);
    return context.run(arguments, &parser, checkImport,
                       [](const QCommandLineParser &parsed, CommandContext &target) {
                           return import(requestIn(parsed), target);
                       });
}
