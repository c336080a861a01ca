// ISO 8601, RFC 3339 and RFC 9557.

#include "StandardDateSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
using Rows = QList<std::pair<QString, QString>>;

void expectReadings(const Rows &rows, const char *locale = "en_US")
{
    for (const auto &[text, expected] : rows)
        EXPECT_EQ(standardReading(text, locale), expected) << qPrintable(text);
}
} // namespace

TEST(ISODate, ReadsDays)
{
    expectReadings({
        {u"2008-03-05"_s, u"iso8601.date 2008-03-05T17:00:00Z"_s},
        {u" 2008-03-05 "_s, u"iso8601.date 2008-03-05T17:00:00Z"_s},
        {u"２００８-０３-０５"_s, u"iso8601.date 2008-03-05T17:00:00Z"_s},
        {u"2008\u201003\u201005"_s, u"iso8601.date 2008-03-05T17:00:00Z"_s}, // hyphens
        {u"20080305"_s, u"iso8601.date 2008-03-05T17:00:00Z"_s},
        {u"0800-12-25"_s, u"iso8601.date 0800-12-25T16:56:02Z"_s},
        {u"2008-02-29"_s, u"iso8601.date 2008-02-29T17:00:00Z"_s},
    });
}

TEST(ISODate, ReadsWeeksAndDaysOfTheYear)
{
    expectReadings({
        {u"2008-W10-3"_s, u"iso8601.week 2008-03-05T17:00:00Z"_s},
        {u"2008w103"_s, u"iso8601.week 2008-03-05T17:00:00Z"_s},
        {u"2009-W01-1"_s, u"iso8601.week 2008-12-29T17:00:00Z"_s},
        {u"2009-W53-7"_s, u"iso8601.week 2010-01-03T17:00:00Z"_s},
        {u"2008-W10-3T14:30"_s, u"iso8601.week 2008-03-05T19:30:00Z"_s},
        {u"2008-W53-1"_s, u"refused: The year has no such week."_s},
        {u"2008-W00-1"_s, u"refused: The year has no such week."_s},
        {u"2008-W10-8"_s, u"refused: The week has no such day."_s},
        {u"2008-065"_s, u"iso8601.ordinal 2008-03-05T17:00:00Z"_s},
        {u"2008065"_s, u"iso8601.ordinal 2008-03-05T17:00:00Z"_s},
        {u"2008-366"_s, u"iso8601.ordinal 2008-12-31T17:00:00Z"_s},
        {u"2007-366"_s, u"refused: The year has no such day."_s},
        {u"2007-000"_s, u"refused: The year has no such day."_s},
        {u"2008-065T14:30Z"_s, u"iso8601.ordinal 2008-03-05T14:30:00Z"_s},
    });
}

TEST(ISODate, ReadsTimesBehindDays)
{
    expectReadings({
        {u"2008-03-05T14:30:05"_s, u"iso8601.datetime 2008-03-05T19:30:05Z"_s},
        {u"2008-03-05t14:30"_s, u"iso8601.datetime 2008-03-05T19:30:00Z"_s},
        {u"2008-03-05T14"_s, u"iso8601.datetime 2008-03-05T19:00:00Z"_s},
        {u"2008-03-05 14:30"_s, u"iso8601.datetime 2008-03-05T19:30:00Z"_s},
        {u"2008-03-05, 14:30"_s, u"iso8601.datetime 2008-03-05T19:30:00Z"_s},
        {u"2008-03-05 9:05"_s, u"iso8601.datetime 2008-03-05T14:05:00Z"_s},
        {u"20080305T143005"_s, u"iso8601.datetime 2008-03-05T19:30:05Z"_s},
        {u"20080305T1430"_s, u"iso8601.datetime 2008-03-05T19:30:00Z"_s},
        {u"20080305143005"_s, u"iso8601.datetime 2008-03-05T19:30:05Z"_s},
        {u"200803051430"_s, u"iso8601.datetime 2008-03-05T19:30:00Z"_s},
        {u"2008-03-05T24:00"_s, u"iso8601.datetime 2008-03-06T05:00:00Z"_s},
        {u"2008-03-05T24:01"_s, u"refused: There is no such time of day."_s},
        {u"2008-03-05T25:00"_s, u"refused: There is no such time of day."_s},
        {u"2008-03-05 14:60"_s, u"refused: There is no such time of day."_s},
    });
}

