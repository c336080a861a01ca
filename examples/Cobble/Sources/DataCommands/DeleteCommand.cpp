#include "DeleteCommand.h"

#include "DataChange.h"
#include "Library/BundleOption.h"
#include "RecordNumbers.h"
#include "Text/PrintableText.h"

using namespace Qt::StringLiterals;

namespace {
/// A script whose list of numbers is empty must not delete everything.
const QString LibraryOption = u"library"_s;

Outcome<> checkDelete(const QCommandLineParser &parser)
{
    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return Failure{u"delete needs the name of a library"_s};
    arguments.removeFirst();
    const Outcome<QList<qint64>> numbers = RecordNumbers::taken(&arguments);
    if (!numbers)
        return numbers.failure();
    if (!arguments.isEmpty())
        return Failure{u"'%1' is no number of a record"_s.arg(arguments.first())};
    if (parser.isSet(LibraryOption) == !numbers->isEmpty())
        return Failure{u"delete needs the numbers of records, or --library for all of it"_s};
    return BundleOption::check(parser);
}

Outcome<DataResult> deleteLibrary(const Library &library, DataChange &change)
{
    return change.make({StepKinds::RemoveLibrary, {{StepParameters::Library, library.name}}},
                       u"Deleted the library '%1'"_s.arg(library.name),
                       [&](StepRecorder &step) { return step.removeLibrary(library); });
}

Outcome<> removeAll(const Library &library, const QList<qint64> &numbers, StepRecorder &step)
{
    Outcome<> removed;
    for (const qint64 number : numbers)
        removed = removed.andThen([&] { return step.remove(library, number); });
    return removed;
}

Outcome<DataResult> deleteRecords(const Library &library, const QList<qint64> &numbers,
                                  DataChange &change)
{
    if (const Outcome<> areThere = RecordNumbers::need(change, library, numbers); !areThere)
        return areThere.failure();
    const StepTitle title = {
        StepKinds::Delete,
        {{StepParameters::Library, library.name}, {StepParameters::Count, numbers.size()}}};
    Outcome<DataResult> result = change.make(
        title, u"Deleted %1 of '%2'"_s.arg(recordCountText(numbers.size()), library.name),
        [&](StepRecorder &step) { return removeAll(library, numbers, step); });
    if (result)
        result->object.insert(u"records"_s, RecordNumbers::arrayOf(numbers));
    return result;
}

ExitCode performDelete(const QCommandLineParser &parser, CommandContext &context)
{
    QStringList arguments = parser.positionalArguments();
    const QString name = arguments.takeFirst();
    const QList<qint64> numbers = *RecordNumbers::taken(&arguments);
    return DataChange::run(parser, context, DataChange::Bundle::Existing,
                           [&](DataChange &change) -> Outcome<DataResult> {
                               const Outcome<Library> library = change.libraryNamed(name);
                               if (!library)
                                   return library.failure();
                               return numbers.isEmpty() ? deleteLibrary(*library, change)
                                                        : deleteRecords(*library, numbers, change);
                           });
}
} // namespace

ExitCode runDeleteCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({LibraryOption, QString()});
    DataChange::addOptions(&parser);
    return context.run(arguments, &parser, checkDelete, performDelete);
}
