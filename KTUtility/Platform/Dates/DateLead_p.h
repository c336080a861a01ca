#pragma once

#include "DateEnvironment_p.h"
#include "DatePattern_p.h"
#include "DateText_p.h"

// A look at the first characters of a text. Of the 60 patterns that a field tries, most are
// rejected here, each in a few nanoseconds.

namespace KTPrivate::DateLead {
/// More digits than any field takes, and few enough for an int.
inline constexpr qsizetype MaximalDigits = 9;

/// Whether ICU might take what stands behind digits for a part of the number.
inline bool mayBeOfNumber(char16_t unit)
{
    if (unit < 0x80)
        return DateCharacters::lowered(unit) == u'e';
    return !DateCharacters::isEastAsian(unit) && !DateCharacters::isWhitespaceOfTexts(unit);
}

/// Whether a text that starts with digits cannot fit.
inline bool rejectsDigits(const DatePattern &pattern, const DateText &text)
{
    const char16_t sought = pattern.unitAfterLeadingNumber();
    const char16_t unit = text.unitAfterDigits();
    if (sought == 0 || sought == unit || unit == 0 || text.leadingDigits() > MaximalDigits)
        return false;
    return !mayBeOfNumber(unit) && !(sought == u' ' && DateCharacters::isWhitespaceOfTexts(unit));
}

/// Whether a text that starts with an ASCII letter or digit cannot fit, since no name starts so.
inline bool rejectsName(quint64 starts, char16_t unit)
{
    return (starts & DateNameList::bitOf(unit)) == 0;
}

/// Whether a look at the first character is enough. Most patterns of a long list go this way.
inline bool isRejectedAtOnce(const DatePattern &pattern, const DateEnvironment &environment,
                             const DateText &text)
{
    using Kind = DateElement::Kind;
    const char16_t unit = text.leadingUnit();
    const DateNames &names = environment.names();
    if (!DateCharacters::isDigit(unit) && !DateCharacters::isASCIILetter(unit))
        return false;
    switch (pattern.leadingKind()) {
    case Kind::Number:
        if (DateCharacters::isDigit(unit))
            return rejectsDigits(pattern, text);
        return DateCharacters::lowered(unit) != environment.startOfNaN &&
               (!pattern.isLedByMonth() || rejectsName(names.startsOfMonths, unit));
    case Kind::MonthName:
        return rejectsName(names.startsOfMonths, unit);
    case Kind::Weekday:
        return rejectsName(names.startsOfWeekdays, unit);
    case Kind::HalfOfDay:
        return rejectsName(names.startsOfHalves, unit);
    default:
        return false;
    }
}
} // namespace KTPrivate::DateLead
