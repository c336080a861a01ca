#pragma once

#include "DateSaid_p.h"
#include "DateTokens_p.h"
#include <KTUtility/KTUtilityExport.h>

namespace KTPrivate::RelativeDates {
/// Reads an amount of time from now, or a day near today, if one begins at a token:
///
///     relative = "in" amounts ["ago"] | amounts "ago" | "two days ago" as one word
///              | "tomorrow" | "next week" | "next Monday" | "now"
///     amounts  = (number | "a") unit [["and"] amounts] | unit
///
/// A unit alone is one, in languages that say so ("час назад"); hours and minutes may have a fraction.
/// What it says goes into \a said; \a at is then behind it.
KTUTILITY_EXPORT bool read(const DateTokens &tokens, qsizetype *at, DateSaid *said);
} // namespace KTPrivate::RelativeDates
