#pragma once

#include <QString>

namespace KTPrivate {
class DateWords;

/// Adds the words of a language that CLDR lacks: marks of times ("at"), articles, endings of
/// ordinals, other words for days, units and parts of the day.
void addDateWordRows(DateWords &words, const QString &language);
} // namespace KTPrivate