TEST(ISODate, ReadsFractionsOfWhatStandsLast)
{
    expectReadings({
        {u"2008-03-05T14:30:05.5"_s, u"iso8601.datetime 2008-03-05T19:30:05.500Z"_s},
        {u"2008-03-05T14:30:05,123999Z"_s, u"iso8601.datetime 2008-03-05T14:30:05.123Z"_s},
        {u"2008-03-05T14:30,5"_s, u"iso8601.datetime 2008-03-05T19:30:30Z"_s},
        {u"2008-03-05T14,25"_s, u"iso8601.datetime 2008-03-05T19:15:00Z"_s},
        {u"20080305T1430.1"_s, u"iso8601.datetime 2008-03-05T19:30:06Z"_s},
        {u"2008-03-05T24:00:00.1"_s, u"refused: There is no such time of day."_s},
        {u"2008-03-05T14:30:05.000000000000000000000000001Z"_s,
         u"iso8601.datetime 2008-03-05T14:30:05Z"_s},
        {u"2008-03-05T14:30:05."_s, u"other"_s},
    });
}

TEST(ISODate, ReadsZonesBehindTimes)
{
    expectReadings({
        {u"2008-03-05T14:30:00Z"_s, u"iso8601.datetime 2008-03-05T14:30:00Z"_s},
        {u"2008-03-05 14:30z"_s, u"iso8601.datetime 2008-03-05T14:30:00Z"_s},
        {u"2008-03-05T14:30+01"_s, u"iso8601.datetime 2008-03-05T13:30:00Z"_s},
        {u"2008-03-05T14:30+0100"_s, u"iso8601.datetime 2008-03-05T13:30:00Z"_s},
        {u"2008-03-05T14:30-08:00"_s, u"iso8601.datetime 2008-03-05T22:30:00Z"_s},
        {u"20080305T143000+0530"_s, u"iso8601.datetime 2008-03-05T09:00:00Z"_s},
        {u"2008-03-05 14:30 +0100"_s, u"iso8601.datetime 2008-03-05T13:30:00Z"_s},
        {u"2008-03-05 14:30 GMT+2"_s, u"iso8601.datetime 2008-03-05T12:30:00Z"_s},
        {u"2008-03-05 14:30 Europe/Berlin"_s, u"iso8601.datetime 2008-03-05T13:30:00Z"_s},
        {u"2008-07-05 14:30 Europe/Berlin"_s, u"iso8601.datetime 2008-07-05T12:30:00Z"_s},
        {u"2008-07-05 14:30 PST"_s, u"iso8601.datetime 2008-07-05T22:30:00Z"_s},
        {u"2008-03-05 14:30 IST"_s, u"refused: There are several zones of this name."_s},
        {u"2008-03-05T14:30+15:00"_s, u"other"_s},
        {u"2008-03-05T14:30+01:00[Europe/Berlin]"_s, u"iso8601.datetime 2008-03-05T13:30:00Z"_s},
        {u"2008-03-05T14:30Z[Europe/Berlin]"_s, u"iso8601.datetime 2008-03-05T14:30:00Z"_s},
        {u"2008-03-05T14:30[Asia/Tokyo]"_s, u"iso8601.datetime 2008-03-05T05:30:00Z"_s},
        {u"2008-03-05T14:30+02:00[Europe/Berlin]"_s,
         u"refused: The place has another time than the offset says."_s},
        {u"2008-03-05T14:30[Nowhere/Land]"_s, u"other"_s},
    });
}

TEST(ISODate, ReadsTimesThatShowTheirForm)
{
    expectReadings({
        {u"T14:30"_s, u"iso8601.time 2008-02-20T19:30:00Z"_s},
        {u"t1430"_s, u"iso8601.time 2008-02-20T19:30:00Z"_s},
        {u"14:30Z"_s, u"iso8601.time 2008-02-20T14:30:00Z"_s},
        {u"1430Z"_s, u"iso8601.time 2008-02-20T14:30:00Z"_s},
        {u"01:30Z"_s, u"iso8601.time 2008-02-21T01:30:00Z"_s}, // the 20th in New York
        {u"14:30 Asia/Tokyo"_s, u"iso8601.time 2008-02-20T05:30:00Z"_s},
        {u"14:30:05,5"_s, u"iso8601.time 2008-02-20T19:30:05.500Z"_s},
        {u"14:30"_s, u"other"_s},
        {u"1430"_s, u"other"_s},
        {u"14:30-18:00"_s, u"other"_s}, // from when until when
        {u"14:30-08:00"_s, u"other"_s},
        {u"14:30,5"_s, u"other"_s},
        {u"25:00Z"_s, u"refused: There is no such time of day."_s},
    });
}

