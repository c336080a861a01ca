#pragma once

#include <unicode/locid.h>

namespace KTPrivate {
class DateWords;

/// Adds the words that a locale's own patterns have between day, month and year ("de"), before times
/// ("um"), and behind numbers ("年", "h"); and tells whether its hours go to twelve.
void addDatePatternWords(DateWords &words, const icu::Locale &locale);
} // namespace KTPrivate
