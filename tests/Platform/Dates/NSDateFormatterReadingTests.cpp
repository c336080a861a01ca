// Reading with behaviour 10.4: the platform's rules where they differ from ICU's, odd zones, odd
// years, and texts that are no dates at all.

#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <atomic>
#include <thread>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// The wall time in a formatter's zone; null if the text is not read to its end.
QString readText(const NSDateFormatter &formatter, const QString &text)
{
    NSRange range{0, text.size()};
    QVariant value;
    if (!formatter.getObjectValue(&value, text, &range, nullptr) || range.length != text.size())
        return QString();
    const QDateTime date = value.toDateTime().toTimeZone(formatter.timeZone());
    return date.toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

struct Reader : NSDateFormatter
{
    explicit Reader(const char *locale, const char *zone = "America/New_York")
    {
        setLocale(NSLocale(QString::fromLatin1(locale)));
        setTimeZone(QTimeZone(zone));
    }

    QString operator()(const char16_t *pattern, const char16_t *text)
    {
        setDateFormat(QString::fromUtf16(pattern));
        return readText(*this, QString::fromUtf16(text));
    }

    void setDefault(int year, int month, int day, int hour = 12)
    {
        setDefaultDate(QDateTime(QDate(year, month, day), QTime(hour, 0), timeZone()));
    }
};
} // namespace

TEST(NSDateFormatterReading, TakesSkippedTimesAnHourOn)
{
    Reader reader("en_US");
    EXPECT_EQ(reader(u"M/d/yy h:m a", u"3/9/08 1:59 AM"), u"2008-03-09 01:59:00");
    EXPECT_EQ(reader(u"M/d/yy h:m a", u"3/9/08 2:30 AM"), u"2008-03-09 03:30:00");
    EXPECT_EQ(reader(u"M/d/yy h:m a", u"3/9/08 3:30 AM"), u"2008-03-09 03:30:00");
    // Through ICU, since the digits are not 0 to 9.
    EXPECT_EQ(reader(u"M/d/yy h:m a", u"3/９/08 2:30 AM"), u"2008-03-09 03:30:00");
    EXPECT_EQ(reader(u"M/d/yy h:m a", u"2/３0/08 2:30 AM"), QString());
    // Half an hour, and a whole day.
    Reader lordHowe("en_AU", "Australia/Lord_Howe");
    EXPECT_EQ(lordHowe(u"d/M/yyyy H:m", u"5/10/2008 2:15"), u"2008-10-05 02:45:00");
    Reader samoa("en_US", "Pacific/Apia");
    EXPECT_EQ(samoa(u"yyyy-M-d H:m", u"2011-12-30 5:00"), u"2011-12-31 05:00:00");
}

TEST(NSDateFormatterReading, KnowsWhatTheClockShows)
{
    const auto clockOf = [](const NSDateFormatter &formatter, const QString &text) {
        DateMatch match;
        EXPECT_TRUE(DateFormatterAccess::parse(formatter, DateText(text), &match));
        return QDateTime::fromMSecsSinceEpoch(match.localTime, UTC).toString(u"d H:mm"_s);
    };
    Reader reader("en_US");
    reader.setDateFormat(u"M/d/yy h:m a"_s);
    EXPECT_EQ(clockOf(reader, u"3/8/08 2:30 AM"_s), u"8 2:30");
    EXPECT_EQ(clockOf(reader, u"3/9/08 2:30 AM"_s), u"9 2:30");
    EXPECT_EQ(clockOf(reader, u"3/9/08 3:30 AM"_s), u"9 3:30");
    EXPECT_EQ(clockOf(reader, u"3/9/08 2:3٠ AM"_s), u"9 2:30"); // through ICU
    EXPECT_EQ(clockOf(reader, u"3/8/08 2:3٠ AM"_s), u"8 2:30");
    reader.setDateFormat(u"M/d/yy h:m a z"_s);
    EXPECT_EQ(clockOf(reader, u"3/8/08 2:30 AM PST"_s), u"8 5:30");
    NSDateFormatter old(u"%m/%d/%y %H:%M"_s, true);
    old.setLocale(NSLocale(u"en_US"_s));
    old.setTimeZone(QTimeZone("America/New_York"));
    EXPECT_EQ(clockOf(old, u"3/8/08 14:30"_s), u"8 14:30");
    EXPECT_EQ(clockOf(old, u"march 9, 2008 at 2:30"_s), u"9 2:30");
}

