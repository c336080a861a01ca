#include "NSPropertyListSerialization.h"

#include "NSFileManager.h"
#include "NSPathUtilities.h"
#include "NSPropertyListReaders_p.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
using NSPropertyListSerialization::MaximumSize;

bool writeAtomically(const QByteArray &bytes, const QString &path)
{
    QSaveFile file(path);
    // Without this, QSaveFile writes in place where it cannot make a temporary file.
    file.setDirectWriteFallback(false);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           ::fsync(file.handle()) == 0 && file.commit();
}

bool canBePath(const QString &path)
{
    return !path.isEmpty() && path.isValidUtf16() && !path.contains(QChar(u'\0'));
}

/// The bytes of an open file, up to one more than may be read.
QByteArray bytesOf(int file, qsizetype expected)
{
    // One more than expected shows the end at once.
    QByteArray bytes(std::min(expected, MaximumSize) + 1, Qt::Uninitialized);
    qsizetype size = 0;
    for (ssize_t count = 1; count > 0 && size < bytes.size(); size += count)
        count =
            std::max<ssize_t>(::read(file, bytes.data() + size, size_t(bytes.size() - size)), 0);
    bytes.truncate(size);
    return bytes;
}

/// The bytes of a regular file; null for anything else. Manifests are read by the hundred, so that
/// this takes the fewest calls.
QByteArray bytesOfFile(const QString &path)
{
    if (!canBePath(path))
        return {};
    // Without O_NONBLOCK, a pipe would wait for a writer; and a device may never end.
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return {};
    struct stat status = {};
    const bool isFile = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    const QByteArray bytes = isFile ? bytesOf(file, status.st_size) : QByteArray();
    ::close(file);
    return bytes;
}

/// A new name or a regular file. To replace anything else (a folder, a device) would destroy it.
bool isWritableTarget(const QString &path)
{
    return canBePath(path) && (!NSFileManager::fileExistsAtPath(path) || QFileInfo(path).isFile());
}

bool writeInPlace(const QByteArray &bytes, const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size() && file.flush();
}
} // namespace

QVariant NSPropertyListSerialization::propertyListFromData(const QByteArray &data, QString *error)
{
    QString ignored;
    QString *const text = error ? error : &ignored;
    if (data.size() > MaximumSize) {
        *text = QStringLiteral("larger than %1 bytes").arg(MaximumSize);
        return {};
    }
    if (data.startsWith("bplist00"))
        return readBinaryPropertyList(data, text);
    if (const std::optional<QVariantMap> dictionary = readPlainXMLPropertyList(data))
        return *dictionary;
    return readXMLPropertyList(data, text);
}

std::optional<QVariantMap> NSDictionary::dictionaryWithContentsOfFile(const QString &path)
{
    const QByteArray data = bytesOfFile(path);
    const QVariant value =
        data.isNull() ? QVariant() : NSPropertyListSerialization::propertyListFromData(data);
    if (value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return value.toMap();
}

bool NSDictionary::writeToFile(const QVariantMap &dictionary, const QString &path, bool atomically)
{
    const QByteArray bytes = NSPropertyListSerialization::dataWithPropertyList(dictionary);
    if (bytes.isNull() || !isWritableTarget(path))
        return false;
    NSFileManager::createDirectoryAtPath(NSString::stringByDeletingLastPathComponent(path), true);
    return atomically ? writeAtomically(bytes, path) : writeInPlace(bytes, path);
}
