#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSAttributedString.h>

#include <QString>
#include <QVariant>

/// Texts: stripping, numbers, identifiers, file names that are free.
///
/// \code
/// KTAdditions::stringByStrippingCharactersInSet(
///     u"(06) 12-34"_s, NSCharacterSet::punctuationCharacterSet());    // "0612" "34"
/// KTAdditions::uniqueFilePathForFilePath(u"/tmp/Report.txt"_s);
///     // "/tmp/Report 2.txt" if that file exists
/// KTAdditions::integerNumberValue(u"12 pieces"_s);    // 12
/// \endcode
namespace KTAdditions {
/// The receiver as a link: blue, underlined, in the small system font, with itself as the link.
KTUTILITY_EXPORT NSAttributedString hyperlink(const QString &receiver);

/// A new universally unique identifier (RFC 4122, random): 36 characters, upper-case hexadecimal
/// digits and hyphens.
KTUTILITY_EXPORT QString UUID();
/// "X" and a new UUID(): fit for a name in XML, which may not begin with a digit.
KTUTILITY_EXPORT QString UUIDforXML();

/// The receiver without the characters of \a set. Whitespace and newlines that begin the text or
/// directly follow a removed character are removed, too; those inside of a kept run stay: stripping
/// "-" from "a - b" gives "a b". nil stays nil.
KTUTILITY_EXPORT QString stringByStrippingCharactersInSet(const QString &receiver,
                                                          const NSCharacterSet &set);

/// The integer at the start of the receiver as a number; see NSString::integerValue().
KTUTILITY_EXPORT QVariant integerNumberValue(const QString &receiver);
/// The decimal number at the start of the receiver; not-a-number if there is none. "." is the
/// decimal point in every locale; see NSDecimalNumber::decimalNumberWithString().
KTUTILITY_EXPORT QVariant decimalNumberValue(const QString &receiver);
/// The receiver's boolean value as a number; see NSString::boolValue().
KTUTILITY_EXPORT QVariant boolNumberValue(const QString &receiver);

/// Whether to search for the receiver without regard to case and diacritics: true exactly if all
/// of it exists in ISO Latin 1.
KTUTILITY_EXPORT bool shouldSearchWithCD(const QString &receiver);

/// A path at which no file exists, nor a link to nothing: the receiver, or the receiver with " 2",
/// " 3" and so on at the end of its file name. The first number is 2, deliberately. A name that a
/// number makes longer than the 255 bytes of file systems loses characters before the number.
/// Nothing is reserved: another process may take the path first.
KTUTILITY_EXPORT QString uniqueFilePathForFilePath(const QString &receiver);

/// The path with \a suffix before its extension: "Notes.txt" and "(old)" give "Notes(old).txt".
KTUTILITY_EXPORT QString stringByAppendingToFilename(const QString &receiver,
                                                     const QString &suffix);
} // namespace KTAdditions