TEST(NSDateFormatterReading, TakesTheLaterOfDoubledTimes)
{
    Reader reader("en_US");
    reader.setDateFormat(u"M/d/yy h:m a"_s);
    const QDateTime later = reader.dateFromString(u"11/2/08 1:30 AM"_s);
    EXPECT_EQ(later, QDateTime(QDate(2008, 11, 2), QTime(6, 30), UTC));
    EXPECT_EQ(reader.dateFromString(u"11/2/08 1:3０ AM"_s), later);
}

TEST(NSDateFormatterReading, KnowsOddZones)
{
    const auto utcOf = [](const char *zone) {
        Reader reader("en_US", zone);
        reader.setDateFormat(u"M/d/yy H:m"_s);
        return reader.dateFromString(u"7/5/08 12:00"_s).toUTC().toString(u"dd HH:mm"_s);
    };
    EXPECT_EQ(utcOf("Asia/Kathmandu"), u"05 06:15");
    EXPECT_EQ(utcOf("America/St_Johns"), u"05 14:30");
    EXPECT_EQ(utcOf("Australia/Lord_Howe"), u"05 01:30");
    EXPECT_EQ(utcOf("Pacific/Apia"), u"05 23:00");
    EXPECT_EQ(utcOf("UTC+05:30"), u"05 06:30");
}

TEST(NSDateFormatterReading, KnowsSeptemberByBothNames)
{
    for (const char *const locale : {"en_US", "en_GB"}) {
        Reader reader(locale);
        for (const char16_t *const text :
             {u"Sep 5, 2008", u"Sept 5, 2008", u"SEPT 5, 2008", u"September 5, 2008"}) {
            EXPECT_EQ(reader(u"MMM d, yyyy", text), u"2008-09-05 00:00:00");
            EXPECT_EQ(reader(u"MMMM d, yyyy", text), u"2008-09-05 00:00:00");
        }
        EXPECT_EQ(reader(u"MMM d", u"Septe 5"), QString());
        EXPECT_EQ(reader(u"MMM d", u"Sept. 5"), QString());
        // Through ICU, since the digits are not 0 to 9.
        EXPECT_EQ(reader(u"d MMM yyyy", u"５ Sept 2008"), u"2008-09-05 00:00:00");
        EXPECT_EQ(reader(u"d MMM yyyy", u"５ sep 2008"), u"2008-09-05 00:00:00");
    }
    EXPECT_EQ(Reader("de_DE")(u"d MMM yyyy", u"5 Sep 2008"), QString());
}

TEST(NSDateFormatterReading, ReportsLengthsOfTheSourceForSeptember)
{
    Reader reader("en_GB");
    reader.setDateFormat(u"d MMM"_s);
    NSRange range{0, 12};
    EXPECT_TRUE(reader.getObjectValue(nullptr, u"５ Sep at noon"_s, &range, nullptr));
    EXPECT_EQ(range, (NSRange{0, 5}));
}

TEST(NSDateFormatterReading, ReadsWhatStylesShow)
{
    for (const char *const name :
         {"en_US", "en_GB", "de_DE", "fr_FR", "ja_JP", "sv_SE", "zh_CN", "ko_KR", "pl_PL"}) {
        Reader reader(name);
        reader.setDefault(2008, 2, 20);
        const QDateTime date(QDate(2008, 9, 5), QTime(17, 30), reader.timeZone());
        for (unsigned style = 1; style <= 4; ++style) {
            reader.setDateStyle(style);
            reader.setTimeStyle(1);
            EXPECT_EQ(readText(reader, reader.stringFromDate(date)), u"2008-09-05 17:30:00")
                << name << ' ' << qPrintable(reader.stringFromDate(date));
        }
    }
}

