#include "ExportCommand.h"

#include "Export/LibraryExport.h"
#include "Filter/QueriedRecords.h"
#include "Library/BundleOption.h"
#include "OptionNames.h"
#include "QueryOptions.h"
#include "StoredLibrary.h"
#include "Text/PrintableText.h"
#include "UserSettings.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
Outcome<> checkExport(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.size() != 1)
        return Failure{u"export needs the name of one library"_s};
    if (parser.value(ToOption).isEmpty())
        return Failure{u"export needs --to and the name of a file"_s};
    return QueryOptions::check(parser)
        .andThen([&] { return BundleOption::check(parser); })
        .andThen([&] { return UserSettings::checkLocale(parser); });
}

ExitCode exportLibrary(LibraryStore &store, const Library &library, const RecordQuery &query,
                       const QString &path, CommandContext &context)
{
    QueriedRecords records(store, library, query);
    const Outcome<qint64> count = LibraryExport::run(records, path);
    if (!count)
        return context.fail(count.reason());
    context.out() << u"Exported %1 of the library '%2' to %3\n"_s.arg(
        recordCountText(*count), printableText(library.name), printableText(path));
    return ExitCode::Success;
}

ExitCode runExport(const QCommandLineParser &parser, CommandContext &context)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    const auto store = StoredLibrary::openStore(bundle, context);
    if (!store)
        return ExitCode::Failure;
    const QString name = parser.positionalArguments().first();
    const LocaleScope scope(UserSettings::localeIn(parser));
    const auto found = StoredLibrary::findRecords(*store, bundle, name, context);
    if (!found)
        return ExitCode::Failure;
    const Outcome<RecordQuery> query = QueryOptions::queryIn(parser, found->library, found->query);
    return query ? exportLibrary(*store, found->library, *query, parser.value(ToOption), context)
                 : context.fail(query.reason());
}
} // namespace

ExitCode runExportCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({ToOption, QString(), u"FILE"_s});
    QueryOptions::add(&parser);
    BundleOption::add(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkExport, runExport);
}
