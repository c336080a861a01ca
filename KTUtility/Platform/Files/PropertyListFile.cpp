#include "PropertyListFile_p.h"

#include "NSPropertyListSerialization.h"
#include <KTUtility/Platform/Disk/FileOperations_p.h>

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;

namespace {
using ReadingResult = DictionaryReading::Result;
using NSPropertyListSerialization::MaximumSize;

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
} // namespace

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

bool KTPrivate::moveDamagedFileAside(const QString &path)
{
    constexpr int MostDamagedFiles = 100;
    // QFile::rename() never replaces a file.
    for (int number = 1; number <= MostDamagedFiles; ++number) {
        const QString suffix = number == 1 ? QString() : QString(u'.' + QString::number(number));
        if (QFile::rename(path, QString(path + u".damaged" + suffix)))
            return true;
    }
    return false;
}