TEST(NSDateFormatterReading, IsStrictUnlessLenient)
{
    Reader reader("en_US");
    EXPECT_EQ(reader(u"M/d/yy", u"2/30/08"), QString());
    EXPECT_EQ(reader(u"M/d/yy", u"13/1/08"), QString());
    EXPECT_EQ(reader(u"M/d/yy", u"3 / 4 / 08"), QString());
    EXPECT_EQ(reader(u"H:m", u"25:00"), QString());
    EXPECT_EQ(reader(u"k:m", u"24:00"), u"2000-01-01 00:00:00");
    reader.setLenient(true);
    EXPECT_TRUE(reader.isLenient());
    EXPECT_EQ(reader(u"M/d/yy", u"2/30/08"), u"2008-03-01 00:00:00");
    EXPECT_EQ(reader(u"M/d/yy", u"13/1/08"), u"2009-01-01 00:00:00");
    EXPECT_EQ(reader(u"M/d/yy", u"3 / 4 / 08"), u"2008-03-04 00:00:00");
    reader.setLenient(false);
    EXPECT_EQ(reader(u"M/d/yy", u"2/30/08"), QString());
}

namespace {
struct Width
{
    const char16_t *pattern;
    const char16_t *text;
    const char16_t *read; ///< null if the pattern does not fit
};

/// By the pattern's widths, whether ICU has to be asked (digits of other scripts, zones, weeks) or not,
/// and whatever its version would take.
constexpr Width Widths[] = {
    {u"M/d/yyyy h:mm:ss a", u"3/4/2008 4:0:11 PM", nullptr},
    {u"M/d/yyyy h:mm:ss a", u"3/4/2008 4:00:1 PM", nullptr},
    {u"M/d/yyyy h:mm:ss a", u"3/4/2008 4:00:11 PM", u"2008-03-04 16:00:11"},
    {u"M/d/yyyy h:mm:ss a", u"3/4/2008 4:０:11 PM", nullptr},
    {u"M/d/yyyy h:mm:ss a", u"3/4/2008 4:０0:1１ PM", u"2008-03-04 16:00:11"},
    {u"M/d/yyyy h:m:s a", u"3/4/2008 ４:0:1 PM", u"2008-03-04 16:00:01"},
    {u"dd.M.yy", u"4.Dec.29", nullptr},
    {u"dd.M.yy", u"04.Dec.29", u"2029-12-04 00:00:00"},
    {u"dd.M.yy", u"４.Dec.29", nullptr},
    {u"d.M.yy", u"４.Dec.29", u"2029-12-04 00:00:00"},
    {u"dd MM yyyy", u"04 3 2008", u"2008-03-04 00:00:00"},
    {u"dd MM yyyy", u"０4 ３ 2008", u"2008-03-04 00:00:00"},
    {u"yyyy-M-d HH:mm z", u"2008-3-4 8:5 EST", nullptr},
    {u"yyyy-M-d HH:mm z", u"2008-3-4 8:05 EST", u"2008-03-04 08:05:00"},
    {u"yyyy-M-d HH:mm z", u"2008-3-4 8:  05 EST", u"2008-03-04 08:05:00"},
    {u"yyyy-M-d HH:mm z", u"2008-3-4 8:  5 EST", nullptr},
    {u"yyyy DDD", u"2008 64", nullptr},
    {u"yyyy DDD", u"2008 064", u"2008-03-04 00:00:00"},
    {u"yyyy D", u"2008 64", u"2008-03-04 00:00:00"},
    {u"yyyyMMdd", u"20080304", u"2008-03-04 00:00:00"},
    {u"mm:ss yyyyMMdd", u"0:01 20080304", nullptr},
};
} // namespace

TEST(NSDateFormatterReading, WantsAsManyDigitsAsThePattern)
{
    Reader reader("en_US");
    for (const Width &width : Widths) {
        EXPECT_EQ(reader(width.pattern, width.text),
                  width.read ? QString::fromUtf16(width.read) : QString())
            << qPrintable(QString::fromUtf16(width.pattern) + u" <" +
                          QString::fromUtf16(width.text));
    }
    reader.setLenient(true);
    EXPECT_EQ(reader(u"dd.M.yy", u"4.12.29"), u"2029-12-04 00:00:00");
    Reader egyptian("ar_EG", "Africa/Cairo");
    EXPECT_EQ(egyptian(u"yyyy/MM/dd", u"٢٠٠٨/٣/٤"), QString());
    EXPECT_EQ(egyptian(u"yyyy/MM/dd", u"٢٠٠٨/٣/٠٤"), u"2008-03-04 00:00:00");
}

