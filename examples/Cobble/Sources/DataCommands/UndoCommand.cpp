#include "UndoCommand.h"

#include "Commands/LibraryJSON.h"
#include "Commands/OptionNames.h"
#include "Commands/StoredLibrary.h"
#include "DataChange.h"
#include "Library/BundleOption.h"
#include "Text/AlignedTable.h"
#include "Text/ISODateText.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
const QString ListOption = u"list"_s;

using Step = ChangeJournal::Step;

// --- The list

/// What a step was done to, as far as it is of one thing: "People Age 3".
QString subjectOf(const StepTitle &title)
{
    QStringList words;
    for (const QString &key :
         {StepParameters::Library, StepParameters::Field, StepParameters::Count}) {
        if (title.parameters.contains(key))
            words += title.parameters.value(key).toString();
    }
    return words.join(u", "_s);
}

QJsonObject objectOf(const Step &step)
{
    QJsonObject object = QJsonObject::fromVariantMap(step.title.parameters);
    object.insert(u"kind"_s, step.title.kind);
    object.insert(u"step"_s, step.number);
    object.insert(u"time"_s, isoDateText(step.time));
    object.insert(u"done"_s, step.isDone);
    return object;
}

void printList(const QList<Step> &steps, CommandContext &context)
{
    AlignedTable table;
    table.addRow({u"Step"_s, u"Time"_s, u"State"_s, u"Kind"_s, u"What"_s});
    for (const Step &step : steps)
        table.addRow({QString::number(step.number), isoDateText(step.time),
                      step.isDone ? u"done"_s : u"undone"_s, step.title.kind,
                      subjectOf(step.title)});
    table.print(context.out());
}

void printListAsJSON(const QList<Step> &steps, CommandContext &context)
{
    QJsonArray array;
    for (const Step &step : steps)
        array.append(objectOf(step));
    context.out() << LibraryJSON::textOf({{u"steps"_s, array}}) << '\n';
}

ExitCode list(const QCommandLineParser &parser, CommandContext &context)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    const auto store = StoredLibrary::openStore(bundle, context);
    if (!store)
        return DataChange::codeWithoutStore(bundle);
    const Outcome<QList<Step>> steps = ChangeJournal(*store).steps();
    if (!steps)
        return context.fail(bundle.bundlePath(), steps.reason());
    (parser.isSet(JSONOption) ? printListAsJSON : printList)(*steps, context);
    return ExitCode::Success;
}

// --- Playing a step

/// The number that is typed; 0 if there is none.
Outcome<qint64> numberIn(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.isEmpty())
        return 0;
    bool isNumber = false;
    const qint64 number = arguments.first().toLongLong(&isNumber);
    if (arguments.size() > 1 || !isNumber || number < 1)
        return Failure{u"'%1' is no number of a step"_s.arg(arguments.last())};
    return number;
}

/// The step to play, which is the last one unless it has a number.
Outcome<Step> stepFor(ChangeJournal &journal, qint64 number, bool isUndo, DataChange &change)
{
    const auto found =
        number > 0 ? journal.step(number) : (isUndo ? journal.last() : journal.lastUndone());
    if (!found)
        return found.failure();
    if (!*found)
        return change.failure(ExitCode::NotFound, number > 0 ? u"no step %1"_s.arg(number)
                                                  : isUndo   ? u"there is nothing to undo"_s
                                                             : u"there is nothing to redo"_s);
    if ((*found)->isDone != isUndo)
        return change.failure(ExitCode::Conflict,
                              isUndo ? u"it was undone already"_s : u"it was not undone"_s);
    return **found;
}

Outcome<DataResult> play(qint64 number, bool isUndo, DataChange &change)
{
    ChangeJournal journal(change.store());
    const Outcome<Step> step = stepFor(journal, number, isUndo, change);
    if (!step)
        return step.failure();
    const auto played = isUndo ? journal.undo(step->number) : journal.redo(step->number);
    if (!played)
        return change.failure(ExitCode::Conflict,
                              u"step %1: %2"_s.arg(step->number).arg(played.reason()));
    Step after = *step;
    after.isDone = !isUndo;
    return DataResult{u"%1 step %2 (%3: %4)"_s.arg(isUndo ? u"Undid"_s : u"Redid"_s)
                          .arg(after.number)
                          .arg(after.title.kind, subjectOf(after.title)),
                      objectOf(after)};
}

Outcome<> checkUndo(const QCommandLineParser &parser)
{
    const Outcome<qint64> number = numberIn(parser);
    return number ? BundleOption::check(parser) : number.failure();
}

template<bool isUndo>
ExitCode performPlay(const QCommandLineParser &parser, CommandContext &context)
{
    return DataChange::run(parser, context, DataChange::Bundle::Existing, [&](DataChange &change) {
        return play(*numberIn(parser), isUndo, change);
    });
}

ExitCode performUndo(const QCommandLineParser &parser, CommandContext &context)
{
    return parser.isSet(ListOption) ? list(parser, context) : performPlay<true>(parser, context);
}
} // namespace

ExitCode runUndoCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({ListOption, QString()});
    DataChange::addOptions(&parser);
    return context.run(arguments, &parser, checkUndo, performUndo);
}

ExitCode runRedoCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    DataChange::addOptions(&parser);
    return context.run(arguments, &parser, checkUndo, performPlay<false>);
}
