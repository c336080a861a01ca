#pragma once

#include <unicode/locid.h>

namespace KTPrivate {
class DateWords;

/// Adds the words for days near today and for amounts of time from now ("in 3 days", "ago"), with
/// the names of the units in all plurals and widths.
void addRelativeDateWords(DateWords &words, const icu::Locale &locale);
} // namespace KTPrivate
