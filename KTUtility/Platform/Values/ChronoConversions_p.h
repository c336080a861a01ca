#pragma once

// Private to the library. For the formatter of durations, which shows lengths of time.

#include <KTUtility/KTUtilityExport.h>

#include <QVariant>

namespace KTPrivate {
/// Lets Qt's variants convert lengths of time (std::chrono::duration) to and from numbers of seconds:
/// the formatter of durations reads seconds, records may keep minutes. Happens when the library is
/// loaded.
/// \return false if there were such conversions already.
bool addChronoConversions();

/// Whether a value is a length of time that converts so.
KTUTILITY_EXPORT bool isLengthOfTime(const QVariant &value);
} // namespace KTPrivate
