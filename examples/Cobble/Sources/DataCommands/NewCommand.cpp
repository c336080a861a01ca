#include "NewCommand.h"

#include "Commands/OptionNames.h"
#include "Commands/StandardStreams.h"
#include "Commands/UserSettings.h"
#include "DataChange.h"
#include "FieldSettings.h"
#include "JSONRecords.h"
#include "Library/BundleOption.h"
#include "RecordNumbers.h"
#include "Text/PrintableText.h"
#include "TypedRecord.h"

using namespace Qt::StringLiterals;

namespace {
const QString FieldOption = u"field"_s;
const QString RecordOption = u"record"_s;

Outcome<> checkLibrary(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.size() > 1)
        return Failure{u"new takes one library, not also '%1'; for a record, give --record"_s.arg(
            names.at(1))};
    Outcome<> checked;
    for (const QString &text : parser.values(FieldOption))
        checked = checked.andThen([&] {
            const Outcome<LibraryField> field = FieldSettings::fieldIn(text);
            return field ? Outcome<>() : field.failure();
        });
    return checked;
}

Outcome<> checkRecord(const QCommandLineParser &parser)
{
    if (parser.isSet(FieldOption))
        return Failure{u"--field makes a library, --record adds to one"_s};
    return TypedRecord::check(parser.positionalArguments().sliced(1));
}

Outcome<> checkNew(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty() || arguments.first().trimmed().isEmpty())
        return Failure{u"new needs the name of a library"_s};
    return BundleOption::check(parser)
        .andThen([&] { return UserSettings::checkLocale(parser); })
        .andThen([&] {
            return parser.isSet(RecordOption) ? checkRecord(parser) : checkLibrary(parser);
        });
}

// --- A library

Outcome<Library> newLibraryIn(const QCommandLineParser &parser)
{
    Library library;
    library.name = parser.positionalArguments().first();
    const QStringList texts = parser.values(FieldOption);
    for (const QString &text : texts.isEmpty() ? QStringList(u"Name"_s) : texts) {
        Outcome<LibraryField> field = FieldSettings::fieldIn(text);
        const Outcome<> applied = field ? FieldSettings::apply({}, &*field) : field.failure();
        if (!applied)
            return applied.failure();
        library.fields += *field;
    }
    return library;
}

Outcome<DataResult> makeLibrary(const Library &library, DataChange &change)
{
    if (const Outcome<> isFree = change.needFreeName(library.name); !isFree)
        return isFree.failure();
    return change.make({StepKinds::NewLibrary, {{StepParameters::Library, library.name}}},
                       u"Made the library '%1'"_s.arg(library.name),
                       [&](StepRecorder &step) -> Outcome<> {
                           const Outcome<Library> made = step.createLibrary(library);
                           return made ? Outcome<>() : made.failure();
                       });
}

ExitCode newLibrary(const QCommandLineParser &parser, CommandContext &context)
{
    const Outcome<Library> library = newLibraryIn(parser);
    if (!library)
        return context.wrongUsage(library.reason());
    BundleOption::needFolderOf(BundleOption::bundleIn(parser));
    return DataChange::run(parser, context, DataChange::Bundle::Created,
                           [&](DataChange &change) { return makeLibrary(*library, change); });
}

// --- Records

Outcome<> insert(const Library &library, const QList<FieldValues> &records, StepRecorder &step,
                 QList<qint64> *numbers)
{
    for (const FieldValues &record : records) {
        QVariantList values(library.fields.size());
        for (auto entry = record.begin(); entry != record.end(); ++entry)
            values[entry.key()] = entry.value();
        const Outcome<qint64> number = step.insert(library, values);
        if (!number)
            return number.failure();
        *numbers += *number;
    }
    return {};
}

QString sentenceFor(const QList<qint64> &numbers, const Library &library)
{
    return numbers.size() == 1
               ? u"Added record %1 to '%2'"_s.arg(QString::number(numbers.first()), library.name)
               : u"Added %1 to '%2'"_s.arg(recordCountText(numbers.size()), library.name);
}

Outcome<DataResult> addRecords(const Library &library, const QList<FieldValues> &records,
                               DataChange &change)
{
    QList<qint64> numbers;
    const StepTitle title = {
        StepKinds::Insert,
        {{StepParameters::Library, library.name}, {StepParameters::Count, records.size()}}};
    Outcome<DataResult> result = change.make(title, QString(), [&](StepRecorder &step) {
        return insert(library, records, step, &numbers);
    });
    if (!result)
        return result;
    result->sentence = sentenceFor(numbers, library);
    result->object.insert(u"records"_s, RecordNumbers::arrayOf(numbers));
    return result;
}

/// \param json null for records that are typed.
Outcome<QList<FieldValues>> recordsIn(const Library &library, const QStringList &texts,
                                      const QByteArray *json, DataChange &change)
{
    if (!json) {
        const Outcome<FieldValues> record = TypedRecord::read(change, library, texts);
        return record ? Outcome<QList<FieldValues>>({*record}) : record.failure();
    }
    const Outcome<QList<JSONRecord>> read = JSONRecords::read(change, library, *json);
    if (!read)
        return read.failure();
    QList<FieldValues> records;
    for (const JSONRecord &record : *read)
        records += record.values;
    return records;
}

ExitCode newRecords(const QCommandLineParser &parser, CommandContext &context)
{
    const QStringList texts = parser.positionalArguments().sliced(1);
    const bool isJSON = parser.isSet(JSONOption) && texts.isEmpty();
    const Outcome<QByteArray> input = isJSON ? readStandardInput() : QByteArray();
    if (!input)
        return context.fail(u"standard input"_s, input.reason());
    return DataChange::run(
        parser, context, DataChange::Bundle::Existing,
        [&](DataChange &change) -> Outcome<DataResult> {
            const auto library = change.libraryNamed(parser.positionalArguments().first());
            if (!library)
                return library.failure();
            const auto records = recordsIn(*library, texts, isJSON ? &*input : nullptr, change);
            return records ? addRecords(*library, *records, change) : records.failure();
        });
}

ExitCode performNew(const QCommandLineParser &parser, CommandContext &context)
{
    const LocaleScope scope(UserSettings::localeIn(parser));
    return parser.isSet(RecordOption) ? newRecords(parser, context) : newLibrary(parser, context);
}
} // namespace

ExitCode runNewCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({FieldOption, QString(), u"NAME:TYPE"_s});
    parser.addOption({RecordOption, QString()});
    DataChange::addOptions(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkNew, performNew);
}
