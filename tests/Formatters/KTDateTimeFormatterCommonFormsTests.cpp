// Formatters of dates and times that read common forms.

#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/TestSupport.h"
#include "support/WallClockAt.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// Wednesday, 5 June 2019, in the morning in New York.
WallClockAt typingMoment()
{
    return WallClockAt(QDateTime(QDate(2019, 6, 5), QTime(13, 30), KTPrivate::UTC));
}

QString readBy(KTDateTimeFormatter &formatter, const QString &text)
{
    formatter.setReadsCommonForms(true);
    QVariant value = 7;
    const bool isRead = formatter.getObjectValue(&value, text);
    EXPECT_EQ(isRead, value.isValid()) << text.toStdString();
    EXPECT_EQ(isRead, formatter.reading().isRead()) << text.toStdString();
    return isRead ? wallTime(value.toDateTime()) : u"rejected"_s;
}
} // namespace

TEST(KTDateTimeFormatterCommonForms, AreOffAtFirst)
{
    const KTDateTimeFormatter formatter;
    QVariant value;
    EXPECT_FALSE(formatter.readsCommonForms());
    EXPECT_FALSE(formatter.getObjectValue(&value, u"Wed 5 March 2008"_s));
    EXPECT_FALSE(formatter.getObjectValue(&value, u"tomorrow"_s));
    EXPECT_FALSE(formatter.reading().isRead());
    EXPECT_TRUE(formatter.getObjectValue(&value, u"3/5/08"_s));
    EXPECT_FALSE(formatter.reading().isRead());
}

TEST(KTDateTimeFormatterCommonForms, RunTheExampleOfReading)
{
    KTDateTimeFormatter formatter;
    EXPECT_EQ(readBy(formatter, u"Wed 5 March 2008"_s), u"2008-03-05T12:00:00");
    EXPECT_EQ(formatter.reading().form, u"common.date");
    EXPECT_EQ(formatter.reading().parts.at(1).role, u"day");
    EXPECT_EQ(formatter.reading().zone, u"America/New_York");
}

TEST(KTDateTimeFormatterCommonForms, AreReadInTheUsersZone)
{
    const auto clock = typingMoment();
    KTDateTimeFormatter formatter;
    formatter.setDisplayTime(true);
    EXPECT_EQ(readBy(formatter, u"in 2 hours"_s), u"2019-06-05T11:30:00");
    EXPECT_EQ(readBy(formatter, u"yesterday at 5pm"_s), u"2019-06-04T17:00:00");
    EXPECT_EQ(readBy(formatter, u"March 5"_s), u"2019-03-05T12:00:00");
    // Summer time begins: 2:30 is skipped, and read as the patterns read it.
    EXPECT_EQ(readBy(formatter, u"March 10 at 2:30am"_s), u"2019-03-10T03:30:00");
}

TEST(KTDateTimeFormatterCommonForms, AreReadAsPeopleMeanThem)
{
    const auto clock = typingMoment();
    KTDateTimeFormatter american;
    // The patterns take these for 2021, the year 2000 or 5, and 20 March.
    EXPECT_EQ(readBy(american, u"21/4/16"_s), u"2016-04-21T12:00:00");
    EXPECT_EQ(readBy(american, u"3/4/5"_s), u"rejected");
    EXPECT_EQ(readBy(american, u"March 2008"_s), u"2008-03-01T12:00:00");
    EXPECT_EQ(readBy(american, u"2008-25-03"_s), u"rejected");
    KTDateTimeFormatter japanese;
    japanese.setLocale(NSLocale(u"ja_JP"_s));
    EXPECT_EQ(readBy(japanese, u"3/5"_s), u"2019-03-05T12:00:00");
}

TEST(KTDateTimeFormatterCommonForms, LeaveThePatternsWhatTheyReadWhole)
{
    const auto clock = typingMoment();
    KTDateTimeFormatter formatter;
    formatter.setDisplayTime(true);
    EXPECT_EQ(readBy(formatter, u"5"_s), u"2019-06-05T05:00:00");
    EXPECT_EQ(formatter.reading().form, u"pattern");
    EXPECT_EQ(readBy(formatter, u"3/5/08 and more"_s), u"rejected");
}

