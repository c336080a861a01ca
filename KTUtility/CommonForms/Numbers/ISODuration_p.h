#pragma once

// Private to the library. For fields of durations.

#include "TypedDecimal_p.h"

namespace KTPrivate::ISODuration {
/// Reads ISO 8601's durations of fixed length: "PT1H30M", "P1DT12H", "P2W", "-PT0,5S". The last
/// number may have a fraction; months and years are refused.
KTUTILITY_EXPORT TypedDecimal read(const FoldedText &text);
} // namespace KTPrivate::ISODuration
