#include "DataChange.h"

#include "Commands/LibraryJSON.h"
#include "Commands/OptionNames.h"
#include "FieldNames.h"
#include "Import/MediaReference.h"
#include "Import/MediaSources.h"
#include "Import/UnusedMedia.h"
#include "Library/BundleOption.h"
#include "Text/PrintableText.h"
#include "Text/Reasons.h"

#include <KTUtility/NSFileManager>

#include <QDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {
/// How long to wait for another program, in milliseconds.
constexpr int Patience = 2000;

/// Whether somebody else is writing: says the lock of the bundle, or SQLite.
bool isTaken(const QString &reason)
{
    return reason == Reasons::tr("another program is changing the bundle") ||
           reason == u"database is locked"_s;
}

void print(const DataResult &result, const QCommandLineParser &parser, CommandContext &context)
{
    const bool isJSON = parser.isSet(JSONOption);
    context.out() << (isJSON ? LibraryJSON::textOf(result.object) : printableText(result.sentence))
                  << '\n';
}
} // namespace

void DataChange::addOptions(QCommandLineParser *parser)
{
    parser->addOption({JSONOption, QString()});
    BundleOption::add(parser);
}

ExitCode DataChange::run(const QCommandLineParser &parser, CommandContext &context, Bundle bundle,
                         const Work &work)
{
    DataChange change(BundleOption::bundleIn(parser));
    const Outcome<DataResult> result = change.perform(bundle, work);
    if (result) {
        print(*result, parser, context);
        return ExitCode::Success;
    }
    context.warn(change._bundle.bundlePath(), result.reason());
    return change._code;
}

ExitCode DataChange::codeWithoutStore(const KTDatabaseBundle &bundle)
{
    return NSFileManager::fileExistsAtPath(bundle.databaseFilePath()) ? ExitCode::Failure
                                                                      : ExitCode::NotFound;
}

// --- From beginning to end

Outcome<DataResult> DataChange::perform(Bundle bundle, const Work &work)
{
    if (const Outcome<> begun = begin(bundle); !begun)
        return begun.failure();
    Outcome<DataResult> result = work(*this);
    const Outcome<> finished = result ? finish() : result.failure();
    return finished ? result : finished.failure();
}

Outcome<> DataChange::begin(Bundle bundle)
{
    if (bundle == Bundle::Existing && !NSFileManager::fileExistsAtPath(_bundle.databaseFilePath()))
        return failure(ExitCode::NotFound, u"there is no database"_s);
    auto transaction = ImportTransaction::begin(_bundle, Patience);
    if (!transaction)
        return failure(isTaken(transaction.reason()) ? ExitCode::Locked : ExitCode::Failure,
                       transaction.reason());
    _transaction = std::move(*transaction);
    return {};
}

Outcome<> DataChange::finish()
{
    const Outcome<> committed = _transaction->commit();
    // Files that cannot be removed are only of no use.
    if (committed)
        (void)UnusedMedia::remove(_bundle, store(), _forgottenMedia);
    return committed;
}

Failure DataChange::failure(ExitCode code, const QString &reason)
{
    _code = code;
    return {reason};
}

// --- What there is

Outcome<Library> DataChange::libraryNamed(const QString &name)
{
    const Outcome<QList<Library>> libraries = store().libraries();
    if (!libraries)
        return libraries.failure();
    const std::optional<Library> library = Libraries::named(name, *libraries);
    if (!library)
        return failure(ExitCode::NotFound, u"no library '%1'"_s.arg(name));
    return *library;
}

Outcome<> DataChange::needFreeName(const QString &name, const QString &exceptTable)
{
    const Outcome<QList<Library>> libraries = store().libraries();
    if (!libraries)
        return libraries.failure();
    const std::optional<Library> library = Libraries::named(name, *libraries);
    if (!library || library->tableName == exceptTable)
        return {};
    return failure(ExitCode::Conflict, u"there is a library '%1'"_s.arg(library->name));
}

Outcome<qsizetype> DataChange::fieldNamed(const Library &library, const QString &name)
{
    const qsizetype field = FieldNames::indexOf(library, name);
    if (field >= 0)
        return field;
    return failure(ExitCode::NotFound, u"no field '%1' in '%2'"_s.arg(name, library.name));
}

// --- Media

Outcome<QVariant> DataChange::storedMedia(const QString &text)
{
    const std::optional<NSURL> url = MediaReference::urlIn(text, QDir::currentPath());
    if (!url || url->scheme() == u"http")
        return failure(ExitCode::Unread, u"'%1' names no file"_s.arg(text));
    if (_bundle.isMediaURL(*url))
        return knownMedia(text);
    const Outcome<> checked = MediaSources::check(url->path());
    if (!checked)
        return failure(ExitCode::Unread, u"'%1': %2"_s.arg(text, checked.reason()));
    const std::optional<NSURL> stored = _transaction->storeMedia(*url);
    if (!stored)
        return Failure{u"'%1' cannot be stored"_s.arg(text)};
    return QVariant(stored->absoluteString());
}

Outcome<QVariant> DataChange::knownMedia(const QString &text)
{
    const std::optional<NSURL> url = NSURL::URLWithString(text);
    const bool isThere = url && _bundle.isMediaURL(*url) && _transaction->storeMedia(*url);
    if (isThere)
        return QVariant(url->absoluteString());
    return failure(ExitCode::Unread, u"'%1' is no media file of the bundle"_s.arg(text));
}

// --- The step

Outcome<DataResult> DataChange::make(const StepTitle &title, const QString &sentence,
                                     const Changes &changes)
{
    ChangeJournal journal(store());
    const Outcome<qint64> step = journal.make(title, changes);
    if (!step)
        return step.failure();
    _forgottenMedia += journal.forgottenMedia();
    QJsonObject object = QJsonObject::fromVariantMap(title.parameters);
    object.insert(u"kind"_s, title.kind);
    object.insert(u"step"_s, *step == 0 ? QJsonValue() : QJsonValue(*step));
    return DataResult{sentence, object};
}
