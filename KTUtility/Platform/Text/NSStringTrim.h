#pragma once

#include "NSCharacterSet.h"
#include <KTUtility/KTUtilityExport.h>

#include <QString>

namespace NSString {
/// \a text without the characters of \a set at both ends; nil stays nil.
KTUTILITY_EXPORT QString stringByTrimmingCharactersInSet(const QString &text,
                                                         const NSCharacterSet &set);
/// \a text without whitespace and newlines at both ends. A text that has none is returned as it is.
KTUTILITY_EXPORT QString stringByTrimmingWhitespaceAndNewlines(const QString &text);
} // namespace NSString
