#pragma once

#include "DateEnvironment_p.h"
#include "DatePattern_p.h"
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include <QString>

namespace KTPrivate::DateWriter {
/// Writes a date without ICU, as ICU would: numbers and the usual names in the Gregorian calendar
/// from 1 to 9999, where digits are 0 to 9.
/// \return false, and \a text untouched, if only ICU can decide.
bool write(const DatePattern &pattern, const DateEnvironment &environment,
           const TimeZoneRules &rules, qint64 time, QString *text);
} // namespace KTPrivate::DateWriter
