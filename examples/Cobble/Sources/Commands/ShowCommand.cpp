#include "ShowCommand.h"

#include "Filter/QueriedRecords.h"
#include "Filter/SmartLibraries.h"
#include "Library/BundleOption.h"
#include "Library/LibraryStore.h"
#include "Library/RecordTexts.h"
#include "LibraryJSON.h"
#include "OptionNames.h"
#include "QueryOptions.h"
#include "StoredLibrary.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"
#include "UserSettings.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
Outcome<> checkShow(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.size() > 1)
        return Failure{u"show takes one library, not also '%1'"_s.arg(names.at(1))};
    if (names.isEmpty() && QueryOptions::areGiven(parser))
        return Failure{u"only with a library there are records to choose from"_s};
    return QueryOptions::check(parser)
        .andThen([&] { return BundleOption::check(parser); })
        .andThen([&] { return UserSettings::checkLocale(parser); });
}

/// No more records than these are looked at to count those of smart libraries: to list what there is
/// takes no minutes.
constexpr qint64 MostLookedAt = 1'000'000;
const QString NotCounted = u"–"_s;

QString countOf(LibraryStore &store, const Library &library, const RecordQuery &query)
{
    QueriedRecords records(store, library, query);
    qint64 count = 0;
    while (records.next())
        ++count;
    return records.outcome() ? QString::number(count) : NotCounted;
}

/// The texts for the fields and the records of a smart library: no numbers if it no longer fits, and
/// none of records if they take too long to count.
QStringList numbersOfSmart(LibraryStore &store, const SmartLibrary &smart, const Library &library,
                           qint64 *left)
{
    auto query = SmartLibraries::queryOf(smart, std::make_shared<FilterFields>(library));
    if (!query)
        return {NotCounted, NotCounted};
    const qsizetype fields =
        query->columns.isEmpty() ? library.fields.size() : query->columns.size();
    const qint64 all = store.recordCount(library).valueOr(*left + 1);
    const bool isCounted = !query->filter.isSlow() && all <= *left;
    *left -= isCounted ? all : 0;
    query->order.clear();
    return {QString::number(fields), isCounted ? countOf(store, library, *query) : NotCounted};
}

/// The smart ones below the libraries, with "of" and the library that they filter.
Outcome<> addSmartLibraries(LibraryStore &store, const QList<Library> &libraries,
                            AlignedTable *table)
{
    const auto all = SmartLibraries::all(store);
    if (!all)
        return all.failure();
    qint64 left = MostLookedAt;
    for (const SmartLibrary &smart : *all) {
        const auto library = SmartLibraries::libraryOf(smart, libraries);
        if (library)
            table->addRow(QStringList{smart.name, u"of "_s + library->name} +
                          numbersOfSmart(store, smart, *library, &left));
    }
    return {};
}

Outcome<AlignedTable> tableOf(LibraryStore &store)
{
    AlignedTable table;
    table.addRow({u"Library"_s, u"Table"_s, u"Fields"_s, u"Records"_s});
    const Outcome<QList<Library>> libraries = store.libraries();
    // Of tables that cannot be read, the last one is reported.
    Outcome<> read = libraries ? Outcome<>() : libraries.failure();
    for (const Library &library : libraries.valueOr({})) {
        const Outcome<qint64> count = store.recordCount(library);
        if (!count)
            read = count.failure();
        table.addRow({library.name, library.tableName, QString::number(library.fields.size()),
                      QString::number(count.valueOr(0))});
    }
    read = read.andThen([&] { return addSmartLibraries(store, *libraries, &table); });
    return read ? Outcome<AlignedTable>(table) : read.failure();
}

ExitCode showLibraries(LibraryStore &store, const QString &bundlePath, CommandContext &context)
{
    const Outcome<AlignedTable> table = tableOf(store);
    if (!table)
        return context.fail(bundlePath, table.reason());
    table->print(context.out());
    return ExitCode::Success;
}

ExitCode showLibrariesAsJSON(LibraryStore &store, const QString &bundlePath,
                             CommandContext &context)
{
    QJsonArray array;
    const Outcome<QList<Library>> libraries = store.libraries();
    Outcome<> read = libraries ? Outcome<>() : libraries.failure();
    for (const Library &library : libraries.valueOr({})) {
        const Outcome<qint64> count = store.recordCount(library);
        if (!count)
            read = count.failure();
        QJsonObject object = LibraryJSON::describing(library);
        object.insert(u"records"_s, count.valueOr(0));
        array.append(object);
    }
    if (!read)
        return context.fail(bundlePath, read.reason());
    context.out() << LibraryJSON::textOf({{u"libraries"_s, array}}) << '\n';
    return ExitCode::Success;
}

/// Prints each record as soon as it is read. What is printed of a library that cannot be read to its
/// end is no JSON.
ExitCode showRecordsAsJSON(LibraryStore &store, const Library &library, const RecordQuery &query,
                           CommandContext &context)
{
    QueriedRecords records(store, library, query);
    const QStringList names = LibraryJSON::namesOf(records.library());
    QString beginning = LibraryJSON::textOf(LibraryJSON::describing(records.library()));
    beginning.chop(1);
    context.out() << beginning << ",\"records\":[";
    for (bool isFirst = true; records.next(); isFirst = false)
        context.out() << (isFirst ? "\n" : ",\n")
                      << LibraryJSON::textOf(LibraryJSON::recordOf(names, records));
    if (const Outcome<> read = records.outcome(); !read)
        return context.fail(library.name, read.reason());
    context.out() << "\n]}\n";
    return ExitCode::Success;
}

QString countText(qint64 shown, qint64 all)
{
    const QString text = recordCountText(all);
    return shown == all ? text : u"%1 of %2"_s.arg(QString::number(shown), text);
}

ExitCode showRecords(LibraryStore &store, const Library &library, const RecordQuery &query,
                     CommandContext &context)
{
    QueriedRecords records(store, library, query);
    const RecordTexts texts(records.library());
    AlignedTable table;
    table.addRow(texts.titles());
    qint64 count = 0;
    for (; records.next(); ++count)
        table.addRow(texts.textsOf(records));
    if (const Outcome<> read = records.outcome(); !read)
        return context.fail(library.name, read.reason());
    table.print(context.out());
    context.out() << '\n' << countText(count, store.recordCount(library).valueOr(0)) << '\n';
    return ExitCode::Success;
}

ExitCode show(const QCommandLineParser &parser, CommandContext &context)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    const auto store = StoredLibrary::openStore(bundle, context);
    if (!store)
        return ExitCode::Failure;
    const bool isJSON = parser.isSet(JSONOption);
    if (parser.positionalArguments().isEmpty())
        return (isJSON ? showLibrariesAsJSON : showLibraries)(*store, bundle.bundlePath(), context);
    const QString name = parser.positionalArguments().first();
    const LocaleScope scope(UserSettings::localeIn(parser));
    const auto found = StoredLibrary::findRecords(*store, bundle, name, context);
    if (!found)
        return ExitCode::Failure;
    const Outcome<RecordQuery> query = QueryOptions::queryIn(parser, found->library, found->query);
    if (!query)
        return context.fail(query.reason());
    const auto show = isJSON ? showRecordsAsJSON : showRecords;
    return show(*store, found->library, *query, context);
}
} // namespace

ExitCode runShowCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    QueryOptions::add(&parser);
    parser.addOption({JSONOption, QString()});
    BundleOption::add(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkShow, show);
}
