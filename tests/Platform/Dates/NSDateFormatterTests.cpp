#include <KTUtility/NSDateFormatter>

#include "support/TestSupport.h"
#include "support/Zones.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// A formatter of the United States, reading in New York.
struct American : NSDateFormatter
{
    American()
    {
        setLocale(NSLocale(u"en_US"_s));
        setTimeZone(newYork());
    }
};

QDateTime inNewYork(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), newYork());
}
} // namespace

TEST(NSDateFormatter, RunsItsExample)
{
    American formatter;
    formatter.setDateFormat(u"M/d/yy"_s);
    const QDateTime date = formatter.dateFromString(u"3/5/08"_s);
    EXPECT_EQ(date, inNewYork(2008, 3, 5));
    EXPECT_EQ(formatter.stringFromDate(date), u"3/5/08");
    formatter.setDateStyle(NSDateFormatterLongStyle);
    EXPECT_EQ(formatter.stringFromDate(date), u"March 5, 2008");
    formatter.setDateFormat(u"M/d/yy"_s);
    NSRange range{0, 14};
    QVariant value;
    EXPECT_TRUE(formatter.getObjectValue(&value, u"3/5/08 5:30 PM"_s, &range, nullptr));
    EXPECT_EQ(range, (NSRange{0, 6}));
    EXPECT_EQ(value.toDateTime(), date);
}

TEST(NSDateFormatter, StartsWithNothing)
{
    const NSDateFormatter formatter;
    EXPECT_EQ(formatter.formatterBehavior(), NSDateFormatterBehavior10_4);
    EXPECT_EQ(formatter.dateFormat(), u"");
    EXPECT_FALSE(formatter.dateFormat().isNull());
    EXPECT_EQ(formatter.dateStyle(), 0U);
    EXPECT_EQ(formatter.timeStyle(), 0U);
    EXPECT_FALSE(formatter.isLenient());
    EXPECT_FALSE(formatter.defaultDate().isValid());
    EXPECT_FALSE(formatter.generatesCalendarDates());
    EXPECT_EQ(formatter.stringFromDate(inNewYork(2008, 3, 5)), u"");
}

TEST(NSDateFormatter, TakesMissingFieldsFromTheDefaultDate)
{
    American formatter;
    formatter.setDateFormat(u"M/d"_s);
    EXPECT_EQ(formatter.dateFromString(u"3/5"_s), inNewYork(2000, 3, 5));
    formatter.setDefaultDate(inNewYork(2008, 2, 20, 12));
    EXPECT_EQ(formatter.dateFromString(u"3/5"_s), inNewYork(2008, 3, 5, 12));
    formatter.setDateFormat(u"k:m"_s);
    EXPECT_EQ(formatter.dateFromString(u"9:05"_s), inNewYork(2008, 2, 20, 9, 5));
    formatter.setDateFormat(u"h:m"_s);
    EXPECT_EQ(formatter.dateFromString(u"9:05"_s), inNewYork(2008, 2, 20, 21, 5));
}

TEST(NSDateFormatter, KeepsTheDateWhenTheWeekdayComesLast)
{
    American formatter;
    formatter.setLocale(NSLocale(u"zh_CN"_s));
    formatter.setDefaultDate(inNewYork(2008, 2, 20, 12));
    formatter.setDateStyle(NSDateFormatterFullStyle);
    EXPECT_EQ(formatter.dateFromString(u"2008年9月5日星期五"_s), inNewYork(2008, 9, 5, 12));
}

TEST(NSDateFormatter, ReadsABareHourOnlyAsTheWholeText)
{
    American formatter;
    formatter.setDateFormat(u"ha"_s);
    formatter.setDefaultDate(inNewYork(2008, 2, 20, 12));
    for (const char16_t *const text : {u"5", u"05", u"12", u"5:", u" 5", u"5pm", u"5 PM"})
        EXPECT_TRUE(formatter.getObjectValue(nullptr, QString::fromUtf16(text), nullptr, nullptr))
            << qPrintable(QString::fromUtf16(text));
    for (const char16_t *const text : {u"5 ", u"5.", u"5: ", u"17", u"0", u"", u"9:05", u"005"})
        EXPECT_FALSE(formatter.getObjectValue(nullptr, QString::fromUtf16(text), nullptr, nullptr))
            << qPrintable(QString::fromUtf16(text));
}

TEST(NSDateFormatter, ReadsYearsAsWideAsThePattern)
{
    American formatter;
    const auto reads = [&](const char16_t *pattern, const char16_t *text) {
        formatter.setDateFormat(QString::fromUtf16(pattern));
        return formatter.dateFromString(QString::fromUtf16(text)).isValid();
    };
    EXPECT_TRUE(reads(u"M/d/yy", u"3/4/08"));
    EXPECT_FALSE(reads(u"M/d/yy", u"3/4/2008"));
    EXPECT_FALSE(reads(u"M/d/yy", u"3/4/8"));
    EXPECT_TRUE(reads(u"M/d/yyyy", u"3/4/2008"));
    EXPECT_FALSE(reads(u"M/d/yyyy", u"3/4/08"));
    EXPECT_TRUE(reads(u"M/d/y", u"3/4/08"));
    EXPECT_TRUE(reads(u"M/d/y", u"3/4/2008"));
    EXPECT_FALSE(reads(u"M/d/y", u"3/4/108"));
    EXPECT_TRUE(reads(u"yyyyMMdd", u"20080304"));
}