TEST(NSDateFormatterReading, SaysWhereANumberIsTooShort)
{
    Reader reader("en_US");
    reader.setDateFormat(u"H:mm z"_s);
    NSRange range{0, 7};
    EXPECT_FALSE(reader.getObjectValue(nullptr, u"8:5 EST"_s, &range, nullptr));
    EXPECT_EQ(range, (NSRange{0, 2}));
}

TEST(NSDateFormatterReading, HasAnEndOfTheCalendar)
{
    Reader reader("en_US");
    reader.setLenient(true);
    EXPECT_EQ(reader(u"y", u"999999"), u"999999-01-01 00:00:00");
    for (const char16_t *const text :
         {u"1000000", u"20130413", u"204034366", u"1234567890129", u"1E9", u"2０130413"})
        EXPECT_EQ(reader(u"y", text), QString()) << qPrintable(QString::fromUtf16(text));
    EXPECT_EQ(reader(u"M/d/y", u"3/4/20130413"), QString());
    EXPECT_EQ(reader(u"yyyyMMdd", u"20130413"), u"2013-04-13 00:00:00");
}

TEST(NSDateFormatterReading, MovesTheHundredYears)
{
    Reader reader("en_US");
    EXPECT_EQ(reader(u"M/d/yy", u"1/1/50"), u"1950-01-01 00:00:00");
    EXPECT_EQ(reader(u"M/d/yy", u"12/31/49"), u"2049-12-31 00:00:00");
    reader.setTwoDigitStartDate(QDateTime(QDate(2000, 6, 1), QTime(), UTC));
    EXPECT_EQ(reader(u"M/d/yy", u"1/1/50"), u"2050-01-01 00:00:00");
    EXPECT_EQ(reader(u"M/d/yy", u"1/1/99"), u"2099-01-01 00:00:00");
    reader.setTwoDigitStartDate(QDateTime());
    EXPECT_EQ(reader(u"M/d/yy", u"1/1/99"), u"1999-01-01 00:00:00");
}

TEST(NSDateFormatterReading, KnowsEarlyAndLateYears)
{
    Reader reader("en_US", "UTC");
    reader.setDateFormat(u"yyyy-M-d"_s);
    const auto days = [&](const QString &text) {
        const QDateTime date = reader.dateFromString(text);
        return date.isValid() ? date.date().toString(Qt::ISODate) : QString();
    };
    // The Gregorian calendar counts for all times, whoever reads: ICU, where digits are others.
    const auto inArabicDigits = [](QString text) {
        for (QChar &unit : text)
            unit = unit.isDigit() ? QChar(u'\u0660' + unit.digitValue()) : unit;
        return text;
    };
    for (const QString &day :
         {u"9999-12-31"_s, u"1583-01-01"_s, u"1582-10-15"_s, u"1582-10-10"_s, u"1582-10-04"_s,
          u"1500-01-01"_s, u"1000-02-28"_s, u"0400-02-29"_s, u"0008-03-04"_s, u"0001-01-01"_s}) {
        EXPECT_EQ(days(day), day);
        EXPECT_EQ(days(inArabicDigits(day)), day);
        EXPECT_EQ(reader.stringFromDate(reader.dateFromString(day)),
                  QString(day).replace(u"-0"_s, u"-"_s));
    }
    for (const QString &none : {u"1500-02-29"_s, u"1582-02-30"_s, u"0001-00-01"_s, u"0000-1-1"_s}) {
        EXPECT_EQ(days(none), QString()) << qPrintable(none);
        EXPECT_EQ(days(inArabicDigits(none)), QString()) << qPrintable(none);
    }
}

