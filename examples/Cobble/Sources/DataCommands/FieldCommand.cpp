#include "FieldCommand.h"

#include "Commands/LibraryJSON.h"
#include "Commands/OptionNames.h"
#include "Commands/StoredLibrary.h"
#include "Commands/UserSettings.h"
#include "DataChange.h"
#include "FieldNames.h"
#include "FieldSettings.h"
#include "Journal/FieldConversion.h"
#include "Library/BundleOption.h"
#include "Making/FieldPlan.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString AtOption = u"at"_s;
const QString FieldSettingOption = u"option"_s;
const QString FieldClearOption = u"clear"_s;
const QString FieldDryRunOption = u"dry-run"_s;

/// The words of the command line, and the place of a field that it names, from 0.
struct FieldRequest
{
    QString action;
    QString library;
    QString field;
    QString what;
    qsizetype place = -1;
    QStringList options;
    bool clears = false;
};

// --- What was asked for

Outcome<qsizetype> placeIn(const QString &text)
{
    bool isNumber = false;
    const qlonglong place = text.toLongLong(&isNumber);
    if (isNumber && place >= 1)
        return qsizetype(place - 1);
    return Failure{u"bad place '%1'; the first field has 1"_s.arg(text)};
}

Outcome<FieldRequest> requestOf(const QStringList &words)
{
    static const QHash<QString, qsizetype> counts = {
        {u"add"_s, 3}, {u"remove"_s, 3}, {u"move"_s, 4}, {u"type"_s, 4}};
    const QString action = words.value(0);
    if (!counts.contains(action))
        return Failure{u"field needs one of add, remove, move, type"_s};
    if (words.size() != counts.value(action))
        return Failure{u"field %1 needs a library%2"_s.arg(
            action, counts.value(action) == 3 ? u" and a field"_s
                    : action == u"move"       ? u", a field and a place"_s
                                              : u", a field and a type"_s)};
    return FieldRequest{action, words.at(1), words.at(2), words.value(3), -1, {}, false};
}

Outcome<FieldRequest> fieldRequestIn(const QCommandLineParser &parser)
{
    Outcome<FieldRequest> request = requestOf(parser.positionalArguments());
    if (!request)
        return request;
    request->options = parser.values(FieldSettingOption);
    request->clears = parser.isSet(FieldClearOption);
    const bool isMove = request->action == u"move";
    if (!isMove && !parser.isSet(AtOption))
        return request;
    const Outcome<qsizetype> number = placeIn(isMove ? request->what : parser.value(AtOption));
    if (!number)
        return number.failure();
    request->place = *number;
    return request;
}

/// The field that is to be, in an add or a type.
Outcome<LibraryField> fieldIn(const FieldRequest &request)
{
    LibraryField field;
    if (request.action == u"add") {
        const Outcome<LibraryField> described = FieldSettings::fieldIn(request.field);
        if (!described)
            return described;
        field = *described;
    } else {
        const Outcome<FieldType> type = FieldSettings::typeIn(request.what);
        if (!type)
            return type.failure();
        field.type = *type;
    }
    const Outcome<> applied = FieldSettings::apply(request.options, &field);
    return applied ? Outcome<LibraryField>(field) : applied.failure();
}

Outcome<> checkField(const QCommandLineParser &parser)
{
    const Outcome<FieldRequest> request = fieldRequestIn(parser);
    if (!request)
        return request.failure();
    if (request->action != u"type" && (request->clears || parser.isSet(FieldDryRunOption)))
        return Failure{u"--clear and --dry-run are for field type"_s};
    const bool hasField = request->action == u"add" || request->action == u"type";
    const Outcome<LibraryField> field = hasField ? fieldIn(*request) : LibraryField();
    if (!field)
        return field.failure();
    return BundleOption::check(parser).andThen([&] { return UserSettings::checkLocale(parser); });
}

// --- Doing it

/// \param sentence says what was done.
Outcome<DataResult> make(const FieldPlan &plan, const QString &sentence, DataChange &change)
{
    return change.make(plan.title(), sentence, [&](StepRecorder &step) { return plan.make(step); });
}

Outcome<DataResult> add(const FieldRequest &request, const Library &library, DataChange &change)
{
    const LibraryField field = *fieldIn(request);
    if (FieldNames::indexOf(library, field.header) >= 0)
        return change.failure(ExitCode::Conflict, u"there is a field '%1'"_s.arg(field.header));
    FieldPlan plan(library);
    plan.add(field, std::min(request.place, library.fields.size()));
    return make(plan, u"Added the field '%1' to '%2'"_s.arg(field.header, library.name), change);
}

Outcome<DataResult> remove(const Library &library, qsizetype field, DataChange &change)
{
    FieldPlan plan(library);
    plan.remove(field);
    const QString title = library.fields.at(field).title();
    return make(plan, u"Removed the field '%1' of '%2'"_s.arg(title, library.name), change);
}

Outcome<DataResult> move(const FieldRequest &request, const Library &library, qsizetype field,
                         DataChange &change)
{
    const qsizetype place = std::min(request.place, library.fields.size() - 1);
    FieldPlan plan(library);
    plan.move(field, place);
    const QString title = library.fields.at(field).title();
    return make(plan,
                u"Moved the field '%1' of '%2' to place %3"_s.arg(title, library.name,
                                                                  QString::number(place + 1)),
                change);
}

