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
    const char16_t sought = pattern.unitAfterLead();
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

/// What rejectedAt() answers where a text may fit.
inline constexpr qsizetype NotRejected = -1;

/// Whether a character cannot stand where a pattern wants another one. A text may end there.
inline bool rejectsUnit(char16_t sought, char16_t unit)
{
    return sought != 0 && unit != 0 && sought != unit &&
           !(sought == u' ' && DateCharacters::isWhitespaceOfTexts(unit));
}

/// How far a text fits that starts with a letter where a month is read, if it cannot fit.
inline qsizetype monthRejectedAt(const DatePattern &pattern, const DateEnvironment &environment,
                                 const DateText &text)
{
    if (rejectsName(environment.names().startsOfMonths, text.leadingUnit()))
        return text.lead();
    // "Sept" may be no name of the locale.
    if (environment.isEnglish && DateCharacters::lowered(text.leadingUnit()) == u's')
        return NotRejected;
    const DateNames &names = environment.names();
    const DateName &name = text.leadingName(names.monthsOf(pattern.leadingLetter()));
    if (!name.isDecided)
        return NotRejected;
    const qsizetype end = text.lead() + name.length;
    return name.index < 0 || rejectsUnit(pattern.unitAfterLead(), text.unitAt(end)) ? end
                                                                                    : NotRejected;
}

/// The same for a text that starts with a letter, where a number is read.
inline qsizetype letterRejectedAt(const DatePattern &pattern, const DateEnvironment &environment,
                                  const DateText &text)
{
    if (DateCharacters::lowered(text.leadingUnit()) == environment.startOfNaN)
        return NotRejected;
    return pattern.isLedByMonth() ? monthRejectedAt(pattern, environment, text) : text.lead();
}

/// Whether a look at the first characters is enough. Most patterns of a long list go this way.
/// \return how far the text fits, or NotRejected.
inline qsizetype rejectedAt(const DatePattern &pattern, const DateEnvironment &environment,
                            const DateText &text)
{
    using Kind = DateElement::Kind;
    const DateMemory &memory = text.memory();
    if (memory.answer == DateAnswer::Rejected && memory.knows(pattern.datePrefix(), &environment))
        return memory.position;
    const char16_t unit = text.leadingUnit();
    const bool isDigit = DateCharacters::isDigit(unit);
    if (!isDigit && !DateCharacters::isASCIILetter(unit))
        return NotRejected;
    const DateNames &names = environment.names();
    const auto atLead = [&](bool isRejected) { return isRejected ? text.lead() : NotRejected; };
    switch (pattern.leadingKind()) {
    case Kind::Number:
        return isDigit ? atLead(rejectsDigits(pattern, text))
                       : letterRejectedAt(pattern, environment, text);
    case Kind::MonthName:
        return isDigit ? atLead(rejectsName(names.startsOfMonths, unit))
                       : monthRejectedAt(pattern, environment, text);
    case Kind::Weekday:
        return atLead(rejectsName(names.startsOfWeekdays, unit));
    case Kind::HalfOfDay:
        return atLead(rejectsName(names.startsOfHalves, unit));
    default:
        return NotRejected;
    }
}
} // namespace KTPrivate::DateLead
