#include "KTMediaFilenameMunger.h"

#include "KTInstanceNumbers_p.h"
#include "KTMediaDownload_p.h"
#include "KTMediaNames_p.h"
#include "KTStagedFile_p.h"
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace {
const QString OriginalComment = u"orig"_s;

bool isLogging()
{
    return KTLogger::sharedLogger()->shouldLogComponent(kLog_MediaFilenames, 4);
}

/// Logs a message under a line that is fixed: it is part of what is logged.
template<typename... Arguments>
void logMunging(int line, QStringView format, const Arguments &...arguments)
{
    if (isLogging())
        KTLogger::sharedLogger()->logComponent(kLog_MediaFilenames, 4, "KTMediaFilenameMunger",
                                               line, format, arguments...);
}

/// Whether a path names something in a folder, so that it may be touched.
bool mayTouch(const QString &path)
{
    return KTMediaNames::isFileName(NSString::lastPathComponent(path));
}

QString folderOf(const QString &path)
{
    return NSString::stringByDeletingLastPathComponent(path);
}

void deleteIfThere(const QString &path, int line)
{
    if (NSFileManager::fileExistsAtPath(path) && !NSFileManager::removeItemAtPath(path))
        logMunging(line, u"deleting %@ failed.", path);
}
} // namespace

QString KTMediaFilenameMunger::pathRelativeToDBStore(const QString &storedName)
{
    return storedName;
}

QString KTMediaFilenameMunger::makeDBStoredNamefromOriginalFileName(const QString &originalName)
{
    const int number = nextInstanceNumberForOriginalFilename(originalName);
    logMunging(38, u"call for new instancenumber: %d", number);
    return stringByAddingExtComment(originalName, QString::number(number));
}

QString KTMediaFilenameMunger::originalFileNameFromDBStoredName(const QString &storedName)
{
    return stringByRemovingExtComment(storedName);
}

QString KTMediaFilenameMunger::stringByAddingExtComment(const QString &path,
                                                        const QString &inputComment)
{
    const QString result = KTMediaNames::pathByAddingExtComment(path, inputComment);
    logMunging(104, u"stringByAddingExtComment %@", result);
    return result;
}

QString KTMediaFilenameMunger::stringByRemovingExtComment(const QString &path)
{
    const QString result = KTMediaNames::pathByRemovingExtComment(path);
    logMunging(110, u"stringByRemovingExtComment %@", result);
    return result;
}

int KTMediaFilenameMunger::nextInstanceNumberForOriginalFilename(const QString &originalName)
{
    const QString path = pathRelativeToDBStore(originalName);
    KTInstanceNumbers numbers(path);
    if (!isLogging())
        return numbers.next();
    return numbers.next(
        [&path](int number) { stringByAddingExtComment(path, QString::number(number)); });
}

QString KTMediaFilenameMunger::fileToLoadFromDBStoredName(const QString &storedName)
{
    const QString path = pathRelativeToDBStore(storedName);
    logMunging(47, u"fileToLoadFromDBStoredName:filepath = %@", path);
    if (!mayTouch(path))
        return {};
    if (NSFileManager::fileExistsAtPath(path))
        return path;
    const QString original = stringByAddingExtComment(path, OriginalComment);
    return NSFileManager::fileExistsAtPath(original) ? original : QString();
}

QString KTMediaFilenameMunger::copyFileToDbAndReturnDBStoredName(const QString &source)
{
    const auto makeTarget = [&source] {
        return pathRelativeToDBStore(makeDBStoredNamefromOriginalFileName(source));
    };
    const QString target = makeTarget();
    if (!mayTouch(source) || !NSFileManager::fileExistsAtPath(source))
        return {};
    KTStagedFile copy(folderOf(target));
    const bool isCopied = !KTMediaNames::isTooLong(target) && copy.copy(source);
    const QString stored = isCopied ? copy.place(target, makeTarget) : QString();
    const QString original = originalFileNameFromDBStoredName(stored.isNull() ? target : stored);
    logMunging(68, u"Attempt to copy %@ succeed? %d (and testing roundtrip)",
               NSString::lastPathComponent(original), int(!stored.isNull()));
    return stored;
}

void KTMediaFilenameMunger::deleteFileByDBStoredName(const QString &storedName)
{
    const QString path = pathRelativeToDBStore(storedName);
    logMunging(77, u"deleteFileByDBStoredName:filepath = %@", path);
    if (!mayTouch(path))
        return;
    deleteIfThere(path, 85);
    deleteIfThere(stringByAddingExtComment(path, OriginalComment), 94);
}

QString KTMediaFilenameMunger::downloadHttpFileToBundleAndReturnPath(const NSURL &url)
{
    const QString name = NSString::lastPathComponent(url.path());
    if (!KTMediaDownload::isAllowed(url) || !KTMediaNames::isFileName(name))
        return {};
    const std::optional<QByteArray> data = KTMediaDownload::dataFrom(url);
    if (!data) {
        logMunging(173, u"Download of file %@ failed.", url.absoluteString());
        return {};
    }
    QString target;
    const auto makeTarget = [&] {
        const QString before = std::exchange(
            target, pathRelativeToDBStore(makeDBStoredNamefromOriginalFileName(name)));
        if (target != before)
            logMunging(179, u"Writing file to %@", target);
        return target;
    };
    KTStagedFile file(folderOf(makeTarget()));
    const QString path = file.write(*data) ? file.place(QString(target), makeTarget) : QString();
    if (path.isNull())
        logMunging(184, u"Writing file to %@ failed.", target);
    return path;
}