TEST(NSDateFormatterReading, TakesFourDigitsOfTheYearInAStyle)
{
    Reader reader("sr_RS", "UTC");
    // "d.M.yy." in CLDR 42, "d. M. y." in CLDR 46.
    reader.setDateStyle(NSDateFormatterShortStyle);
    for (const QString &text : {u"5.3.2008."_s, u"5. 3. 2008."_s, u"5.3. 2008."_s})
        EXPECT_EQ(readText(reader, text), u"2008-03-05 00:00:00") << qPrintable(text);
    DateFormatterAccess::setFormatOfStyle(reader, u"d. M. y."_s);
    for (const QString &text : {u"5.3.2008."_s, u"5. 3. 2008."_s, u"5.3.08."_s})
        EXPECT_EQ(readText(reader, text), u"2008-03-05 00:00:00") << qPrintable(text);
    DateFormatterAccess::setFormatOfStyle(reader, u"d.M.yy."_s);
    EXPECT_EQ(readText(reader, u"5.3.2008."_s), u"2008-03-05 00:00:00");
    EXPECT_EQ(readText(reader, u"5.3.08."_s), u"2008-03-05 00:00:00");
    EXPECT_EQ(readText(reader, u"5.3.٢٠٠٨."_s), u"2008-03-05 00:00:00");
    EXPECT_EQ(readText(reader, u"5.3.8."_s), QString());
    EXPECT_EQ(readText(reader, u"5.3.208."_s), QString());
    // A pattern that was set takes what it says.
    EXPECT_EQ(reader(u"d.M.yy.", u"5.3.2008."), QString());
    EXPECT_EQ(reader(u"d.M.yy.", u"5.3.08."), u"2008-03-05 00:00:00");
    // One that begins with a style's, as the lists of date fields have it.
    DateFormatterAccess::setFormatOfStyle(reader, u"d.M.yy. k:m"_s);
    EXPECT_EQ(readText(reader, u"5.3.2008. 17:30"_s), u"2008-03-05 17:30:00");
    EXPECT_EQ(reader(u"d.M.yy. k:m", u"5.3.2008. 17:30"), QString());
}

TEST(NSDateFormatterReading, KnowsMonthsByTheirLongestNames)
{
    // In Chuvash, May is the beginning of August in its short form.
    Reader reader("cv_RU", "UTC");
    reader.setDateStyle(NSDateFormatterMediumStyle);
    for (int month = 1; month <= 12; ++month) {
        const QDateTime date(QDate(2014, month, 4), QTime(0, 0), UTC);
        const QString text = reader.stringFromDate(date);
        EXPECT_EQ(reader.dateFromString(text), date) << qPrintable(text);
    }
}

TEST(NSDateFormatterReading, TwoDigitsMeanTheSameHundredYearsInEachCalendar)
{
    const auto yearOf = [](const char *locale, const char16_t *pattern, const char16_t *text) {
        return Reader(locale, "UTC")(pattern, text).left(4);
    };
    // 1950 is 2493 in Thailand, 1328 in Iran; and so until the end of these hundred years.
    EXPECT_EQ(yearOf("th_TH", u"d/M/yy", u"5/3/93"), u"1950");
    EXPECT_EQ(yearOf("th_TH", u"d/M/yy", u"5/3/99"), u"1956");
    EXPECT_EQ(yearOf("th_TH", u"d/M/yy", u"5/3/92"), u"2049");
    EXPECT_EQ(yearOf("fa_IR", u"yy/M/d", u"40/3/5"), u"1961");
    EXPECT_EQ(yearOf("fa_IR", u"yy/M/d", u"27/3/5"), u"2048");
    EXPECT_EQ(yearOf("zh_TW@calendar=roc", u"yy/M/d", u"38/3/5"), u"2049");
    // Years of an era are what they are.
    EXPECT_EQ(yearOf("ja_JP@calendar=japanese", u"yy/M/d", u"02/3/5"), u"2020");
}

