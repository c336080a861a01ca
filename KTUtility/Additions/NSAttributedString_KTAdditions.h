#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Files/NSURL.h>
#include <KTUtility/Platform/Values/NSAttributedString.h>

#include <compare>
#include <optional>

/// Attributed texts: making, comparing, and links found in what people type.
namespace KTAdditions {
/// A text without attributes.
KTUTILITY_EXPORT NSAttributedString attributedStringWithString(const QString &string);

/// The order of the two plain texts by UTF-16 unit; attributes do not count.
KTUTILITY_EXPORT std::strong_ordering compare(const NSAttributedString &receiver,
                                              const NSAttributedString &other);
} // namespace KTAdditions

/// Links in text.
///
/// \code
/// NSAttributedString note(u"see www.example.com today"_s);
/// KTURLTextAdditions::detectURLs(note);
/// note.attribute(NSLinkAttributeName, 4).toString();    // "http://www.example.com"
/// \endcode
namespace KTURLTextAdditions {
/// Makes a link of every word that looks like a URL. Words end at whitespace and newlines, so that
/// punctuation attached to a word stays part of the link. Other attributes are left as they are.
/// Linear in the length of the text.
KTUTILITY_EXPORT void detectURLs(NSAttributedString &receiver);

/// The URL that one word stands for: the word itself if it holds "://", "http://" and the word if
/// it holds "www."; nothing otherwise, and nothing if NSURL rejects it.
KTUTILITY_EXPORT std::optional<NSURL> _findURLInString(const QString &string);
} // namespace KTURLTextAdditions
