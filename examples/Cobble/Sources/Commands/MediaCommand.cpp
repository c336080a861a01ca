#include "MediaCommand.h"

#include "Import/InterruptedImport.h"
#include "Import/MediaDownloads.h"
#include "Import/MediaReference.h"
#include "Import/MediaSources.h"
#include "Import/UnusedMedia.h"
#include "Library/BundleCheck.h"
#include "Library/BundleLock.h"
#include "Library/BundleOption.h"
#include "Library/LibraryStore.h"
#include "Text/AlignedTable.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSFileManager>
#include <KTUtility/NSPathUtilities>
#include <KTUtility/NSString_KTAdditions>

#include <QDir>
#include <QHash>
#include <QTextStream>

#include <filesystem>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
/// How long to wait for another change to end, in milliseconds.
constexpr int PatienceWithLock = 5000;

/// What a folder holds, in the order of the names.
struct Contents
{
    QStringList names;
    int withoutName = 0; ///< how many have a name that is no text
};

/// Qt passes over names that are no text without a word, or ends at the first of them.
Contents contentsOf(const QString &folder)
{
    Contents contents;
    std::error_code error;
    const std::filesystem::directory_iterator end;
    for (std::filesystem::directory_iterator entry(folder.toStdString(), error); entry != end;
         entry.increment(error)) {
        const QByteArray name = QByteArray::fromStdString(entry->path().filename().native());
        if (name.isValidUtf8())
            contents.names += QString::fromUtf8(name);
        else
            ++contents.withoutName;
    }
    contents.names.sort();
    return contents;
}

void warnOfFilesWithoutName(int count, const QString &folder, CommandContext &context)
{
    if (count > 0)
        context.warn(folder, u"%1 cannot be listed: the name is not UTF-8"_s.arg(
                                 count == 1 ? u"1 file"_s : u"%1 files"_s.arg(count)));
}

ExitCode listMedia(const KTDatabaseBundle &bundle, CommandContext &context)
{
    const QDir folder(bundle.mediaFolderPath());
    if (const Outcome<> checked = BundleCheck::folders(bundle); !checked)
        return context.fail(bundle.bundlePath(), checked.reason());
    if (!folder.exists())
        return context.fail(bundle.bundlePath(), u"there is no media folder"_s);
    AlignedTable table;
    const Contents contents = contentsOf(folder.path());
    for (const QString &name : contents.names) {
        const QFileInfo file(folder.filePath(name));
        const auto url = bundle.mediaUrlFromFilePath(file.filePath());
        if (url && !UnusedMedia::isUnfinished(name))
            table.addRow({QString::number(file.size()), url->absoluteString()});
    }
    table.print(context.out());
    warnOfFilesWithoutName(contents.withoutName, folder.path(), context);
    return ExitCode::Success;
}

/// One of the subcommands that take names: false if it could not be done, which is reported.
using Action = std::function<bool(const KTDatabaseBundle &bundle, const QString &text,
                                  CommandContext &context)>;

/// Locks the bundle, which must not lead out of itself, nor be moved away while one waits.
/// \param wasThere whether there was a bundle before.
Outcome<> lockForChange(BundleLock &lock, const KTDatabaseBundle &bundle, bool wasThere)
{
    return lock.lock(PatienceWithLock)
        .andThen([&] {
            const bool isGone = wasThere && !bundle.doesExist();
            return isGone ? Failure{u"the bundle has been moved away"_s} : Outcome<>();
        })
        .andThen([&] { return BundleCheck::folders(bundle); });
}

/// Fails for a bundle that cannot be made.
Outcome<> buildForMedia(const KTDatabaseBundle &bundle)
{
    const bool wasThere = bundle.doesExist();
    BundleLock lock(bundle);
    return lockForChange(lock, bundle, wasThere).andThen([&] {
        const bool isBuilt = bundle.buildDatabaseBundleOnDisk();
        return isBuilt ? Outcome<>() : Failure{u"the database bundle cannot be made"_s};
    });
}

