#include "Text/ISODateParts.h"

#include "Text/ISODateText.h"

#include "support/InZone.h"
#include "support/TestSupport.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;

TEST(ISODateParts, AreWhatQtReads)
{
    for (const QString &text :
         {u"2008-07-04T17:30:00-04:00"_s, u"2008-07-04T17:30:00Z"_s, u"0001-01-01T00:00:00Z"_s,
          u"1969-12-31T23:59:59+05:30"_s, u"9999-12-31T23:59:59-12:00"_s}) {
        const std::optional<QDateTime> date = ISODate::dateIn(text);
        ASSERT_TRUE(date) << text.toStdString();
        const QDateTime expected = QDateTime::fromString(text, Qt::ISODateWithMs);
        EXPECT_EQ(*date, expected) << text.toStdString();
        EXPECT_EQ(date->timeSpec(), expected.timeSpec());
        EXPECT_EQ(date->offsetFromUtc(), expected.offsetFromUtc());
        EXPECT_EQ(date->toString(Qt::ISODate), text);
    }
}

TEST(ISODateParts, AreNothingInOtherForms)
{
    for (const QString &text :
         {u""_s, u"noon"_s, u"2008-07-04"_s, u"2008-07-04T17:30:00"_s, u"2008-07-04T17:30:00.5Z"_s,
          u"2008-07-04T17:30:00z"_s, u"2008-07-04 17:30:00Z"_s, u"2008-02-30T17:30:00Z"_s,
          u"2008-07-04T24:00:00Z"_s, u"2008-07-04T17:30:00+00:00"_s, u"2008-07-04T17:30:00-0400"_s,
          u"2008-07-04T17:30:00-04:60"_s, u"2008-07-04T17:30:00Z "_s, u"12008-07-04T17:30:00Z"_s,
          u"-208-07-04T17:30:00Z"_s, u"2008-07-04T17:30:00+4:000"_s, u"2008x07-04T17:30:00Z"_s})
        EXPECT_FALSE(ISODate::dateIn(text)) << text.toStdString();
}

TEST(ISODateParts, HaveATimeOfDayOfWholeSeconds)
{
    EXPECT_EQ(ISODate::timeIn(u"2008-07-04T12:00:01-04:00"), 43'201'000);
    EXPECT_EQ(ISODate::timeIn(u"2008-07-04T00:00:00Z"), 0);
    EXPECT_EQ(ISODate::timeIn(u"2008-07-04T12:00:01.5Z"), std::nullopt);
    EXPECT_EQ(ISODate::timeIn(u"2008-07-04"), std::nullopt);
    EXPECT_EQ(ISODate::timeIn(u"noon"), std::nullopt);
}

TEST(ISODateParts, CountFromMidnightInUTC)
{
    const testing_support::InZone inZone("America/New_York");
    const QDate day(2008, 7, 4);
    EXPECT_EQ(ISODate::instantAt(day, 0), QDateTime(day, QTime(0, 0), QTimeZone::utc()));
    EXPECT_EQ(ISODate::instantAt(day, -1),
              QDateTime(day, QTime(0, 0), QTimeZone::utc()).addMSecs(-1));
    EXPECT_EQ(ISODate::instantAt(QDate(1970, 1, 1), 7).toMSecsSinceEpoch(), 7);
}
