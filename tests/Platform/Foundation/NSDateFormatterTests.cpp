#include <KTUtility/Platform/Foundation/NSDateFormatter.h>

#include "support/TestSupport.h"

using namespace testing_support;

namespace {
QTimeZone newYork()
{
    return QTimeZone("America/New_York");
}

/// A formatter of the United States, reading in New York.
struct American : NSDateFormatter
{
    American()
    {
        setLocale(NSLocale(QStringLiteral("en_US")));
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
    formatter.setDateFormat(QStringLiteral("M/d/yy"));
    const QDateTime date = formatter.dateFromString(QStringLiteral("3/5/08"));
    EXPECT_EQ(date, inNewYork(2008, 3, 5));
    EXPECT_EQ(formatter.stringFromDate(date), u"3/5/08");
    formatter.setDateStyle(NSDateFormatterLongStyle);
    EXPECT_EQ(formatter.stringFromDate(date), u"March 5, 2008");
    formatter.setDateFormat(QStringLiteral("M/d/yy"));
    NSRange range{0, 14};
    QVariant value;
    EXPECT_TRUE(
        formatter.getObjectValue(&value, QStringLiteral("3/5/08 5:30 PM"), &range, nullptr));
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
    formatter.setDateFormat(QStringLiteral("M/d"));
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("3/5")), inNewYork(2000, 3, 5));
    formatter.setDefaultDate(inNewYork(2008, 2, 20, 12));
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("3/5")), inNewYork(2008, 3, 5, 12));
    formatter.setDateFormat(QStringLiteral("k:m"));
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("9:05")), inNewYork(2008, 2, 20, 9, 5));
    formatter.setDateFormat(QStringLiteral("h:m"));
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("9:05")), inNewYork(2008, 2, 20, 21, 5));
}

TEST(NSDateFormatter, KeepsTheDateWhenTheWeekdayComesLast)
{
    American formatter;
    formatter.setLocale(NSLocale(QStringLiteral("zh_CN")));
    formatter.setDefaultDate(inNewYork(2008, 2, 20, 12));
    formatter.setDateStyle(NSDateFormatterFullStyle);
    EXPECT_EQ(formatter.dateFromString(QStringLiteral("2008年9月5日星期五")),
              inNewYork(2008, 9, 5, 12));
}

TEST(NSDateFormatter, ReadsABareHourOnlyAsTheWholeText)
{
    American formatter;
    formatter.setDateFormat(QStringLiteral("ha"));
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
