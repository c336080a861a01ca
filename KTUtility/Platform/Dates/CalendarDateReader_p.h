#pragma once

#include "DateEngine_p.h"

#include <QString>
#include <QStringView>

// Reads dates with the patterns of the behaviour 10.0: "%m/%d/%y %I:%M:%S %p". They are about the
// Gregorian calendar only.

namespace KTPrivate::CalendarDateReader {
/// Reads a date from the start of \a text. Whitespace in the pattern is any number of spaces,
/// numbers may have fewer digits; hour 24 is 0:00 of the next day. %c, %x and %X cannot be read.
bool parse(const QString &pattern, QStringView text, const DateReading &reading, DateMatch *match);
} // namespace KTPrivate::CalendarDateReader
