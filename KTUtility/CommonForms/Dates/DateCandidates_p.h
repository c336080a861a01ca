#pragma once

#include "DateSaid_p.h"
#include <KTUtility/KTUtilityExport.h>

#include <QVarLengthArray>

#include <optional>

namespace KTPrivate {
/// A day as a text may mean it; what is not said is not there.
struct DateCandidate
{
    std::optional<int> year;
    bool hasShortYear = false; ///< of two digits
    std::optional<int> month;
    std::optional<int> day;
    /// The numbers that these are, in the order of what was said; -1 for none.
    int yearNumber = -1;
    int monthNumber = -1;
    int dayNumber = -1;
};

/// The orders of day, month and year, as KTDateTimeFormatter::InputOrder has them.
enum class DateOrder { MonthDayYear, DayMonthYear, YearMonthDay };

using DateCandidates = QVarLengthArray<DateCandidate, 4>;

/// What the numbers of a text can mean, the likeliest first: in the locale's order, and in the
/// others that people write. Which of them exist is not known here.
/// \param dayMonthSign the sign between day and month, if the day comes first where there is no
/// year, as in Swedish "2/5"; else 0.
KTUTILITY_EXPORT DateCandidates dateCandidatesOf(const DateSaid &said, DateOrder order,
                                                 char16_t dayMonthSign = 0);
} // namespace KTPrivate
