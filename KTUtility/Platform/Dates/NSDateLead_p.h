#pragma once

#include "NSDateEnvironment_p.h"
#include "NSDatePattern_p.h"
#include "NSDateText_p.h"

// A look at the first characters of a text. Of the 60 patterns that a field tries, most are refused
// here, each in a few nanoseconds.

namespace NSDateLead {
/// More digits than any field takes, and few enough for an int.
inline constexpr qsizetype MaximalDigits = 9;

/// Whether ICU might take what stands behind digits for a part of the number.
inline bool mayBeOfNumber(char16_t unit)
{
    if (unit < 0x80)
        return NSDateCharacters::lowered(unit) == u'e';
    return !NSDateCharacters::isEastAsian(unit) && !NSDateCharacters::isBlank(unit);
}

/// Whether a text that starts with digits cannot fit.
inline bool refusesDigits(const NSDatePattern &pattern, const NSDateText &text)
{
    const char16_t sought = pattern.unitAfterLeadingNumber();
    const char16_t unit = text.unitAfterDigits();
    if (sought == 0 || sought == unit || unit == 0 || text.leadingDigits() > MaximalDigits)
        return false;
    return !mayBeOfNumber(unit) && !(sought == u' ' && NSDateCharacters::isBlank(unit));
}

/// Whether a text that starts with an ASCII letter or digit cannot fit, since no name starts so.
inline bool refusesName(quint64 starts, char16_t unit)
{
    return (starts & NSDateNameList::bitOf(unit)) == 0;
}

/// Whether a look at the first character is enough. Most patterns of a long list go this way.
inline bool isRefusedAtOnce(const NSDatePattern &pattern, const NSDateEnvironment &environment,
                            const NSDateText &text)
{
    using Kind = NSDateElement::Kind;
    const char16_t unit = text.leadingUnit();
    const NSDateNames &names = environment.names();
    if (!NSDateCharacters::isDigit(unit) && !NSDateCharacters::isASCIILetter(unit))
        return false;
    switch (pattern.leadingKind()) {
    case Kind::Number:
        if (NSDateCharacters::isDigit(unit))
            return refusesDigits(pattern, text);
        return NSDateCharacters::lowered(unit) != environment.startOfNaN &&
               (!pattern.isLedByMonth() || refusesName(names.startsOfMonths, unit));
    case Kind::MonthName:
        return refusesName(names.startsOfMonths, unit);
    case Kind::Weekday:
        return refusesName(names.startsOfWeekdays, unit);
    case Kind::HalfOfDay:
        return refusesName(names.startsOfHalves, unit);
    default:
        return false;
    }
}
} // namespace NSDateLead
