#include "LibrarySteps.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {
class StepTexts
{
    Q_DECLARE_TR_FUNCTIONS(LibrarySteps)
};

Outcome<> done(const Outcome<Library> &changed)
{
    return changed ? Outcome<>() : changed.failure();
}

StepTitle libraryStepTitle(const QString &kind, const QString &library)
{
    return {kind, {{StepParameters::Library, library}}};
}

} // namespace

Outcome<> LibrarySteps::makeLibrary(const Change &change, const QString &name)
{
    Library library;
    library.name = name.trimmed();
    LibraryField field;
    field.header = StepTexts::tr("Name");
    library.fields = {field};
    return change(libraryStepTitle(StepKinds::NewLibrary, library.name),
                  [&](StepRecorder &step) { return done(step.createLibrary(library)); });
}

Outcome<> LibrarySteps::renameLibrary(const Change &change, const Library &library,
                                      const QString &name)
{
    return change(
        libraryStepTitle(StepKinds::RenameLibrary, name.trimmed()),
        [&](StepRecorder &step) { return done(step.renameLibrary(library, name.trimmed())); });
}

Outcome<> LibrarySteps::removeLibrary(const Change &change, const Library &library)
{
    return change(libraryStepTitle(StepKinds::RemoveLibrary, library.name),
                  [&](StepRecorder &step) { return step.removeLibrary(library); });
}

Outcome<> LibrarySteps::addField(const Change &change, const Library &library, const QString &name,
                                 FieldType type)
{
    FieldPlan plan(library);
    plan.add(FieldPlan::newField(name, type));
    return changeFields(change, plan);
}

Outcome<> LibrarySteps::moveField(const Change &change, const Library &library, qsizetype from,
                                  qsizetype to)
{
    FieldPlan plan(library);
    plan.move(from, to);
    return changeFields(change, plan);
}

Outcome<> LibrarySteps::changeFields(const Change &change, const FieldPlan &plan)
{
    return plan.check().andThen(
        [&] { return change(plan.title(), [&](StepRecorder &step) { return plan.make(step); }); });
}
