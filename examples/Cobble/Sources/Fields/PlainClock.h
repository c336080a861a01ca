#pragma once

#include "PlainText.h"

#include <optional>

// Times of day in plain texts: "17:30", "5:30:00 PM".

namespace PlainClock {
/// Whether a text ends in a time of day, and how many ways there are to take it: two if a word for a
/// half of the day stands behind it, whichever that is; 0 if it is no such text.
/// \param first the run of the hour.
int countFor(const PlainText &text, qsizetype first);
/// The time in milliseconds; nothing if there is no such time.
/// \param way behind a word 0 is before noon, 1 is after.
std::optional<qint64> timeOf(const PlainText &text, qsizetype first, int way);
} // namespace PlainClock
