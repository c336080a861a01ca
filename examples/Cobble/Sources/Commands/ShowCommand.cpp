#include "ShowCommand.h"

#include "Library/BundleOption.h"
#include "Library/LibraryStore.h"
#include "Library/RecordTexts.h"
#include "StoredLibrary.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"
#include "UserSettings.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString LimitOption = u"limit"_s;

/// The number of records that are wanted, −1 for all; nothing if what was typed is no number.
std::optional<qint64> limitIn(const QCommandLineParser &parser)
{
    if (!parser.isSet(LimitOption))
        return -1;
    bool isNumber = false;
    const qint64 limit = parser.value(LimitOption).toLongLong(&isNumber);
    return isNumber && limit >= 0 ? std::optional(limit) : std::nullopt;
}

Outcome<> checkShow(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.size() > 1)
        return Failure{u"show takes one library, not also '%1'"_s.arg(names.at(1))};
    if (!limitIn(parser))
        return Failure{u"bad limit '%1'"_s.arg(parser.value(LimitOption))};
    return BundleOption::check(parser).andThen([&] { return UserSettings::checkLocale(parser); });
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

QString countText(qint64 shown, qint64 all)
{
    const QString text = recordCountText(all);
    return shown == all ? text : u"%1 of %2"_s.arg(QString::number(shown), text);
}

ExitCode showRecords(LibraryStore &store, const Library &library, qint64 limit,
                     CommandContext &context)
{
    const RecordTexts texts(library);
    AlignedTable table;
    table.addRow(texts.titles());
    RecordCursor records = store.records(library, limit);
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
    if (parser.positionalArguments().isEmpty())
        return showLibraries(*store, bundle.bundlePath(), context);
    const QString name = parser.positionalArguments().first();
    const std::optional<Library> library = StoredLibrary::find(*store, bundle, name, context);
    if (!library)
        return ExitCode::Failure;
    const LocaleScope scope(UserSettings::localeIn(parser));
    return showRecords(*store, *library, *limitIn(parser), context);
}
} // namespace

ExitCode runShowCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({LimitOption, QString(), u"N"_s});
    BundleOption::add(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkShow, show);
}