TEST(ISODate, TakesLeapSecondsWhereTheyCanBe)
{
    expectReadings({
        {u"2008-12-31T23:59:60Z"_s, u"iso8601.datetime 2008-12-31T23:59:59Z"_s},
        {u"2015-07-01T01:59:60+02:00"_s, u"iso8601.datetime 2015-06-30T23:59:59Z"_s},
        {u"2008-12-31T18:59:60"_s, u"iso8601.datetime 2008-12-31T23:59:59Z"_s},
        {u"2008-12-30T23:59:60Z"_s, u"refused: There is no leap second then."_s},
        {u"2008-12-31T23:58:60Z"_s, u"refused: There is no leap second then."_s},
        {u"2008-12-31T23:59:61Z"_s, u"refused: There is no such time of day."_s},
    });
}

TEST(ISODate, RefusesDaysThatAreNone)
{
    expectReadings({
        {u"2008-02-30"_s, u"refused: The month has no such day."_s},
        {u"2007-02-29"_s, u"refused: The month has no such day."_s},
        {u"2008-13-05"_s, u"refused: There is no such month."_s},
        {u"2008-00-05"_s, u"refused: There is no such month."_s},
        {u"2008-03-00T10:00Z"_s, u"refused: The month has no such day."_s},
        {u"0000-03-05"_s, u"refused: There is no year 0."_s},
    });
}

/// Numbers without signs are dates only where no other order of day, month and year fits.
TEST(ISODate, LeavesAmbiguousNumbersAlone)
{
    for (const QString &text :
         {u"05032008"_s, u"12112008"_s, u"30122999"_s, u"2112008"_s, u"2012065"_s, u"3122008"_s,
          u"080305"_s, u"200803"_s, u"2008"_s, u"2008999"_s, u"15001231"_s, u"123456789"_s})
        EXPECT_EQ(standardReading(text), u"other") << qPrintable(text);
}

TEST(ISODate, LeavesOtherFormsAlone)
{
    for (const QString &text :
         {u""_s, u"2008-03"_s, u"2008-3-5"_s, u"2008/03/05"_s, u"+002008-03-05"_s, u"-2008-03-05"_s,
          u"2008-W10"_s, u"2008-0305"_s, u"2008-03-05x"_s, u"2008-03-05 noon"_s,
          u"2008-03-05T14:30 pm"_s, u"2008-03-05/2008-03-06"_s, u"2008-03-05 5 pm"_s, u"t"_s,
          u"T14:3"_s, u"2008-03-05T"_s, u"2008-03-05 14"_s, u"2008-03-05T14:30[Europe/Berlin"_s})
        EXPECT_EQ(standardReading(text), u"other") << qPrintable(text);
}

TEST(ISODate, SaysThatATextBeginsWithADate)
{
    using namespace KTPrivate;
    const auto beginsWithDate = [](const QString &text) {
        return readStandardDate(FoldedText(text), NSLocale(u"en_US"_s)).beginsWithDate;
    };
    EXPECT_TRUE(beginsWithDate(u"2008-03-05 5 pm"_s));
    EXPECT_TRUE(beginsWithDate(u"2008-03-05x"_s));
    EXPECT_FALSE(beginsWithDate(u"2008-03"_s));
    EXPECT_FALSE(beginsWithDate(u"5.3.2008"_s));
}

TEST(ISODate, SaysWhichPartsDecided)
{
    using namespace KTPrivate;
    const QString text = u" 2008-03-05 14:30Z"_s;
    const StandardDate date = readStandardDate(FoldedText(text), NSLocale(u"en_US"_s));
    const QList<KTReadingPart> expected{
        {{1, 4}, u"year"_s, u"2008"_s},  {{6, 2}, u"month"_s, u"3"_s},
        {{9, 2}, u"day"_s, u"5"_s},      {{12, 2}, u"hour"_s, u"14"_s},
        {{15, 2}, u"minute"_s, u"30"_s}, {{17, 1}, u"zone"_s, u"UTC"_s}};
    EXPECT_EQ(date.parts, expected);
}