TEST(NSDateFormatter, TakesThePatternFromTheStyles)
{
    American formatter;
    const QDateTime date = inNewYork(2008, 3, 5, 17, 30, 15);
    formatter.setDateStyle(NSDateFormatterShortStyle);
    EXPECT_EQ(formatter.dateFormat(), u"M/d/yy");
    formatter.setTimeStyle(NSDateFormatterShortStyle);
    EXPECT_EQ(formatter.dateFormat(), u"M/d/yy h:mm a");
    EXPECT_EQ(formatter.stringFromDate(date), u"3/5/08 5:30 PM");
    formatter.setDateFormat(u"d MMM"_s);
    EXPECT_EQ(formatter.dateStyle(), 1U);
    EXPECT_EQ(formatter.stringFromDate(date), u"5 Mar");
    formatter.setDateFormat(QString());
    EXPECT_EQ(formatter.dateFormat(), u"M/d/yy h:mm a");
    formatter.setDateFormat(u"d MMM"_s);
    formatter.setTimeStyle(NSDateFormatterNoStyle);
    EXPECT_EQ(formatter.dateFormat(), u"M/d/yy");
    formatter.setDateStyle(99);
    EXPECT_EQ(formatter.dateStyle(), 4U);
    EXPECT_EQ(formatter.stringFromDate(date), u"Wednesday, March 5, 2008");
    formatter.setDateStyle(NSDateFormatterNoStyle);
    EXPECT_EQ(formatter.dateFormat(), u"");
    EXPECT_EQ(formatter.stringFromDate(date), u"");
}

TEST(NSDateFormatter, FollowsItsLocale)
{
    American formatter;
    const QDateTime date = inNewYork(2008, 3, 5, 17, 30, 15);
    formatter.setDateStyle(NSDateFormatterFullStyle);
    formatter.setLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(formatter.stringFromDate(date), u"Mittwoch, 5. März 2008");
    formatter.setLocale(NSLocale(u"ja_JP"_s));
    EXPECT_EQ(formatter.stringFromDate(date), u"2008年3月5日水曜日");
    formatter.setLocale(NSLocale(u"ja_JP@calendar=japanese"_s));
    EXPECT_EQ(formatter.stringFromDate(date), u"平成20年3月5日水曜日");
    EXPECT_EQ(formatter.locale().localeIdentifier(), u"ja_JP@calendar=japanese");
}

TEST(NSDateFormatter, IsOfTheUsersLocaleAtFirst)
{
    NSDateFormatter formatter;
    NSLocale::setCurrentLocale(NSLocale(u"fr_FR"_s));
    formatter.setDateFormat(u"EEEE"_s);
    EXPECT_EQ(formatter.stringFromDate(inNewYork(2008, 3, 5, 12)), u"mercredi");
    NSLocale::resetCurrentLocale();
    EXPECT_EQ(formatter.locale().localeIdentifier(), u"fr_FR");
}

TEST(NSDateFormatter, FollowsItsZoneAndCalendar)
{
    American formatter;
    formatter.setDateFormat(u"d HH:mm z"_s);
    const QDateTime date = inNewYork(2008, 3, 5, 17, 30);
    EXPECT_EQ(formatter.stringFromDate(date), u"5 17:30 EST");
    formatter.setTimeZone(QTimeZone("Asia/Tokyo"));
    EXPECT_EQ(formatter.stringFromDate(date), u"6 07:30 GMT+9");
    NSCalendar calendar(NSGregorianCalendar);
    calendar.setTimeZone(QTimeZone("America/Los_Angeles"));
    formatter.setCalendar(calendar);
    EXPECT_EQ(formatter.timeZone().id(), "Asia/Tokyo");
    formatter.setTimeZone(QTimeZone());
    EXPECT_EQ(formatter.timeZone().id(), "America/Los_Angeles");
    EXPECT_EQ(formatter.stringFromDate(date), u"5 14:30 PST");
    EXPECT_EQ(formatter.calendar().timeZone().id(), "America/Los_Angeles");
}

TEST(NSDateFormatter, TakesWhatACalendarSaysAboutWeeks)
{
    American formatter;
    formatter.setDateFormat(u"w"_s);
    const QDateTime date = inNewYork(2010, 1, 1, 12);
    EXPECT_EQ(formatter.stringFromDate(date), u"1");
    NSCalendar calendar(NSGregorianCalendar);
    calendar.setFirstWeekday(2);
    calendar.setMinimumDaysInFirstWeek(4);
    formatter.setCalendar(calendar);
    EXPECT_EQ(formatter.stringFromDate(date), u"53");
}

