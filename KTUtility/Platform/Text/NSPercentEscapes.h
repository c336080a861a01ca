#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// Percent escapes in the texts of URLs (RFC 2396), always with UTF-8.
///
/// \code
/// NSString::stringByAddingPercentEscapes(u"My photo.jpg"_s);    // "My%20photo.jpg"
/// NSString::stringByReplacingPercentEscapes(u"%C3%BC.png"_s);   // "ü.png"
/// \endcode
namespace NSString {
/// The text with everything escaped that may not stand in a URL. Letters, digits and
/// `! $ & ' ( ) * + , - . / : ; = ? @ _ ~` stay; "%" is escaped, so that escaping twice doubles it.
/// \return nil for nil, and if the text holds lone surrogates.
KTUTILITY_EXPORT QString stringByAddingPercentEscapes(const QString &text);

/// The text with its escapes replaced by what they stand for; "+" stays.
/// \return nil for nil, if a "%" lacks two hexadecimal digits, or if the bytes are not UTF-8.
KTUTILITY_EXPORT QString stringByReplacingPercentEscapes(const QString &text);
} // namespace NSString
