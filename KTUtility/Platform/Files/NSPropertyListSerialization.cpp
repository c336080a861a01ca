#include "NSPropertyListSerialization.h"

#include "NSFileManager.h"
#include "NSPathUtilities.h"
#include "PropertyListBinaryReader_p.h"
#include "PropertyListFile_p.h"
#include "PropertyListQuickReader_p.h"
#include "PropertyListWriter_p.h"
#include "PropertyListXMLReader_p.h"
#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Disk/KTSaveFile.h>
#include <KTUtility/Platform/Disk/NSFileHandle.h>

#include <QFile>
#include <QFileInfo>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
bool writeAtomically(const QByteArray &bytes, const QString &path)
{
    KTSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
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

QByteArray NSPropertyListSerialization::dataWithPropertyList(const QVariant &propertyList,
                                                             QString *error)
{
    const QByteArray bytes = writeXMLPropertyList(propertyList, error);
    if (bytes.size() <= MaximumSize)
        return bytes;
    if (error)
        *error = u"larger than what can be read back"_s;
    return {};
}

bool NSPropertyListSerialization::isPropertyList(const QVariant &value)
{
    return !dataWithPropertyList(value).isNull();
}

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
    if (std::optional<QVariant> propertyList = readPlainXMLPropertyList(data))
        return *std::move(propertyList);
    return readXMLPropertyList(data, text);
}

std::optional<QVariantMap> NSDictionary::dictionaryWithContentsOfFile(const QString &path)
{
    const DictionaryReading reading = readDictionary(path);
    return reading.result == DictionaryReading::Result::Dictionary
               ? std::optional(reading.dictionary)
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
