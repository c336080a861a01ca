#pragma once

#include "DateEngine_p.h"
#include "DatePattern_p.h"

/// Reads dates without ICU, where it is certain what ICU would answer.
///
/// Strict reading in the Gregorian calendar, digits 0 to 9, names from the locale: that is nearly
/// everything that people type, and a pattern that does not fit is rejected within nanoseconds.
/// Whatever else occurs (other digits, signs, zones, eras, years before 1583) is left undecided.
/// The answers are those of DateEngine::parse(), which a test compares.
namespace KTPrivate::DateMatcher {
enum class Answer { Matched, Rejected, Undecided };

/// Whether \a reading is of the kind that can be decided at all.
bool isDecidable(const DateReading &reading);

/// \param match receives the instant if it matched, and how far the text fitted unless it is
/// undecided.
Answer match(const DatePattern &pattern, const DateReading &reading, const DateText &text,
             DateMatch *match);

/// The one hour that "ha" takes without AM or PM: whitespace, one or two digits from 1 to 12,
/// perhaps a colon, and nothing else. It is in the default date's half of the day.
bool matchBareHour(const DateReading &reading, const DateText &text, DateMatch *match);
} // namespace KTPrivate::DateMatcher