/// Why a file or URL could not be stored. What is no UTF-8 has lost its bytes on the way.
QString reasonNotToStore(const KTDatabaseBundle &bundle, const QString &text, const NSURL &file)
{
    if (bundle.isMediaURL(file))
        return u"there is no such file"_s;
    if (text.contains(QChar::ReplacementCharacter) && !NSFileManager::fileExistsAtPath(text))
        return u"it cannot be stored: the name is not UTF-8"_s;
    const QString name = NSString::lastPathComponent(file.path());
    const Outcome<> checked = MediaSources::checkFile(file.path()).andThen([&] {
        return MediaSources::checkName(bundle.fileNameWithMediaInstanceNumber(name));
    });
    return checked ? u"it cannot be copied"_s : checked.reason();
}

/// What is to be copied; what a URL names on the web is downloaded first.
Outcome<NSURL> sourceIn(const QString &text, MediaDownloads &downloads)
{
    const std::optional<NSURL> url = MediaReference::urlIn(text, QDir::currentPath());
    if (!url)
        return Failure{u"it names no file"_s};
    if (url->scheme() != u"http")
        return *url;
    const Outcome<> fetched = downloads.fetch(*url);
    return fetched ? downloads.fileOf(*url) : fetched.failure();
}

bool addMedia(const KTDatabaseBundle &bundle, const QString &text, const Outcome<NSURL> &source,
              CommandContext &context)
{
    const std::optional<NSURL> url = source ? bundle.storeFileFromURL(*source) : std::nullopt;
    if (url)
        context.out() << url->absoluteString() << '\n';
    else
        context.warn(text, source ? reasonNotToStore(bundle, text, *source) : source.reason());
    return url.has_value();
}

bool printPath(const KTDatabaseBundle &bundle, const QString &text, CommandContext &context)
{
    const std::optional<NSURL> url = NSURL::URLWithString(text);
    const QString path = url ? bundle.filePathFromMediaUrl(*url) : QString();
    if (path.isNull())
        context.warn(text, u"that is no media URL"_s);
    else
        context.out() << printableText(path) << '\n';
    return !path.isNull();
}

bool deleteMedia(const KTDatabaseBundle &bundle, const QString &text, CommandContext &context)
{
    const std::optional<NSURL> url = NSURL::URLWithString(text);
    const bool isURL = url && bundle.isMediaURL(*url);
    const QString name =
        isURL ? NSString::lastPathComponent(bundle.filePathFromMediaUrl(*url)) : text;
    if (bundle.deleteFileFromMediaFolder(name))
        return true;
    context.warn(text, bundle.isFileNameInMediaFolder(name) ? u"it cannot be deleted"_s
                                                            : u"there is no such media file"_s);
    return false;
}

/// Does one of the actions while nobody imports into the bundle or moves it. A file that is added
/// must not get a name that an import has left which was interrupted: the next one would remove it.
/// \param stores whether the action is one that adds a file.
bool doLocked(const Action &action, bool stores, const KTDatabaseBundle &bundle,
              const QString &text, CommandContext &context)
{
    const bool wasThere = bundle.doesExist();
    BundleLock lock(bundle);
    const Outcome<> ready = lockForChange(lock, bundle, wasThere).andThen([&] {
        return stores ? InterruptedImport::settle(bundle, lock.isLocked()) : Outcome<>();
    });
    if (!ready)
        context.warn(bundle.bundlePath(), ready.reason());
    return ready && action(bundle, text, context);
}

/// An action that is done while nobody else changes the bundle.
Action locked(const Action &action, bool stores = false)
{
    return [action, stores](const KTDatabaseBundle &bundle, const QString &text,
                            CommandContext &context) {
        return doLocked(action, stores, bundle, text, context);
    };
}

ExitCode runForEach(const QStringList &texts, const Action &action, const KTDatabaseBundle &bundle,
                    CommandContext &context)
{
    bool isDone = true;
    for (const QString &text : texts)
        isDone = action(bundle, text, context) && isDone;
    return isDone ? ExitCode::Success : ExitCode::Failure;
}