TEST(NSDateFormatterReading, ReadsZones)
{
    Reader reader("en_US");
    EXPECT_EQ(reader(u"M/d/yy H:m z", u"3/5/08 12:00 PST"), u"2008-03-05 15:00:00");
    EXPECT_EQ(reader(u"M/d/yy H:m zzzz", u"3/5/08 12:00 Pacific Standard Time"),
              u"2008-03-05 15:00:00");
    EXPECT_EQ(reader(u"M/d/yy H:m Z", u"3/5/08 12:00 +0100"), u"2008-03-05 06:00:00");
    // The zone of one text is not that of the next.
    EXPECT_EQ(reader(u"M/d/yy H:m", u"3/5/08 12:0０"), u"2008-03-05 12:00:00");
}

TEST(NSDateFormatterReading, ReadsJapaneseYears)
{
    Reader reader("ja_JP@calendar=japanese", "Asia/Tokyo");
    EXPECT_EQ(reader(u"Gy年M月d日", u"平成20年3月5日"), u"2008-03-05 00:00:00");
    EXPECT_EQ(reader(u"Gy年M月d日", u"令和元年5月1日"), u"2019-05-01 00:00:00");
    EXPECT_EQ(reader.calendar().calendarIdentifier(), NSJapaneseCalendar);
    // The same locale with the other calendar.
    reader.setCalendar(NSCalendar(NSGregorianCalendar));
    EXPECT_EQ(reader(u"yyyy-MM-dd", u"2008-03-05"), u"2008-03-05 00:00:00");
}

TEST(NSDateFormatterReading, KeepsTheDigitsOfOtherScripts)
{
    Reader reader("ar_EG");
    EXPECT_EQ(reader(u"d/M/yyyy", u"٥/٣/٢٠٠٨"), u"2008-03-05 00:00:00");
    EXPECT_EQ(reader(u"d/M/yyyy", u"5/3/2008"), u"2008-03-05 00:00:00");
    EXPECT_EQ(reader(u"d/M/yy", u"٥/٣/٢٠٠٨"), QString());
    reader.setDateFormat(u"d/M/yyyy"_s);
    EXPECT_EQ(reader.stringFromDate(QDateTime(QDate(2008, 3, 5), QTime(12, 0), UTC)), u"٥/٣/٢٠٠٨");
}

TEST(NSDateFormatterReading, ReadsWithinARange)
{
    Reader reader("en_US");
    reader.setDateFormat(u"M/d/yy"_s);
    const QString text = u"on 3/5/08, say"_s;
    const auto rangeAfter = [&](NSRange range) {
        const bool isRead = reader.getObjectValue(nullptr, text, &range, nullptr);
        return isRead ? range : NSRange{-1, range.length};
    };
    EXPECT_EQ(rangeAfter({3, 11}), (NSRange{3, 6}));
    EXPECT_EQ(rangeAfter({2, 12}), (NSRange{2, 7}));
    EXPECT_EQ(rangeAfter({0, 14}).location, -1);
    EXPECT_EQ(rangeAfter({3, 5}).location, -1);
    EXPECT_EQ(rangeAfter({3, 1000}), (NSRange{3, 6}));
    EXPECT_EQ(rangeAfter({99, 5}), (NSRange{-1, 0}));
    EXPECT_EQ(rangeAfter({-5, 3}), (NSRange{-1, 0}));
}

TEST(NSDateFormatterReading, SaysWhyItFailed)
{
    Reader reader("en_US");
    reader.setDateFormat(u"M/d/yy"_s);
    QVariant value = 5;
    NSError error;
    NSRange range{0, 8};
    EXPECT_FALSE(reader.getObjectValue(&value, u"3/5/2008"_s, &range, &error));
    EXPECT_EQ(value, QVariant(5));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), NSFormattingError);
    EXPECT_TRUE(error.localizedDescription().startsWith(u"Formatting error"));
    QString description;
    EXPECT_FALSE(reader.getObjectValue(&value, u"3/5/08 x"_s, &description));
    EXPECT_EQ(description, error.localizedDescription());
    EXPECT_FALSE(reader.getObjectValue(nullptr, QString(), nullptr));
    EXPECT_TRUE(reader.getObjectValue(&value, u" 3/5/08\n"_s, nullptr));
    EXPECT_TRUE(value.toDateTime().isValid());
}

