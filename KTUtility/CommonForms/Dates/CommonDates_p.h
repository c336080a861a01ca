#pragma once

// Private to the library. For the formatters of dates and times.

#include "DateCandidates_p.h"
#include <KTUtility/CommonForms/Text/KTReading.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSCalendar.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QDateTime>
#include <QString>

namespace KTPrivate {
/// The field that a date or time is typed into.
struct CommonDateField
{
    NSLocale locale;
    NSCalendar calendar;
    DateOrder order = DateOrder::MonthDayYear; ///< that of the locale
    bool showsDate = true;
    bool showsTime = false;
    qint64 now = 0; ///< in milliseconds since 1970
};

/// A typed date or time, as people commonly write them; see docs/common-forms.md.
struct CommonDate
{
    enum class Outcome {
        Unknown, ///< there is something in the text that is no part of a date
        Refused, ///< it looks like a date, but cannot be one, or could be any
        Read
    };

    Outcome outcome = Outcome::Unknown;
    QDateTime date;
    /// The day and time that a clock shows then, in UTC; as typed where summer time skips it.
    QDateTime clock;
    KTReading reading;
    /// Why it was refused.
    const char16_t *reason = nullptr;
};

/// Reads a typed text.
KTUTILITY_EXPORT CommonDate readCommonDate(const QString &text, const CommonDateField &field);
} // namespace KTPrivate
