#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSCalendar>
#include <KTUtility/NSLocale>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QString reading(const KTTimeFormatter &formatter, const char16_t *text)
{
    QVariant value = 7;
    const bool isRead = formatter.getObjectValue(&value, QString::fromUtf16(text));
    EXPECT_EQ(isRead, value.isValid());
    return wallTime(value.toDateTime());
}
} // namespace

TEST(KTTimeFormatter, ShowsShortTimes)
{
    const KTTimeFormatter formatter;
    EXPECT_FALSE(formatter.displayDate());
    EXPECT_TRUE(formatter.displayTime());
    EXPECT_TRUE(formatter.displayYear());
    EXPECT_EQ(formatter.dateStyle(), 0U);
    EXPECT_EQ(formatter.timeStyle(), 1U);
    EXPECT_EQ(formatter.inputOrder(), 0);
    const QDateTime date(QDate(2008, 3, 5), QTime(22, 30), KTPrivate::UTC);
    EXPECT_EQ(formatter.stringForObjectValue(date), u"5:30 PM");
    EXPECT_EQ(formatter.options().value(kKTFieldOption_timeStyle), 1U);
}

TEST(KTTimeFormatter, RunsItsExample)
{
    const auto formatter = KTTimeFormatter::createTimeFormatter();
    QVariant value;
    EXPECT_TRUE(formatter->getObjectValue(&value, u"5:30pm"_s));
    EXPECT_EQ(wallTime(value.toDateTime()), u"2001-01-01T17:30:00");
    EXPECT_EQ(formatter->stringForObjectValue(value), u"5:30 PM");
}

TEST(KTTimeFormatter, PutsAllTimesOnOneDay)
{
    const KTTimeFormatter formatter;
    EXPECT_EQ(reading(formatter, u"9:05"), u"2001-01-01T09:05:00");
    EXPECT_EQ(reading(formatter, u"9:05 AM"), u"2001-01-01T09:05:00");
    EXPECT_EQ(reading(formatter, u"5"), u"2001-01-01T05:00:00");
    EXPECT_EQ(reading(formatter, u"24:00"), u"2001-01-01T00:00:00");
    EXPECT_EQ(reading(formatter, u"3/4/08 5:30 PM"), u"2001-01-01T17:30:00");
    EXPECT_EQ(reading(formatter, u"3/4/08"), u"2001-01-01T12:00:00");
    EXPECT_EQ(reading(formatter, u"2008-07-05T14:30:15"), u"2001-01-01T14:30:15");
}

// The texts of docs/decisions/typed-dates.md.
TEST(KTTimeFormatter, TakesNumbersWithPointsForDays)
{
    for (const char *const locale : {"da_DK", "fi_FI", "id_ID", "de_DE"}) {
        const UserLocale user(locale);
        const KTTimeFormatter formatter;
        EXPECT_EQ(reading(formatter, u"08.05"), u"2001-01-01T12:00:00") << locale;
        EXPECT_EQ(reading(formatter, u"1.03"), u"2001-01-01T12:00:00") << locale;
        EXPECT_EQ(reading(formatter, u"8:05"), u"2001-01-01T08:05:00") << locale;
    }
}

TEST(KTTimeFormatter, RejectsWhatIsNoTime)
{
    const KTTimeFormatter formatter;
    EXPECT_EQ(reading(formatter, u""), u"NO");
    EXPECT_EQ(reading(formatter, u"  "), u"NO");
    EXPECT_EQ(reading(formatter, u"noon"), u"NO");
    EXPECT_EQ(reading(formatter, u"25:00"), u"NO");
    EXPECT_TRUE(formatter.getObjectValue(nullptr, u"9:05"_s));
}

TEST(KTTimeFormatter, FillsInTodayInJapanToo)
{
    const UserLocale user(u"ja_JP"_s);
    const KTTimeFormatter formatter;
    EXPECT_EQ(formatter.defaultDate(), formatter.today());
    EXPECT_EQ(reading(formatter, u"17:30"), u"2001-01-01T17:30:00");
    EXPECT_EQ(
        formatter.stringForObjectValue(QDateTime(QDate(2001, 1, 1), QTime(22, 30), KTPrivate::UTC)),
        u"17:30");
}

// Deliberate: the year is that of the locale's calendar, so that times of two calendars are
// centuries apart.
TEST(KTTimeFormatter, TheReferenceDayIsTheFirstOf2001InTheLocalesCalendar)
{
    for (const char *const locale :
         {"en_US", "th_TH", "fa_IR", "ar_SA@calendar=islamic-umalqura"}) {
        const UserLocale user(locale);
        const KTTimeFormatter formatter;
        QVariant value;
        ASSERT_TRUE(formatter.getObjectValue(&value, u"17:30"_s)) << locale;
        const NSCalendar calendar = NSCalendar::calendarOfLocale(NSLocale::currentLocale());
        const NSDateComponents parts =
            calendar.components(NSYearCalendarUnit | NSMonthCalendarUnit | NSDayCalendarUnit |
                                    NSHourCalendarUnit | NSMinuteCalendarUnit,
                                value.toDateTime());
        const QList<int> numbers = {parts.year, parts.month, parts.day, parts.hour, parts.minute};
        EXPECT_EQ(numbers, QList<int>({2001, 1, 1, 17, 30})) << locale;
    }
}

// New York's clocks went from 2:00 to 3:00 on 8 March 2026.
TEST(KTTimeFormatter, TakesTimesAsTheyAreTypedOnTheDayOfSummerTime)
{
    class OnThatDay : public KTTimeFormatter
    {
    public:
        QDateTime defaultDate() const override
        {
            return QDateTime(QDate(2026, 3, 8), QTime(16, 0), KTPrivate::UTC);
        }
    };
    const OnThatDay formatter;
    EXPECT_EQ(reading(formatter, u"2:30 AM"), u"2001-01-01T02:30:00");
    EXPECT_EQ(reading(formatter, u"2:30"), u"2001-01-01T02:30:00");
    EXPECT_EQ(reading(formatter, u"2:3٠ AM"), u"2001-01-01T02:30:00");
    EXPECT_EQ(reading(formatter, u"2"), u"2001-01-01T02:00:00");
    EXPECT_EQ(reading(formatter, u"3:30 AM"), u"2001-01-01T03:30:00");
    EXPECT_EQ(reading(formatter, u"1:59 AM"), u"2001-01-01T01:59:00");
    EXPECT_EQ(reading(formatter, u"3/8/26 2:30 AM"), u"2001-01-01T02:30:00");
    // Dates have no such hour, and take the next.
    const KTDateTimeFormatter dates;
    QVariant value;
    ASSERT_TRUE(dates.getObjectValue(&value, u"3/8/26 2:30 AM"_s));
    EXPECT_EQ(wallTime(value.toDateTime()), u"2026-03-08T03:30:00");
}
