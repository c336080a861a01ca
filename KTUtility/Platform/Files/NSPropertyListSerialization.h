#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>

/// Property lists: the files in which settings and manifests are kept.
///
/// A property list is a bool, an integer (64 bits, signed or not), a real, a text, a date, data, or
/// an array or dictionary of these. Written as XML in the platform's form; read as XML or binary.
/// Reading trusts nothing: size, depth and every count are bounded.
///
/// \code
/// QString error;
/// const QByteArray xml = NSPropertyListSerialization::dataWithPropertyList(settings, &error);
/// const QVariant back = NSPropertyListSerialization::propertyListFromData(xml, &error);
/// \endcode
namespace NSPropertyListSerialization {
/// The largest document that is read, in bytes.
inline constexpr qsizetype MaximumSize = qsizetype(16) << 20;
/// How deep arrays and dictionaries may be nested.
inline constexpr int MaximumDepth = 512;

/// The XML text of a property list.
/// \param error receives why it cannot be written; may be null.
/// \return nothing (a null array) if a value is no property list, is nil, is nested too deep,
/// holds a character that XML cannot (controls, lone surrogates), or if the text is larger than
/// what is read. Dates lose their fractions of seconds, and zero its sign.
KTUTILITY_EXPORT QByteArray dataWithPropertyList(const QVariant &propertyList,
                                                 QString *error = nullptr);

/// The property list in \a data: binary if it begins with "bplist00", else XML.
/// \param error receives what is wrong and where; may be null.
/// \return nil if the data is not a property list. Integers come as qlonglong, as qulonglong if
/// they do not fit; dates in UTC; the null of binary files as NSNull().
KTUTILITY_EXPORT QVariant propertyListFromData(const QByteArray &data, QString *error = nullptr);

/// Whether the value is made only of what a property list may hold.
KTUTILITY_EXPORT bool isPropertyList(const QVariant &value);
} // namespace NSPropertyListSerialization

/// Dictionaries in files.
namespace NSDictionary {
/// The dictionary in a property list file; nothing if the file is missing, is a folder, cannot be
/// read, is malformed, or holds something else.
KTUTILITY_EXPORT std::optional<QVariantMap> dictionaryWithContentsOfFile(const QString &path);

/// Writes a dictionary as XML; folders on the way are made.
/// \param atomically whether readers see the old file or the new one, never a part: the bytes go to
/// a temporary file beside it, are flushed to the disk, and take the file's place. The mode of an
/// existing file stays.
/// \return false if it cannot be written, or if the path is there and not a file; an atomically
/// written file is then as it was.
KTUTILITY_EXPORT bool writeToFile(const QVariantMap &dictionary, const QString &path,
                                  bool atomically);
} // namespace NSDictionary
