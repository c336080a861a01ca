// The patterns of the behaviour 10.0.

#include <KTUtility/NSDateFormatter>

#include "support/TestSupport.h"
#include "support/Zones.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QDateTime sample()
{
    return QDateTime(QDate(2008, 3, 5), QTime(17, 4, 9, 7), newYork());
}

/// A formatter of the behaviour 10.0 for the United States.
struct OldFormatter : NSDateFormatter
{
    explicit OldFormatter(const char16_t *pattern)
        : NSDateFormatter(QString::fromUtf16(pattern), false)
    {
        setLocale(NSLocale(u"en_US"_s));
        setTimeZone(newYork());
    }
};

QString written(const char16_t *pattern)
{
    return OldFormatter(pattern).stringFromDate(sample());
}

QString read(const char16_t *pattern, const QString &text)
{
    const QDateTime date = OldFormatter(pattern).dateFromString(text);
    return date.toTimeZone(newYork()).toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s);
}
} // namespace

TEST(NSDateFormatterCalendar, WritesEveryDirective)
{
    EXPECT_EQ(written(u"%a %A"), u"Wed Wednesday");
    EXPECT_EQ(written(u"%b %B"), u"Mar March");
    EXPECT_EQ(written(u"%d %e %j"), u"05 5 065");
    EXPECT_EQ(written(u"%m %w %y %Y"), u"03 3 08 2008");
    EXPECT_EQ(written(u"%H %I %M %S %F %p"), u"17 05 04 09 007 PM");
    EXPECT_EQ(written(u"%z %Z"), u"-0500 EST");
    EXPECT_EQ(written(u"%x"), u"3/5/08");
    EXPECT_EQ(written(u"%X"), u"5:04:09 PM");
    EXPECT_EQ(written(u"%c"), u"3/5/08 5:04:09 PM");
    EXPECT_EQ(written(u"100%%"), u"100%");
    EXPECT_EQ(written(u"%m/%d/%y %I:%M:%S %p"), u"03/05/08 05:04:09 PM");
}

TEST(NSDateFormatterCalendar, LeavesWhatItDoesNotKnow)
{
    EXPECT_EQ(written(u""), u"");
    EXPECT_EQ(written(u"%"), u"%");
    EXPECT_EQ(written(u"%q%Q"), u"%q%Q");
    EXPECT_EQ(written(u"日%d月"), u"日05月");
}

TEST(NSDateFormatterCalendar, ReadsWhatItWrites)
{
    EXPECT_EQ(read(u"%m/%d/%y", u"3/5/08"_s), u"2008-03-05 00:00:00.000");
    EXPECT_EQ(read(u"%m/%d/%y", u"03/05/50"_s), u"1950-03-05 00:00:00.000");
    EXPECT_EQ(read(u"%m/%d/%y", u"03/05/49"_s), u"2049-03-05 00:00:00.000");
    EXPECT_EQ(read(u"%m/%d/%y %I:%M:%S %p", u"03/05/08 05:04:09 PM"_s), u"2008-03-05 17:04:09.000");
    EXPECT_EQ(read(u"%A, %B %d, %Y", u"Wednesday, March 5, 2008"_s), u"2008-03-05 00:00:00.000");
    EXPECT_EQ(read(u"%a %b %e %Y", u"wed mar 5 2008"_s), u"2008-03-05 00:00:00.000");
    EXPECT_EQ(read(u"%Y %j", u"2008 65"_s), u"2008-03-05 00:00:00.000");
    EXPECT_EQ(read(u"%Y-%m-%dT%H:%M:%S.%F", u"2008-03-05T17:04:09.007"_s),
              u"2008-03-05 17:04:09.007");
    EXPECT_EQ(read(u"%Y-%m-%d %H:%M %z", u"2008-03-05 17:04 +0100"_s), u"2008-03-05 11:04:00.000");
    EXPECT_EQ(read(u"%Y-%m-%d %H:%M %Z", u"2008-03-05 17:04 Europe/Berlin"_s),
              u"2008-03-05 11:04:00.000");
    EXPECT_EQ(read(u"%Y-%m-%d %H:%M %Z", u"2008-03-05 17:04 GMT-0100"_s),
              u"2008-03-05 13:04:00.000");
    EXPECT_EQ(read(u"%w %d%%", u"3 5%"_s), u"2000-01-05 00:00:00.000");
}

