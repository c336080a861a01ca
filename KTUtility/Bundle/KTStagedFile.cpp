#include "KTStagedFile_p.h"

#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Disk/FileRename_p.h>
#include <KTUtility/Platform/Disk/NSFileHandle.h>
#include <KTUtility/Platform/Files/NSFileManager.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <QFile>
#include <QRandomGenerator>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// So many other processes would have to be quicker, one after the other. A name that is taken by
/// a link to nothing is found free again each time.
constexpr int MostAttempts = 1000;

QString temporaryName()
{
    const quint64 number = QRandomGenerator::system()->generate64();
    return u".cobble-" + QString::number(number, 16);
}
} // namespace

KTStagedFile::KTStagedFile(const QString &folder)
    : _path(NSString::stringByAppendingPathComponent(folder.isNull() ? u""_s : folder,
                                                     temporaryName()))
{
}

KTStagedFile::~KTStagedFile()
{
    if (!_path.isNull())
        NSFileManager::removeItemAtPath(_path);
}

bool KTStagedFile::write(const QByteArray &data)
{
    if (!canBePath(_path))
        return false;
    NSFileHandle file(openFile(QFile::encodeName(_path), O_WRONLY | O_CREAT | O_EXCL, 0666));
    return file.fileDescriptor() >= 0 && file.writeData(data) && file.synchronizeFile();
}

bool KTStagedFile::copy(const QString &source)
{
    return NSFileManager::copyItemAtPath(source, _path) && flush();
}

/// Brings the copy to the disk before it gets its name.
bool KTStagedFile::flush() const
{
    NSFileHandle copy(openFile(QFile::encodeName(_path), O_RDONLY));
    // A copy that may not be read has no descriptor to flush by.
    if (copy.fileDescriptor() < 0)
        return errno == EACCES;
    struct stat status = {};
    ::fstat(copy.fileDescriptor(), &status);
    if (!S_ISDIR(status.st_mode))
        return copy.synchronizeFile();
    return uninterrupted([&copy] { return ::syncfs(copy.fileDescriptor()); }) == 0;
}

QString KTStagedFile::place(const QString &path, const std::function<QString()> &anotherPath)
{
    QString name = path;
    for (int attempt = 0; attempt < MostAttempts && canBePath(name); ++attempt) {
        const int error = renameWithoutReplacing(QFile::encodeName(_path), QFile::encodeName(name));
        if (error != EEXIST)
            return error == 0 ? placedAt(name) : QString();
        name = anotherPath();
    }
    return {};
}

QString KTStagedFile::placedAt(const QString &path)
{
    _path = QString();
    // A record that is on the disk must find its file there.
    flushFolderOf(QFile::encodeName(path));
    return path;
}
