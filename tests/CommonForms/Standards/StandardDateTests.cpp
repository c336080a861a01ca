// The standards' forms together: hostile texts, and times of day.

#include "StandardDateSupport.h"
#include "support/Properties.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(StandardDate, TimesOfDayExistOrNot)
{
    EXPECT_TRUE((StandardTime{0, 0, 0, 0}.exists()));
    EXPECT_TRUE((StandardTime{23, 59, 60, 999}.exists()));
    EXPECT_TRUE((StandardTime{24, 0, 0, 0}.exists()));
    EXPECT_FALSE((StandardTime{24, 0, 0, 1}.exists()));
    EXPECT_FALSE((StandardTime{23, 60, 0, 0}.exists()));
    EXPECT_FALSE((StandardTime{23, 59, 61, 0}.exists()));
    EXPECT_EQ((StandardTime{1, 2, 3, 4}.milliseconds()), 3'723'004);
    EXPECT_EQ((StandardTime{23, 59, 60, 0}.milliseconds()), 86'399'000);
}

/// A time that is typed with a zone is one of the day that it is in the field's zone.
TEST(StandardDate, TimesInOtherZonesAreTodayHere)
{
    for (const QString &zone : {u"Z"_s, u"+14:00"_s, u" Asia/Tokyo"_s, u" GMT-8"_s}) {
        for (const QString &time : {u"00:00"_s, u"01:30"_s, u"12:00"_s, u"23:59"_s}) {
            const QString reading = standardReading(time + zone);
            const QDateTime date = QDateTime::fromString(reading.section(u' ', 1), Qt::ISODate);
            ASSERT_TRUE(date.isValid()) << qPrintable(time + zone + u" -> " + reading);
            EXPECT_EQ(date.toTimeZone(testing_support::newYork()).date(), QDate(2008, 2, 20))
                << qPrintable(time + zone);
        }
    }
}

TEST(StandardDate, RefusesSummerTimeWhereThereIsNone)
{
    StandardDate date;
    date.answer = StandardDate::Answer::Read;
    date.day = Civil::daysOf(2008, 7, 5);
    date.zone.length = 3;
    date.zone.zone = "Asia/Kolkata";
    date.zone.season = TypedZone::Season::Summer;
    EXPECT_EQ(instantOf(&date, {TimeZoneRules::rulesOf(testing_support::newYork()), 0, 0}),
              std::nullopt);
    EXPECT_EQ(date.answer, StandardDate::Answer::Refused);
    EXPECT_FALSE(date.reason.isNull());
}

/// Pieces of dates in any order are read, refused or left alone, and read as what they say.
TEST(StandardDate, SurvivesAnyText)
{
    const QStringList pieces{u"2008"_s,
                             u"-"_s,
                             u"03"_s,
                             u"05"_s,
                             u"T"_s,
                             u"14"_s,
                             u":"_s,
                             u"30"_s,
                             u"."_s,
                             u"Z"_s,
                             u"+"_s,
                             u"01"_s,
                             u" "_s,
                             u"W"_s,
                             u"1"_s,
                             u"Wed"_s,
                             u"Mar"_s,
                             u","_s,
                             u"GMT"_s,
                             u"("_s,
                             u")"_s,
                             u"["_s,
                             u"]"_s,
                             u"Europe/Berlin"_s,
                             u"\u0663"_s,
                             u"٠"_s,
                             u"pm"_s,
                             u"\0"_s,
                             QString(QChar(0xD800))};
    testing_support::checkProperty("any text is read, refused or left alone", 4000, [&] {
        QString text;
        for (int count = *rc::gen::inRange(0, 14); count > 0; --count)
            text += testing_support::someOf(pieces);
        const StandardDate date = readStandardDate(FoldedText(text), NSLocale(u"de_DE"_s));
        RC_ASSERT(
            (date.isRead() == (date.day.has_value() || date.time.has_value()) || !date.isRead()));
        for (const KTReadingPart &part : date.parts)
            RC_ASSERT((part.range.location >= 0 && part.range.end() <= text.size()));
    });
}

TEST(StandardDate, LooksAtNoEndlessText)
{
    const QString digits(100'000, u'1');
    EXPECT_EQ(standardReading(digits), u"other");
    EXPECT_EQ(standardReading(u"2008-03-05T14:30:00."_s + digits), u"other");
    EXPECT_EQ(standardReading(u"2008-03-05T14:30:00."_s + digits.left(900) + u'Z'),
              u"iso8601.datetime 2008-03-05T14:30:00.111Z");
}