TEST(NSDateFormatterCalendar, RejectsWhatDoesNotFit)
{
    EXPECT_EQ(read(u"%m/%d/%y", u"3/5"_s), u"");
    EXPECT_EQ(read(u"%m/%d/%y", u"3/5/08 x"_s), u"");
    EXPECT_EQ(read(u"%m/%d/%y", u"2/30/08"_s), u"");
    EXPECT_EQ(read(u"%m/%d/%y", u"0/1/08"_s), u"");
    EXPECT_EQ(read(u"%m/%d/%y", u"13/1/08"_s), u"");
    EXPECT_EQ(read(u"%H:%M", u"25:00"_s), u"");
    EXPECT_EQ(read(u"%I:%M %p", u"13:00 PM"_s), u"");
    EXPECT_EQ(read(u"%I:%M %p", u"12:00 XM"_s), u"");
    EXPECT_EQ(read(u"%b", u"Mrz"_s), u"");
    EXPECT_EQ(read(u"%z", u"+99"_s), u"");
    EXPECT_EQ(read(u"%Z", u"Nowhere/Land"_s), u"");
    EXPECT_EQ(read(u"%x", u"3/5/08"_s), u"");
    EXPECT_EQ(read(u"", u"3/5/08"_s), u"");
}

TEST(NSDateFormatterCalendar, ReportsHowFarItRead)
{
    const OldFormatter formatter(u"%m/%d/%y");
    NSRange range{2, 12};
    QVariant value;
    EXPECT_TRUE(formatter.getObjectValue(&value, u"x 3/5/08 more"_s, &range, nullptr));
    EXPECT_EQ(range, (NSRange{2, 6}));
    EXPECT_EQ(value.toDateTime(), QDateTime(QDate(2008, 3, 5), QTime(), newYork()));
}

TEST(NSDateFormatterCalendar, UsesTheNamesThatWereSet)
{
    OldFormatter formatter(u"%p %b");
    formatter.setAMSymbol(u"vorm."_s);
    formatter.setPMSymbol(u"nachm."_s);
    EXPECT_EQ(formatter.stringFromDate(sample()), u"nachm. Mar");
    EXPECT_EQ(formatter.AMSymbol(), u"vorm.");
    EXPECT_EQ(formatter.PMSymbol(), u"nachm.");
}

TEST(NSDateFormatterCalendar, SurvivesHostileTextsAndPatterns)
{
    const OldFormatter formatter(u"%A %d %B %Y %Z");
    for (const QString &text : hostileTexts()) {
        EXPECT_FALSE(formatter.dateFromString(text).isValid());
        NSDateFormatter hostile(text, true);
        EXPECT_FALSE(hostile.stringFromDate(sample()).isNull());
        EXPECT_FALSE(hostile.dateFromString(u"no date"_s).isValid());
    }
}

TEST(NSDateFormatterCalendar, MakesCalendarDates)
{
    OldFormatter formatter(u"%m/%d/%y");
    EXPECT_TRUE(formatter.generatesCalendarDates());
    EXPECT_EQ(formatter.dateFromString(u"3/5/08"_s).timeZone(), newYork());
    formatter.setGeneratesCalendarDates(false);
    const QDateTime date = formatter.dateFromString(u"3/5/08"_s);
    EXPECT_EQ(date.timeSpec(), Qt::UTC);
    EXPECT_EQ(date, QDateTime(QDate(2008, 3, 5), QTime(), newYork()));
}
