// What formatters of dates show for days and clock times.

#include <KTUtility/Platform/Dates/ShownInstant_p.h>

#include "Formatters/FormatterSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTTimeFormatter>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {
QString shown(const QVariant &value, const QString &pattern, const QTimeZone &zone)
{
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(u"en_US_POSIX"_s));
    formatter.setTimeZone(zone);
    formatter.setDateFormat(pattern);
    return formatter.stringForObjectValue(value);
}
} // namespace

TEST(ShownInstant, ADayBeginsInTheFormattersZone)
{
    struct Row
    {
        const char *zone;
        QDate day;
        const char16_t *shown;
    };
    for (const Row &row : {
             Row{"Asia/Tokyo", QDate(2026, 3, 5), u"2026-03-05 00:00"},
             Row{"America/New_York", QDate(2026, 3, 5), u"2026-03-05 00:00"},
             Row{"UTC", QDate(1969, 12, 31), u"1969-12-31 00:00"},
             // The clock went from midnight to one.
             Row{"America/Sao_Paulo", QDate(2018, 11, 4), u"2018-11-04 01:00"},
             Row{"Asia/Beirut", QDate(2020, 3, 29), u"2020-03-29 01:00"},
         }) {
        EXPECT_EQ(shown(row.day, u"yyyy-MM-dd HH:mm"_s, QTimeZone(row.zone)),
                  QString::fromUtf16(row.shown));
    }
}

TEST(ShownInstant, ATimeIsShownWhereNoDayIs)
{
    const QTimeZone zone("Europe/Berlin");
    const QVariant time = QTime(17, 5, 9);
    EXPECT_EQ(shown(time, u"HH:mm:ss"_s, zone), u"17:05:09"_s);
    EXPECT_EQ(shown(time, u"h 'Uhr day' a"_s, zone), u"5 Uhr day PM"_s);
    EXPECT_TRUE(shown(time, u"HH:mm d"_s, zone).isNull());
    EXPECT_TRUE(shown(time, u"yyyy"_s, zone).isNull());
}

TEST(ShownInstant, NothingElseIsADate)
{
    for (const QVariant &value : {QVariant(), QVariant(u"2026-03-05"_s), QVariant(7),
                                  QVariant(QDate()), QVariant(QTime()), QVariant(QDateTime())})
        EXPECT_TRUE(shown(value, u"HH:mm"_s, QTimeZone::utc()).isNull());
}

TEST(ShownInstant, FormattersOfFieldsShowDaysTimesAndLengths)
{
    const auto dates = formatterIn<KTDateTimeFormatter>(u"de_DE"_s);
    EXPECT_EQ(dates->stringForObjectValue(QDate(2026, 3, 5)),
              dates->stringForObjectValue(QDate(2026, 3, 5).startOfDay()));
    EXPECT_TRUE(dates->stringForObjectValue(QDate(2026, 3, 5)).contains(u"2026"_s));
    EXPECT_TRUE(dates->stringForObjectValue(QDate()).isNull());
    const auto times = formatterIn<KTTimeFormatter>(u"de_DE"_s);
    EXPECT_EQ(times->stringForObjectValue(QTime(17, 5)), u"17:05"_s);
    const KTDurationFormatter durations;
    EXPECT_EQ(durations.stringForObjectValue(QVariant::fromValue(std::chrono::minutes(90))),
              durations.stringForObjectValue(5400));
    EXPECT_FALSE(durations.stringForObjectValue(5400).isEmpty());
}
