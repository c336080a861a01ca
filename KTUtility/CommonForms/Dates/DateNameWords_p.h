#pragma once

#include <unicode/locid.h>

namespace KTPrivate {
class DateWords;

/// Adds the names of months, weekdays and eras in all widths and cases, and of both halves of a day.
void addDateNames(DateWords &words, const icu::Locale &locale);
/// Adds the names of the parts of a day: "in the evening", "noon".
void addDayPeriods(DateWords &words, const icu::Locale &locale);
/// Adds what makes numbers ordinals: "st", "º".
void addOrdinals(DateWords &words, const icu::Locale &locale);
/// Adds the English names where they mean nothing else.
void addEnglishDateWords(DateWords &words);
} // namespace KTPrivate
