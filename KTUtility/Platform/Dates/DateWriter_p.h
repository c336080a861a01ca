#pragma once

#include "DateEnvironment_p.h"
#include "DatePattern_p.h"
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <QString>

#include <functional>

namespace KTPrivate::DateWriter {
/// Writes a date without ICU, as ICU would: numbers and the usual names in the Gregorian calendar
/// from 1 to 9999, where digits are 0 to 9.
/// \param zoneName is asked for the zone's name at \a time, in a number of letters; with none,
/// patterns that have it are ICU's.
/// \return false, and \a text untouched, if only ICU can decide.
bool write(const DatePattern &pattern, const DateEnvironment &environment,
           const TimeZoneRules &rules, qint64 time, const std::function<QString(int)> &zoneName,
           QString *text);
} // namespace KTPrivate::DateWriter
