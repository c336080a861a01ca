#include "NSSearchPath.h"

#include "ProgramIdentity_p.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QStandardPaths>

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// An environment variable that names an absolute path; nil otherwise. Relative paths count as
/// unset, as the XDG rules say.
QString absolutePathIn(const char *variable)
{
    const QString path = QFile::decodeName(qgetenv(variable));
    return path.startsWith(u'/') ? path : QString();
}

QString applicationSupportFolder()
{
    // Tests of programs keep away from what belongs to the user.
    if (QStandardPaths::isTestModeEnabled())
        return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString data = absolutePathIn("XDG_DATA_HOME");
    if (!data.isNull())
        return QDir::cleanPath(data);
    const QString home = NSHomeDirectory();
    return home.isNull() ? QString() : QDir::cleanPath(home + u"/.local/share");
}

/// Whether a folder is the user's own and nobody else's; no link is followed.
bool isPrivateFolder(const QString &path)
{
    struct stat status = {};
    return !path.isEmpty() && ::lstat(QFile::encodeName(path).constData(), &status) == 0 &&
           S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() && (status.st_mode & 0077) == 0;
}

/// Where the system has temporary files; Qt names none where TMPDIR names none.
QString sharedTemporaryFolder()
{
    const QString path = QDir::tempPath();
    return path.isEmpty() || path == u"/" ? u"/tmp"_s : path;
}

/// The folder of this user, the same for all of his processes, in one that others may write; nil if
/// somebody else has something at its place.
QString folderOfUser(const QString &parent)
{
    const QString path =
        parent + u'/' + ProgramIdentity::folderName() + u'-' + QString::number(::geteuid());
    ::mkdir(QFile::encodeName(path).constData(), 0700);
    return isPrivateFolder(path) ? path : QString();
}

/// Folders that are removed at the end of the process, if nothing is in them.
class NewFolders
{
public:
    ~NewFolders()
    {
        for (const QByteArray &path : _paths)
            ::rmdir(path.constData());
    }

    /// A new folder of the user's own; nobody can guess its name. Where none can be made, a path at
    /// which nobody can make anything.
    QString addIn(const QString &parent)
    {
        QByteArray path =
            QFile::encodeName(parent + u'/' + ProgramIdentity::folderName() + u"-XXXXXX");
        if (!::mkdtemp(path.data()))
            return u"/dev/null/"_s + ProgramIdentity::folderName();
        _paths.append(path);
        return QFile::decodeName(path);
    }

private:
    QByteArrayList _paths;
};

QString withTilde(const QString &path)
{
    const QString home = NSHomeDirectory();
    return !home.isNull() && path.startsWith(QString(home + u'/'))
               ? QString(u'~' + path.mid(home.size()))
               : path;
}
} // namespace

QString NSHomeDirectory()
{
    const QString home = absolutePathIn("HOME");
    return home.isNull() ? home : QDir::cleanPath(home);
}

QString NSTemporaryDirectory()
{
    static QMutex mutex;
    static NewFolders newFolders;
    static QString folder;
    const QMutexLocker lock(&mutex);
    const QString shared = sharedTemporaryFolder();
    if (isPrivateFolder(shared))
        return shared;
    const QString own = folderOfUser(shared);
    if (!own.isNull())
        return own;
    // Once per process and place, as long as nobody takes it away.
    if (QFileInfo(folder).path() != shared || !isPrivateFolder(folder))
        folder = newFolders.addIn(shared);
    return folder;
}

QStringList NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                unsigned domainMask, bool expandTilde)
{
    const QString support = applicationSupportFolder();
    const bool isKnown =
        directory == NSLibraryDirectory || directory == NSApplicationSupportDirectory;
    if (support.isNull() || !isKnown || !(domainMask & NSUserDomainMask))
        return {};
    const QString folder = directory == NSLibraryDirectory
                               ? QString(support + u'/' + ProgramIdentity::folderName())
                               : support;
    return {expandTilde ? folder : withTilde(folder)};
}