TEST(KTDateTimeFormatterCommonForms, SayWhyTheyAreRejected)
{
    KTDateTimeFormatter formatter;
    formatter.setReadsCommonForms(true);
    QVariant value = 7;
    QString reason;
    EXPECT_FALSE(formatter.getObjectValue(&value, u"Thursday, March 5, 2008"_s, &reason));
    EXPECT_EQ(reason, u"The date is on another weekday.");
    EXPECT_FALSE(value.isValid());
    reason = QString();
    EXPECT_FALSE(formatter.getObjectValue(&value, u"whenever"_s, &reason));
    EXPECT_EQ(reason, u"The text is in no form of dates and times that is known.");
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"whenever"_s));
    EXPECT_TRUE(formatter.getObjectValue(nullptr, u"March 5"_s));
}

TEST(KTDateTimeFormatterCommonForms, AreNoBareHoursWhereNoTimeIsShown)
{
    const auto clock = typingMoment();
    KTDateTimeFormatter formatter;
    for (const QString &text : {u"5"_s, u"08"_s, u"12"_s})
        EXPECT_EQ(readBy(formatter, text), u"rejected") << text.toStdString();
}

TEST(KTDateTimeFormatterCommonForms, LeaveNoReasonOfAnEarlierText)
{
    KTDateTimeFormatter formatter;
    formatter.setReadsCommonForms(true);
    QVariant value;
    QString reason = u"an earlier one"_s;
    EXPECT_FALSE(formatter.getObjectValue(&value, u"whenever"_s, &reason));
    EXPECT_EQ(reason, u"The text is in no form of dates and times that is known.");
    EXPECT_TRUE(formatter.getObjectValue(&value, u"March 5"_s, &reason));
    EXPECT_TRUE(reason.isNull());
}

TEST(KTDateTimeFormatterCommonForms, SpansAreNotReadByThePatternsEither)
{
    KTDateTimeFormatter german;
    german.setLocale(NSLocale(u"de_DE"_s));
    german.setDisplayTime(true);
    KTDateTimeFormatter english;
    english.setDisplayTime(true);
    for (const QString &text : {u"vom 10.10. - 12.10."_s, u"10.10. - 12.10."_s, u"5.-16. März"_s})
        EXPECT_EQ(readBy(german, text), u"rejected") << text.toStdString();
    for (const QString &text : {u"1y 2m ago"_s, u"5m ago"_s, u"in 5m"_s, u"March 5-16"_s})
        EXPECT_EQ(readBy(english, text), u"rejected") << text.toStdString();
}

TEST(KTDateTimeFormatterCommonForms, TellTheOtherOrder)
{
    KTDateTimeFormatter formatter;
    EXPECT_EQ(readBy(formatter, u"3/4/08"_s), u"2008-03-04T12:00:00");
    EXPECT_EQ(wallTime(formatter.reading().alternative.toDateTime()), u"2008-04-03T12:00:00");
    formatter.setLocale(NSLocale(u"en_GB"_s));
    EXPECT_EQ(readBy(formatter, u"3/4/08"_s), u"2008-04-03T12:00:00");
}

TEST(KTTimeFormatterCommonForms, AreTimesOfTheReferenceDay)
{
    KTTimeFormatter formatter;
    EXPECT_EQ(readBy(formatter, u"tomorrow at 5pm"_s), u"2001-01-01T17:00:00");
    EXPECT_EQ(readBy(formatter, u"17h30"_s), u"2001-01-01T17:30:00");
    EXPECT_EQ(readBy(formatter, u"8.30"_s), u"2001-01-01T08:30:00");
    EXPECT_EQ(readBy(formatter, u"March 5"_s), u"rejected");
    // The hour that the day of the change does not have.
    EXPECT_EQ(readBy(formatter, u"March 10 2019 2:30"_s), u"2001-01-01T02:30:00");
}
