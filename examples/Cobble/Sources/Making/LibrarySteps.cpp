#include "LibrarySteps.h"

#include "Fields/FieldReader.h"

#include <KTUtility/KTOptionsKeys>

#include <QCoreApplication>

#include <algorithm>

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

/// Whether a new field can have a name.
Outcome<> checkField(const Library &library, const QString &name)
{
    if (name.isEmpty())
        return Failure{StepTexts::tr("a field needs a name")};
    const bool isTaken = std::any_of(
        library.fields.begin(), library.fields.end(), [&name](const LibraryField &field) {
            return field.title().compare(name, Qt::CaseInsensitive) == 0;
        });
    return isTaken ? Failure{StepTexts::tr("there is a field of that name")} : Outcome<>();
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
    LibraryField field;
    field.header = name.trimmed();
    field.type = type;
    if (const Outcome<> checked = checkField(library, field.header); !checked)
        return checked;
    const QString currency = FieldReader(type).currencyType();
    if (!currency.isNull())
        field.options.insert(kKTFieldOption_currencyType, currency);
    StepTitle title = libraryStepTitle(StepKinds::AddField, library.name);
    title.parameters.insert(StepParameters::Field, field.header);
    return change(title, [&](StepRecorder &step) { return done(step.addField(library, field)); });
}
