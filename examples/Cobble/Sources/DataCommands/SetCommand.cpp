#include "SetCommand.h"

#include "Commands/OptionNames.h"
#include "Commands/StandardStreams.h"
#include "Commands/UserSettings.h"
#include "DataChange.h"
#include "JSONRecords.h"
#include "Library/BundleOption.h"
#include "RecordNumbers.h"
#include "Text/PrintableText.h"
#include "TypedRecord.h"

using namespace Qt::StringLiterals;

namespace {
/// What stands on the command line.
struct Request
{
    QString library;
    QList<qint64> numbers;
    QStringList texts;
    /// Whether the records come from the standard input.
    bool isJSON = false;
};

Outcome<Request> requestIn(const QCommandLineParser &parser)
{
    QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return Failure{u"set needs the name of a library"_s};
    Request request;
    request.library = arguments.takeFirst();
    request.isJSON = parser.isSet(JSONOption) && arguments.isEmpty();
    const Outcome<QList<qint64>> numbers = RecordNumbers::taken(&arguments);
    if (!numbers)
        return numbers.failure();
    request.numbers = *numbers;
    request.texts = arguments;
    return request;
}

Outcome<> checkSet(const QCommandLineParser &parser)
{
    const Outcome<Request> request = requestIn(parser);
    if (!request)
        return request.failure();
    if (!request->isJSON && (request->numbers.isEmpty() || request->texts.isEmpty()))
        return Failure{u"set needs numbers of records and FIELD=VALUE"_s};
    return TypedRecord::check(request->texts)
        .andThen([&] { return BundleOption::check(parser); })
        .andThen([&] { return UserSettings::checkLocale(parser); });
}

/// The same values for all records that are named.
Outcome<QList<JSONRecord>> typedRecords(const Request &request, const Library &library,
                                        DataChange &change)
{
    const Outcome<FieldValues> values = TypedRecord::read(change, library, request.texts);
    if (!values)
        return values.failure();
    QList<JSONRecord> records;
    for (const qint64 number : request.numbers)
        records += JSONRecord{number, *values};
    return records;
}

/// The numbers of records, all of which must have one.
Outcome<QList<qint64>> numbersOf(const QList<JSONRecord> &records, DataChange &change)
{
    QList<qint64> numbers;
    for (const JSONRecord &record : records) {
        if (!record.id)
            return change.failure(ExitCode::Unread, u"a record has no \"id\""_s);
        numbers += *record.id;
    }
    return numbers;
}

Outcome<> update(const Library &library, const JSONRecord &record, StepRecorder &step)
{
    Outcome<> updated;
    for (auto entry = record.values.begin(); entry != record.values.end(); ++entry)
        updated = updated.andThen(
            [&] { return step.update(library, *record.id, entry.key(), entry.value()); });
    return updated;
}

/// Menus name the field if it is only one.
StepTitle titleOf(const Library &library, const QList<JSONRecord> &records)
{
    StepTitle title = {
        StepKinds::Edit,
        {{StepParameters::Library, library.name}, {StepParameters::Count, records.size()}}};
    if (!records.isEmpty() && records.first().values.size() == 1)
        title.parameters.insert(StepParameters::Field,
                                library.fields.at(records.first().values.firstKey()).title());
    return title;
}

Outcome<DataResult> writeChanges(const Library &library, const QList<JSONRecord> &records,
                                 DataChange &change)
{
    const Outcome<QList<qint64>> numbers = numbersOf(records, change);
    const Outcome<> areThere =
        numbers ? RecordNumbers::need(change, library, *numbers) : numbers.failure();
    if (!areThere)
        return areThere.failure();
    Outcome<DataResult> result =
        change.make(titleOf(library, records),
                    u"Changed %1 of '%2'"_s.arg(recordCountText(records.size()), library.name),
                    [&](StepRecorder &step) {
                        Outcome<> updated;
                        for (const JSONRecord &record : records)
                            updated =
                                updated.andThen([&] { return update(library, record, step); });
                        return updated;
                    });
    if (result)
        result->object.insert(u"records"_s, RecordNumbers::arrayOf(*numbers));
    return result;
}

ExitCode performSet(const QCommandLineParser &parser, CommandContext &context)
{
    const LocaleScope scope(UserSettings::localeIn(parser));
    const Request request = *requestIn(parser);
    const Outcome<QByteArray> input = request.isJSON ? readStandardInput() : QByteArray();
    if (!input)
        return context.fail(u"standard input"_s, input.reason());
    return DataChange::run(parser, context, DataChange::Bundle::Existing,
                           [&](DataChange &data) -> Outcome<DataResult> {
                               const auto library = data.libraryNamed(request.library);
                               if (!library)
                                   return library.failure();
                               const auto records = request.isJSON
                                                        ? JSONRecords::read(data, *library, *input)
                                                        : typedRecords(request, *library, data);
                               return records ? writeChanges(*library, *records, data)
                                              : records.failure();
                           });
}
} // namespace

ExitCode runSetCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    DataChange::addOptions(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkSet, performSet);
}
