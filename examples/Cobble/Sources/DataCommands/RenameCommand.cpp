#include "RenameCommand.h"

#include "DataChange.h"
#include "FieldNames.h"
#include "Library/BundleOption.h"
#include "Making/FieldPlan.h"

using namespace Qt::StringLiterals;

namespace {
const QString RenamedFieldOption = u"field"_s;

Outcome<> checkRename(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.size() != 2)
        return Failure{u"rename needs a library and a new name"_s};
    if (names.at(1).trimmed().isEmpty())
        return Failure{u"the new name is empty"_s};
    return BundleOption::check(parser);
}

Outcome<DataResult> renameLibrary(const Library &library, const QString &name, DataChange &change)
{
    if (const Outcome<> isFree = change.needFreeName(name, library.tableName); !isFree)
        return isFree.failure();
    return change.make({StepKinds::RenameLibrary, {{StepParameters::Library, name}}},
                       u"Renamed '%1' to '%2'"_s.arg(library.name, name),
                       [&](StepRecorder &step) -> Outcome<> {
                           const Outcome<Library> renamed = step.renameLibrary(library, name);
                           return renamed ? Outcome<>() : renamed.failure();
                       });
}

Outcome<DataResult> renameField(const Library &library, const QString &field, const QString &name,
                                DataChange &change)
{
    const Outcome<qsizetype> index = change.fieldNamed(library, field);
    if (!index)
        return index.failure();
    const qsizetype other = FieldNames::indexOf(library, name);
    if (other >= 0 && other != *index)
        return change.failure(ExitCode::Conflict,
                              u"there is a field '%1'"_s.arg(library.fields.at(other).title()));
    FieldPlan plan(library);
    plan.rename(*index, name);
    return change.make(plan.title(),
                       u"Renamed '%1' of '%2' to '%3'"_s.arg(library.fields.at(*index).title(),
                                                             library.name, name),
                       [&](StepRecorder &step) { return plan.make(step); });
}

ExitCode performRename(const QCommandLineParser &parser, CommandContext &context)
{
    const QStringList names = parser.positionalArguments();
    return DataChange::run(parser, context, DataChange::Bundle::Existing,
                           [&](DataChange &change) -> Outcome<DataResult> {
                               const Outcome<Library> library = change.libraryNamed(names.first());
                               if (!library)
                                   return library.failure();
                               return parser.isSet(RenamedFieldOption)
                                          ? renameField(*library, parser.value(RenamedFieldOption),
                                                        names.at(1), change)
                                          : renameLibrary(*library, names.at(1), change);
                           });
}
} // namespace

ExitCode runRenameCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({RenamedFieldOption, QString(), u"OLD"_s});
    DataChange::addOptions(&parser);
    return context.run(arguments, &parser, checkRename, performRename);
}
