#include "NSPropertyListSerialization.h"

#include "NSFileManager.h"
#include "NSPathUtilities.h"
#include "NSPropertyListReaders_p.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h>

namespace {
bool writeAtomically(const QByteArray &bytes, const QString &path)
{
    QSaveFile file(path);
    // Without this, QSaveFile writes in place where it cannot make a temporary file.
    file.setDirectWriteFallback(false);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           ::fsync(file.handle()) == 0 && file.commit();
}

/// A new name or a regular file. To replace anything else (a folder, a device) would destroy it.
bool isWritableTarget(const QString &path)
{
    const bool canBePath = !path.isEmpty() && path.isValidUtf16() && !path.contains(QChar(u'\0'));
    return canBePath && (!NSFileManager::fileExistsAtPath(path) || QFileInfo(path).isFile());
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
    return data.startsWith("bplist00") ? readBinaryPropertyList(data, text)
                                       : readXMLPropertyList(data, text);
}

std::optional<QVariantMap> NSDictionary::dictionaryWithContentsOfFile(const QString &path)
{
    // A pipe would wait for a writer, and a device may never end.
    QFile file(path);
    if (!NSFileManager::fileExistsAtPath(path) || !QFileInfo(path).isFile() ||
        !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray data = file.read(NSPropertyListSerialization::MaximumSize + 1);
    const QVariant value = NSPropertyListSerialization::propertyListFromData(data);
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