/// The field as it will be.
LibraryField changed(const LibraryField &field, const FieldRequest &request)
{
    const LibraryField wanted = *fieldIn(request);
    LibraryField after = field;
    after.type = wanted.type;
    after.options = wanted.options;
    return after;
}

QString firstOf(const FieldConversion::Preview &preview)
{
    const FieldConversion::Unread &first = preview.unread.first();
    return u"record %1, '%2': %3"_s.arg(QString::number(first.record), first.text, first.reason);
}

Outcome<> needReadable(const FieldRequest &request, const FieldConversion::Preview &preview,
                       DataChange &change)
{
    if (preview.unreadCount == 0 || request.clears)
        return {};
    return change.failure(
        ExitCode::Unread,
        u"%1 cannot be read as %2 (%3); --clear empties these fields"_s.arg(
            recordCountText(preview.unreadCount), request.what, firstOf(preview)));
}

QString fieldSentence(const FieldRequest &request, const FieldConversion::Preview &preview)
{
    const QString sentence = u"'%1' is of type %2 now"_s.arg(request.field, request.what);
    return preview.unreadCount == 0
               ? sentence
               : u"%1; it was emptied in %2"_s.arg(sentence, recordCountText(preview.unreadCount));
}

Outcome<DataResult> changeType(const FieldRequest &request, const Library &library, qsizetype field,
                               DataChange &change)
{
    const LibraryField after = changed(library.fields.at(field), request);
    const FieldConversion conversion(library.fields.at(field), after);
    const auto preview = conversion.preview(change.store(), library, field);
    const Outcome<> isReadable =
        preview ? needReadable(request, *preview, change) : preview.failure();
    if (!isReadable)
        return isReadable.failure();
    FieldPlan plan(library);
    plan.setType(field, after.type, after.options);
    plan.setEmptied(field, preview->unreadCount);
    return make(plan, fieldSentence(request, *preview), change);
}

Outcome<DataResult> perform(const FieldRequest &request, DataChange &change)
{
    const Outcome<Library> library = change.libraryNamed(request.library);
    if (!library)
        return library.failure();
    if (request.action == u"add")
        return add(request, *library, change);
    const Outcome<qsizetype> field = change.fieldNamed(*library, request.field);
    if (!field)
        return field.failure();
    if (request.action == u"remove")
        return remove(*library, *field, change);
    return request.action == u"move" ? move(request, *library, *field, change)
                                     : changeType(request, *library, *field, change);
}

// --- Only looking

QJsonObject fieldObject(const FieldConversion::Preview &preview)
{
    QJsonArray unread;
    for (const FieldConversion::Unread &each : preview.unread)
        unread.append(QJsonObject{
            {u"id"_s, each.record}, {u"text"_s, each.text}, {u"reason"_s, each.reason}});
    return {
        {u"read"_s, preview.readCount}, {u"unread"_s, preview.unreadCount}, {u"first"_s, unread}};
}

void printFields(const FieldConversion::Preview &preview, CommandContext &context)
{
    context.out() << u"%1 would be read, %2 would not\n"_s.arg(
        recordCountText(preview.readCount), QString::number(preview.unreadCount));
    AlignedTable table;
    for (const FieldConversion::Unread &each : preview.unread)
        table.addRow({QString::number(each.record), each.text, each.reason});
    table.print(context.out());
}

ExitCode previewType(const FieldRequest &request, const QCommandLineParser &parser,
                     CommandContext &context)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    const auto store = StoredLibrary::openStore(bundle, context);
    if (!store)
        return DataChange::codeWithoutStore(bundle);
    const auto library = StoredLibrary::find(*store, bundle, request.library, context);
    if (!library)
        return ExitCode::NotFound;
    const qsizetype field = FieldNames::indexOf(*library, request.field);
    if (field < 0) {
        context.warn(library->name, u"no field '%1'"_s.arg(request.field));
        return ExitCode::NotFound;
    }
    const LibraryField &before = library->fields.at(field);
    const auto preview =
        FieldConversion(before, changed(before, request)).preview(*store, *library, field);
    if (!preview)
        return context.fail(bundle.bundlePath(), preview.reason());
    if (parser.isSet(JSONOption))
        context.out() << LibraryJSON::textOf(fieldObject(*preview)) << '\n';
    else
        printFields(*preview, context);
    return preview->unreadCount == 0 ? ExitCode::Success : ExitCode::Unread;
}

ExitCode performField(const QCommandLineParser &parser, CommandContext &context)
{
    const LocaleScope scope(UserSettings::localeIn(parser));
    const FieldRequest request = *fieldRequestIn(parser);
    if (request.action == u"type" && parser.isSet(FieldDryRunOption))
        return previewType(request, parser, context);
    return DataChange::run(parser, context, DataChange::Bundle::Existing,
                           [&](DataChange &change) { return perform(request, change); });
}
} // namespace

ExitCode runFieldCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({AtOption, QString(), u"PLACE"_s});
    parser.addOption({FieldSettingOption, QString(), u"KEY=VALUE"_s});
    parser.addOption({FieldClearOption, QString()});
    parser.addOption({FieldDryRunOption, QString()});
    DataChange::addOptions(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, checkField, performField);
}