TEST(NSDateFormatterReading, SurvivesHostileTexts)
{
    for (const char *const locale : {"en_US", "ja_JP@calendar=japanese", "ar_EG", "he_IL", ""}) {
        Reader reader(locale);
        for (const char16_t *const pattern :
             {u"M/d/yy", u"EEEE, MMMM d, y", u"h:m:s a zzzz", u"ha", u"yyyyMMdd", u" ", u"'x"}) {
            reader.setDateFormat(QString::fromUtf16(pattern));
            for (const QString &text : hostileTexts())
                EXPECT_FALSE(reader.dateFromString(text).isValid())
                    << qPrintable(reader.dateFormat() + u" <" + text.left(20) + u'>');
        }
    }
}

TEST(NSDateFormatterReading, SurvivesHostilePatterns)
{
    Reader reader("en_US");
    const QDateTime date(QDate(2008, 3, 5), QTime(), UTC);
    for (const QString &pattern : hostileTexts()) {
        reader.setDateFormat(pattern);
        reader.dateFromString(u"3/5/08"_s);
        EXPECT_FALSE(reader.stringFromDate(date).isNull());
    }
    for (const char16_t *const pattern : {u"'", u"''", u"'''", u"yyyyyyyyyyyyyyyyyyyy", u"dddddddd",
                                          u"MMMMMMMMMM", u"aaaaaaaaaa", u"l", u"ll", u"%%"}) {
        const QString text = reader(pattern, u"3/5/08");
        EXPECT_EQ(text, QString()) << qPrintable(text);
        EXPECT_FALSE(reader.stringFromDate(date).isNull());
    }
}

TEST(NSDateFormatterReading, LooksAtTheStartOfLongTextsOnly)
{
    Reader reader("en_US");
    reader.setDateFormat(u"M/d/yy"_s);
    const QString text = u"3/5/08 "_s + megabyteOf(u"x"_s);
    NSRange range{0, text.size()};
    EXPECT_TRUE(reader.getObjectValue(nullptr, text, &range, nullptr));
    EXPECT_EQ(range.length, 6);
    const QString digits = megabyteOf(u"3"_s);
    EXPECT_FALSE(reader.dateFromString(digits).isValid());
    reader.setDateFormat(u"ha"_s);
    EXPECT_FALSE(reader.dateFromString(megabyteOf(u" "_s) + u'5').isValid());
}

TEST(NSDateFormatterReading, WorksInManyThreads)
{
    std::atomic<int> failures = 0;
    const auto work = [&failures](const char *locale) {
        for (int count = 0; count < 50; ++count) {
            Reader reader(locale, count % 2 == 0 ? "Europe/Berlin" : "Asia/Kathmandu");
            if (reader(u"d.M.yyyy", u"5.3.2008") != u"2008-03-05 00:00:00" ||
                reader(u"d.M.yyyy", u"５.3.2008") != u"2008-03-05 00:00:00")
                ++failures;
        }
    };
    std::vector<std::thread> threads;
    for (const char *const locale : {"de_DE", "fr_FR", "en_US", "nb_NO"})
        threads.emplace_back(work, locale);
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

TEST(NSDateFormatterReading, OffersABatchForCascades)
{
    Reader reader("en_US");
    reader.setDateFormat(u"M/d/yy"_s);
    const QString typed = u"  3/5/08 x"_s;
    const DateText text(typed);
    EXPECT_EQ(text.length(), 10);
    EXPECT_EQ(text.lead(), 2);
    EXPECT_EQ(text.leadingUnit(), u'3');
    EXPECT_EQ(text.leadingDigits(), 1);
    EXPECT_EQ(text.unitAfterDigits(), u'/');
    DateMatch match;
    ASSERT_TRUE(DateFormatterAccess::parse(reader, text, &match));
    EXPECT_EQ(match.length, 8);
    EXPECT_EQ(DateFormatterAccess::dateOf(reader, match.time),
              QDateTime(QDate(2008, 3, 5), QTime(), reader.timeZone()));
    const DateText empty{QStringView()};
    EXPECT_FALSE(DateFormatterAccess::parse(reader, empty, &match));
    EXPECT_EQ(match.length, 0);
}
