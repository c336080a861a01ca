#pragma once

#include "NSDateEnvironment_p.h"
#include "NSDatePattern_p.h"
#include "NSTimeZoneRules_p.h"

#include <QString>

namespace NSDateWriter {
/// Writes a date without ICU, as ICU would: numbers and the usual names in the Gregorian calendar
/// from 1583 to 9999, where digits are 0 to 9.
/// \return false, and \a text untouched, if only ICU can tell.
bool write(const NSDatePattern &pattern, const NSDateEnvironment &environment,
           const NSTimeZoneRules &rules, qint64 time, QString *text);
} // namespace NSDateWriter