/// Adds files. What has to be downloaded comes first, while nothing is locked.
ExitCode addAll(const QStringList &texts, const KTDatabaseBundle &bundle, CommandContext &context)
{
    const Outcome<> built = buildForMedia(bundle);
    if (!built)
        return context.fail(bundle.bundlePath(), built.reason());
    MediaDownloads downloads;
    QHash<QString, Outcome<NSURL>> sources;
    for (const QString &text : texts)
        sources.insert(text, sourceIn(text, downloads));
    const Action add = [&sources](const KTDatabaseBundle &to, const QString &text,
                                  CommandContext &reports) {
        return addMedia(to, text, *sources.constFind(text), reports);
    };
    return runForEach(texts, locked(add, true), bundle, context);
}

ExitCode runNamed(const QString &name, const QStringList &texts, const KTDatabaseBundle &bundle,
                  CommandContext &context)
{
    BundleOption::needFolderOf(bundle);
    if (name == u"add")
        return addAll(texts, bundle, context);
    return runForEach(texts, name == u"path" ? Action(printPath) : locked(deleteMedia), bundle,
                      context);
}

ExitCode runMedia(const QCommandLineParser &parser, CommandContext &context)
{
    QStringList words = parser.positionalArguments();
    const QString name = words.isEmpty() ? QString() : words.takeFirst();
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    if (name == u"list" && words.isEmpty())
        return listMedia(bundle, context);
    if (name != u"add" && name != u"path" && name != u"delete")
        return context.wrongUsage(u"media needs one of list, add, path, delete"_s);
    if (words.isEmpty())
        return context.wrongUsage(u"media %1 needs a name"_s.arg(name));
    return runNamed(name, words, bundle, context);
}

/// Where a bundle is moved to before it is copied.
QString asidePathOf(const KTDatabaseBundle &bundle)
{
    return KTAdditions::uniqueFilePathForFilePath(
        KTAdditions::stringByAppendingToFilename(bundle.bundlePath(), u"1Backup"_s));
}

ExitCode moveAndCopy(const KTDatabaseBundle &bundle, CommandContext &context)
{
    const QString aside = asidePathOf(bundle);
    const QString copy = bundle.moveDatabaseToPreUpgradePath();
    if (!NSFileManager::fileExistsAtPath(copy)) {
        // Where nothing can be upgraded, the bundle must not seem lost.
        NSFileManager::moveItemAtPath(aside, bundle.bundlePath());
        return context.fail(copy, u"the copy could not be made"_s);
    }
    context.out() << printableText(copy) << '\n';
    return ExitCode::Success;
}

/// Lets nobody write to the database meanwhile, so that no half of a change is copied.
ExitCode moveAndCopyUnchanged(const KTDatabaseBundle &bundle, CommandContext &context)
{
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    // What is no database is copied all the same.
    if (!store)
        return moveAndCopy(bundle, context);
    if (const Outcome<> begun = (*store)->beginChange(); !begun)
        return context.fail(bundle.bundlePath(), begun.reason());
    const ExitCode code = moveAndCopy(bundle, context);
    (*store)->rollback();
    return code;
}

ExitCode copyForUpgrade(const QCommandLineParser &parser, CommandContext &context)
{
    if (!parser.positionalArguments().isEmpty())
        return context.wrongUsage(u"upgrade-copy takes options only"_s);
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    if (!bundle.doesExist())
        return context.fail(bundle.bundlePath(), u"there is no database bundle"_s);
    BundleLock lock(bundle);
    if (const Outcome<> locked = lockForChange(lock, bundle, true); !locked)
        return context.fail(bundle.bundlePath(), locked.reason());
    return moveAndCopyUnchanged(bundle, context);
}

/// For commands whose arguments are words and --bundle.
ExitCode runWithBundle(const QStringList &arguments, CommandContext &context,
                       ExitCode (*run)(const QCommandLineParser &parser, CommandContext &context))
{
    QCommandLineParser parser;
    BundleOption::add(&parser);
    return context.run(arguments, &parser, BundleOption::check, run);
}
} // namespace

ExitCode runMediaCommand(const QStringList &arguments, CommandContext &context)
{
    return runWithBundle(arguments, context, runMedia);
}

ExitCode runUpgradeCopyCommand(const QStringList &arguments, CommandContext &context)
{
    return runWithBundle(arguments, context, copyForUpgrade);
}
