#pragma once

#include <KTUtility/CommonForms/Dates/CommonDates_p.h>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>
#include <QString>

#include "support/InZone.h"
#include "support/TestSupport.h"

#include <algorithm>

namespace testing_support {
/// The moment at which all texts are typed: Wednesday, 5 June 2019, 14:30:20 UTC.
inline QDateTime momentOfTyping()
{
    return {QDate(2019, 6, 5), QTime(14, 30, 20), KTPrivate::UTC};
}

/// A field for dates, with or without times, or for times alone.
inline KTPrivate::CommonDateField commonDateField(const QString &locale, bool showsDate = true,
                                                  bool showsTime = true)
{
    KTDateTimeFormatter formatter;
    formatter.setLocale(NSLocale(locale));
    (void)formatter.displayFormatter(); // finds the order
    return {NSLocale(locale),
            NSCalendar::calendarOfLocale(NSLocale(locale)),
            KTPrivate::DateOrder(std::min(formatter.inputOrder(), 2)),
            showsDate,
            showsTime,
            momentOfTyping().toMSecsSinceEpoch()};
}

/// What a clock shows at the date that is read; "refused" or "unknown" if none is.
inline QString readAs(const QString &text, const KTPrivate::CommonDateField &field)
{
    const KTPrivate::CommonDate date = KTPrivate::readCommonDate(text, field);
    if (date.outcome == KTPrivate::CommonDate::Outcome::Unknown)
        return QStringLiteral("unknown");
    if (date.outcome == KTPrivate::CommonDate::Outcome::Refused)
        return QStringLiteral("refused");
    return date.clock.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

struct ReadingRow
{
    const char *locale;
    const char16_t *text;
    const char16_t *reading;
};

inline void expectReadings(std::initializer_list<ReadingRow> rows, bool showsDate = true,
                           bool showsTime = true)
{
    const InZone zone("UTC");
    for (const ReadingRow &row : rows) {
        const QString text = QString::fromUtf16(row.text);
        const KTPrivate::CommonDateField field =
            commonDateField(QString::fromLatin1(row.locale), showsDate, showsTime);
        EXPECT_EQ(readAs(text, field), QStringView(row.reading))
            << row.locale << ' ' << text.toStdString();
    }
}
} // namespace testing_support