TEST(NSDateFormatter, UsesTheNamesThatWereSet)
{
    using Symbols = NSDateFormatterSymbols;
    American formatter;
    QStringList months = formatter.symbols(Symbols::Month);
    EXPECT_EQ(months.size(), 12);
    months[2] = u"Ventôse"_s;
    formatter.setSymbols(Symbols::Month, months);
    formatter.setDateFormat(u"d MMMM yyyy"_s);
    EXPECT_EQ(formatter.stringFromDate(inNewYork(2008, 3, 5, 12)), u"5 Ventôse 2008");
    EXPECT_EQ(formatter.dateFromString(u"5 ventôse 2008"_s), inNewYork(2008, 3, 5));
    EXPECT_FALSE(formatter.dateFromString(u"5 march 2008"_s).isValid());
    formatter.setPMSymbol(u"o'clock in the evening"_s);
    formatter.setDateFormat(u"h a"_s);
    EXPECT_EQ(formatter.stringFromDate(inNewYork(2008, 3, 5, 17)), u"5 o'clock in the evening");
    EXPECT_EQ(American().PMSymbol(), u"PM");
}

TEST(NSDateFormatter, HasEverySymbolList)
{
    using Symbols = NSDateFormatterSymbols;
    American formatter;
    const auto count = [&](Symbols kind) { return int(formatter.symbols(kind).size()); };
    for (int kind = 0; kind <= int(Symbols::AMPM); ++kind) {
        const QStringList before = formatter.symbols(Symbols(kind));
        QStringList changed = before;
        changed[0] += u'!';
        formatter.setSymbols(Symbols(kind), changed);
        EXPECT_EQ(formatter.symbols(Symbols(kind)), changed) << kind;
        formatter.setSymbols(Symbols(kind), before);
    }
    EXPECT_EQ(count(Symbols::Era), 2);
    EXPECT_EQ(count(Symbols::VeryShortStandaloneMonth), 12);
    EXPECT_EQ(count(Symbols::VeryShortStandaloneWeekday), 7);
    EXPECT_EQ(count(Symbols::ShortStandaloneQuarter), 4);
    EXPECT_EQ(formatter.symbols(Symbols::Weekday).first(), u"Sunday");
}

TEST(NSDateFormatter, MakesDatesOfItsZoneOnRequest)
{
    American formatter;
    formatter.setDateFormat(u"M/d/yy"_s);
    const QDateTime plain = formatter.dateFromString(u"3/5/08"_s);
    EXPECT_EQ(plain.timeSpec(), Qt::UTC);
    formatter.setGeneratesCalendarDates(true);
    const QDateTime calendarDate = formatter.dateFromString(u"3/5/08"_s);
    EXPECT_EQ(calendarDate.timeZone(), newYork());
    EXPECT_EQ(calendarDate.time(), QTime(0, 0));
    EXPECT_EQ(plain, calendarDate);
}

TEST(NSDateFormatter, ShowsDatesOnly)
{
    American formatter;
    formatter.setDateFormat(u"M/d/yy"_s);
    const QDateTime date = inNewYork(2008, 3, 5);
    EXPECT_EQ(formatter.stringForObjectValue(date), u"3/5/08");
    EXPECT_EQ(formatter.editingStringForObjectValue(date), u"3/5/08");
    EXPECT_TRUE(formatter.stringForObjectValue(QDateTime()).isNull());
    EXPECT_TRUE(formatter.stringForObjectValue(QVariant()).isNull());
    EXPECT_TRUE(formatter.stringForObjectValue(u"3/5/08"_s).isNull());
    EXPECT_TRUE(formatter.stringForObjectValue(5).isNull());
    EXPECT_TRUE(formatter.stringFromDate(QDateTime()).isNull());
}

TEST(NSDateFormatter, KeepsItsSettings)
{
    NSDateFormatter formatter(u"%d"_s, true);
    EXPECT_EQ(formatter.formatterBehavior(), NSDateFormatterBehavior10_0);
    EXPECT_TRUE(formatter.allowsNaturalLanguage());
    EXPECT_EQ(formatter.dateFormat(), u"%d");
    formatter.setFormatterBehavior(NSDateFormatterBehavior10_4);
    formatter.setTimeZone(newYork());
    EXPECT_EQ(formatter.twoDigitStartDate(), inNewYork(1950, 1, 1));
    formatter.setTwoDigitStartDate(inNewYork(1960, 1, 1));
    EXPECT_EQ(formatter.twoDigitStartDate(), inNewYork(1960, 1, 1));
    formatter.setDefaultDate(inNewYork(2008, 3, 5));
    EXPECT_EQ(formatter.defaultDate(), inNewYork(2008, 3, 5));
    formatter.setDefaultDate(QDateTime());
    EXPECT_FALSE(formatter.defaultDate().isValid());
    formatter.setDateFormat(u"d"_s);
    EXPECT_EQ(formatter.stringFromDate(inNewYork(2008, 3, 5)), u"5");
    formatter.setFormatterBehavior(NSDateFormatterBehaviorDefault);
    EXPECT_EQ(formatter.stringFromDate(inNewYork(2008, 3, 5)), u"5");
}
