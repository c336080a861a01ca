#include "NSData_KTArchives.h"

#include <KTUtility/Platform/Files/NSPropertyListSerialization.h>
#include <KTUtility/Platform/Files/PropertyListWriter_p.h>
#include <KTUtility/Platform/Files/PropertyListXMLReader_p.h>

#include <openssl/evp.h>

#include <algorithm>
#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
const QString ArchiveKey = u"__xml__archive__"_s;
const QString ReferenceKey = u"CF$UID"_s;
constexpr int DataIndex = 1;
constexpr int ArchiverVersion = 100'000;

QVariantMap referenceTo(int index)
{
    return {{ReferenceKey, index}};
}

/// The property list of an archive. It is text already, so that it may be larger than a file.
QVariant propertyListIn(const QByteArray &text)
{
    QString ignored;
    return text.size() > NSPropertyListSerialization::MaximumSize
               ? readXMLPropertyList(text, &ignored)
               : NSPropertyListSerialization::propertyListFromData(text);
}

/// The object that a reference means; nil if it means none of \a objects. What is not a whole
/// number is no reference, also if it could be taken for one (0.4, "0", false).
QVariant archivedObjectAt(const QVariantList &objects, const QVariant &reference)
{
    const QVariant number = reference.toMap().value(ReferenceKey);
    if (number.typeId() != QMetaType::LongLong)
        return {};
    const qlonglong index = number.toLongLong();
    return index >= 0 && index < objects.size() ? objects.at(index) : QVariant();
}

/// The bytes of an archived data object; nil if it is something else.
QByteArray dataOf(const QVariantList &objects, const QVariant &object)
{
    if (object.metaType() == QMetaType::fromType<QByteArray>())
        return object.toByteArray();
    for (const char16_t *key : {u"NS.data", u"NS.bytes"}) {
        QVariant held = object.toMap().value(QString::fromUtf16(key));
        if (held.metaType() != QMetaType::fromType<QByteArray>())
            held = archivedObjectAt(objects, held);
        if (held.metaType() == QMetaType::fromType<QByteArray>())
            return held.toByteArray();
    }
    return {};
}

QByteArray digest(const EVP_MD *kind, const QByteArray &data)
{
    QByteArray result(EVP_MAX_MD_SIZE, Qt::Uninitialized);
    unsigned int length = 0;
    const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(),
                                                                          EVP_MD_CTX_free);
    auto *const bytes = reinterpret_cast<unsigned char *>(result.data());
    if (!context || EVP_DigestInit_ex(context.get(), kind, nullptr) != 1 ||
        EVP_DigestUpdate(context.get(), data.constData(), size_t(data.size())) != 1 ||
        EVP_DigestFinal_ex(context.get(), bytes, &length) != 1)
        return {};
    result.truncate(qsizetype(length));
    return result;
}
} // namespace

QString KTAdditions::archiveToString(const QByteArray &data)
{
    const QVariantMap archive{
        {u"$archiver"_s, u"NSKeyedArchiver"_s},
        {u"$version"_s, ArchiverVersion},
        {u"$objects"_s, QVariantList{u"$null"_s, data.isNull() ? QByteArray("") : data}},
        {u"$top"_s, QVariantMap{{ArchiveKey, referenceTo(DataIndex)}}}};
    return QString::fromLatin1(writeXMLPropertyList(archive, nullptr));
}

QByteArray KTAdditions::initWithStringArchive(const QString &string)
{
    const bool isASCII =
        std::all_of(string.begin(), string.end(), [](QChar unit) { return unit < QChar(0x80); });
    if (!isASCII)
        return {};
    const QVariantMap archive = propertyListIn(string.toLatin1()).toMap();
    const QVariantList objects = archive.value(u"$objects"_s).toList();
    const QVariantMap top = archive.value(u"$top"_s).toMap();
    return dataOf(objects, archivedObjectAt(objects, top.value(ArchiveKey)));
}

QByteArray KTAdditions::md5Digest(const QByteArray &data)
{
    return digest(EVP_md5(), data);
}

QByteArray KTAdditions::sha1Digest(const QByteArray &data)
{
    return digest(EVP_sha1(), data);
}
