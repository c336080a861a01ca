#include "MediaSources.h"

#include "MediaReference.h"
#include "Text/Reasons.h"

#include <KTUtility/NSFileManager>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <climits>

using namespace Qt::StringLiterals;

namespace {
bool isHTTP(const NSURL &url)
{
    return url.scheme() == u"http";
}

bool isFile(const QString &path)
{
    return NSFileManager::fileExistsAtPath(path) && QFileInfo(path).isFile();
}

/// Whether a file is in a folder itself, not hidden.
bool isIn(const QString &folder, const QFileInfo &file)
{
    return !file.fileName().startsWith(u'.') && file.dir().canonicalPath() == folder;
}

/// Why a path that leads to something is no file that can be read; nil if it is one.
QString problemOf(const QFileInfo &file)
{
    if (file.isDir())
        return Reasons::tr("it is a folder");
    if (!file.isFile())
        return Reasons::tr("it is no file");
    return file.isReadable() ? QString() : Reasons::tr("it may not be read");
}
} // namespace

MediaSources::MediaSources(const QString &folder) : _folder(folder)
{
    addFolder(folder);
}

void MediaSources::addFolder(const QString &folder)
{
    const QString path = QFileInfo(folder).canonicalFilePath();
    if (!path.isEmpty())
        _folders += path;
}

/// Also where a link leads must be there.
bool MediaSources::isBeside(const QString &path) const
{
    if (path.contains(QChar(u'\0')))
        return false;
    const QFileInfo file(path);
    const QString target = file.canonicalFilePath();
    return std::any_of(_folders.begin(), _folders.end(), [&](const QString &folder) {
        return isIn(folder, file) && (target.isEmpty() || isIn(folder, QFileInfo(target)));
    });
}

Outcome<NSURL> MediaSources::urlIn(qsizetype column, const QString &text) const
{
    const std::optional<NSURL> url = MediaReference::urlIn(text, _folder);
    if (!url)
        return Failure{Reasons::tr("it names no file")};
    const bool isElsewhere = isHTTP(*url) || (url->isFileURL() && !isBeside(url->path()));
    if (isElsewhere && !_trusted.contains(column))
        return Failure{Reasons::tr(
            "it is not beside the file; only columns that are named as media may lead elsewhere")};
    return *url;
}

bool MediaSources::isObvious(const QString &text) const
{
    const std::optional<NSURL> url = MediaReference::urlIn(text, _folder);
    if (!url || isHTTP(*url))
        return false;
    // Most texts name nothing, which is known at once.
    return !url->isFileURL() || (isFile(url->path()) && isBeside(url->path()));
}

Outcome<> MediaSources::checkFile(const QString &path)
{
    if (!NSFileManager::fileExistsAtPath(path))
        return Failure{Reasons::tr("there is no such file")};
    const QString problem = problemOf(QFileInfo(path));
    return problem.isNull() ? Outcome<>() : Failure{problem};
}

Outcome<> MediaSources::check(const QString &path)
{
    const Outcome<> checked = checkFile(path);
    if (checked && QFileInfo(path).size() > LargestFile)
        return Failure{Reasons::tr("it is larger than %1 MB").arg(LargestFile >> 20)};
    return checked;
}

Outcome<> MediaSources::checkName(const QString &name)
{
    const bool isTooLong = QFile::encodeName(name).size() > NAME_MAX;
    return isTooLong ? Failure{Reasons::tr("its name is too long")} : Outcome<>();
}
