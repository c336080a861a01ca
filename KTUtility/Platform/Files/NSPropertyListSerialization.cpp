#include "NSPropertyListSerialization.h"

#include "FileOperations_p.h"
#include "KTSaveFile.h"
#include "NSFileHandle.h"
#include "NSFileManager.h"
#include "NSPathUtilities.h"
#include "PropertyListFile_p.h"
#include "PropertyListReaders_p.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using ReadingResult = DictionaryReading::Result;
using NSPropertyListSerialization::MaximumSize;

bool writeAtomically(const QByteArray &bytes, const QString &path)
{
    KTSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

/// The bytes of an open file, up to one more than may be read; null if it cannot be read.
QByteArray bytesOf(int file, qsizetype expected)
{
    // One more than expected shows the end at once.
    QByteArray bytes(std::min(expected, MaximumSize) + 1, Qt::Uninitialized);
    qsizetype size = 0;
    for (ssize_t count = 1; count > 0 && size < bytes.size(); size += count) {
        count = uninterrupted(
            [&] { return ::read(file, bytes.data() + size, size_t(bytes.size() - size)); });
        if (count < 0)
            return {};
    }
    bytes.truncate(size);
    return bytes;
}

/// Why a file that cannot be opened has no dictionary.
ReadingResult resultOfOpening(int error)
{
    if (error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENAMETOOLONG)
        return ReadingResult::NoFile;
    // A socket cannot be opened at all.
    return error == ENXIO ? ReadingResult::NoDictionary : ReadingResult::Unreadable;
}

/// Reads an open file if it is a regular one.
ReadingResult readFile(int file, QByteArray *bytes)
{
    struct stat status = {};
    if (::fstat(file, &status) != 0)
        return ReadingResult::Unreadable;
    if (!S_ISREG(status.st_mode))
        return ReadingResult::NoDictionary;
    *bytes = bytesOf(file, status.st_size);
    return bytes->isNull() ? ReadingResult::Unreadable : ReadingResult::Dictionary;
}

/// The bytes of a regular file. Manifests are read by the hundred, so that this takes the fewest
/// calls.
ReadingResult readFileAt(const QString &path, QByteArray *bytes)
{
    if (!canBePath(path))
        return ReadingResult::NoFile;
    // Without O_NONBLOCK, a pipe would wait for a writer; and a device may never end.
    const int file = openFile(QFile::encodeName(path), O_RDONLY | O_NONBLOCK);
    if (file < 0)
        return resultOfOpening(errno);
    const ReadingResult result = readFile(file, bytes);
    ::close(file);
    return result;
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
        *text = u"larger than %1 bytes"_s.arg(MaximumSize);
        return {};
    }
    if (data.startsWith("bplist00"))
        return readBinaryPropertyList(data, text);
    if (const std::optional<QVariantMap> dictionary = readPlainXMLPropertyList(data))
        return *dictionary;
    return readXMLPropertyList(data, text);
}

DictionaryReading KTPrivate::readDictionary(const QString &path)
{
    QByteArray bytes;
    const ReadingResult result = readFileAt(path, &bytes);
    if (result != ReadingResult::Dictionary)
        return {result, {}};
    const QVariant value = NSPropertyListSerialization::propertyListFromData(bytes);
    if (value.typeId() != QMetaType::QVariantMap)
        return {ReadingResult::NoDictionary, {}};
    return {ReadingResult::Dictionary, value.toMap()};
}

std::optional<QVariantMap> NSDictionary::dictionaryWithContentsOfFile(const QString &path)
{
    const DictionaryReading reading = readDictionary(path);
    return reading.result == ReadingResult::Dictionary ? std::optional(reading.dictionary)
                                                       : std::nullopt;
}

bool NSDictionary::writeToFile(const QVariantMap &dictionary, const QString &path, bool atomically)
{
    const QByteArray bytes = NSPropertyListSerialization::dataWithPropertyList(dictionary);
    if (bytes.isNull() || !isWritableTarget(path))
        return false;
    NSFileManager::createDirectoryAtPath(NSString::stringByDeletingLastPathComponent(path), true);
    return atomically ? writeAtomically(bytes, path) : writeInPlace(bytes, path);
}
