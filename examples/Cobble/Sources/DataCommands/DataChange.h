#pragma once

#include "Commands/CommandContext.h"
#include "Import/ImportTransaction.h"
#include "Journal/ChangeJournal.h"
#include "Text/Outcome.h"

#include <QCommandLineParser>
#include <QJsonObject>

#include <functional>
#include <memory>

/// What a command that changes data has done.
struct DataResult
{
    /// For people, without a full stop.
    QString sentence;
    /// For scripts.
    QJsonObject object;
};

/// A change of data that a command makes: all of it or nothing, while nobody else changes the bundle.
///
/// \code
/// return DataChange::run(parser, context, DataChange::Bundle::Existing,
///                        [&](DataChange &change) -> Outcome<DataResult> {
///                            const Outcome<Library> library = change.libraryNamed(u"People"_s);
///                            …
///                        });
/// \endcode
class DataChange
{
public:
    enum class Bundle {
        Existing, ///< one that is not there is an error
        Created,  ///< made if there is none
    };
    using Work = std::function<Outcome<DataResult>(DataChange &change)>;
    using Changes = std::function<Outcome<>(StepRecorder &step)>;

    /// Adds --bundle and --json, which all of these commands have.
    static void addOptions(QCommandLineParser *parser);
    /// Does some work, and prints what has come of it, or why nothing has.
    static ExitCode run(const QCommandLineParser &parser, CommandContext &context, Bundle bundle,
                        const Work &work);

    /// For a bundle whose database cannot be opened: whether there is none.
    static ExitCode codeWithoutStore(const KTDatabaseBundle &bundle);

    LibraryStore &store() { return _transaction->store(); }
    /// Fails with ExitCode::NotFound.
    Outcome<Library> libraryNamed(const QString &name);
    /// Fails with ExitCode::Conflict if there is a library of a name already.
    Outcome<> needFreeName(const QString &name, const QString &exceptTable = {});
    /// A field by its title, else the name of its column. Fails with ExitCode::NotFound.
    Outcome<qsizetype> fieldNamed(const Library &library, const QString &name);
    /// The URL of a file that is put into the bundle, or is there already, by what a person types.
    Outcome<QVariant> storedMedia(const QString &text);
    /// The URL of a file that is there already.
    Outcome<QVariant> knownMedia(const QString &text);

    /// Makes the step of the journal.
    /// \param sentence says what was done.
    Outcome<DataResult> make(const StepTitle &title, const QString &sentence,
                             const Changes &changes);
    /// A reason with the exit code that the command ends with.
    Failure failure(ExitCode code, const QString &reason);

private:
    explicit DataChange(const KTDatabaseBundle &bundle) : _bundle(bundle) {}
    Outcome<DataResult> perform(Bundle bundle, const Work &work);
    Outcome<> begin(Bundle bundle);
    Outcome<> finish();

    KTDatabaseBundle _bundle;
    std::unique_ptr<ImportTransaction> _transaction;
    /// What the journal no longer needs.
    QSet<QString> _forgottenMedia;
    ExitCode _code = ExitCode::Failure;
};
