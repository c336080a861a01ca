#pragma once

#include "DateEngine_p.h"
#include "DatePattern_p.h"

/// Reads dates without ICU, where it is certain what ICU would answer.
///
/// Strict reading in the Gregorian calendar, digits 0 to 9, names from the locale: that is nearly
/// everything that people type, and a pattern that does not fit is rejected within nanoseconds.
/// Whatever else occurs (other digits, signs, zones, eras, the year 0) is left undecided.
/// The answers are those of DateEngine::parse(), which a test compares.
namespace KTPrivate::DateMatcher {
using Answer = DateAnswer;

/// Whether \a reading is of the kind that can be decided at all.
bool isDecidable(const DateReading &reading);

/// \param match receives the instant if it matched, and how far the text fitted unless it is
/// undecided.
Answer match(const DatePattern &pattern, const DateReading &reading, const DateText &text,
             DateMatch *match);

/// The one hour that "ha" takes without AM or PM: whitespace, a number from 1 to 12 in one or two
/// digits of any script, perhaps a colon, and nothing else. It is in the default date's half of the
/// day. \a text has to be complete.
bool matchBareHour(const DateReading &reading, const DateText &text, DateMatch *match);
} // namespace KTPrivate::DateMatcher
