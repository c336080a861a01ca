#include "Text/ISODateText.h"

#include "support/InZone.h"
#include "support/TestSupport.h"

#include <KTUtility/NSCalendar>
#include <KTUtility/Platform/Values/UTC_p.h>

using namespace Qt::StringLiterals;

TEST(ISODateText, HasTheClockOfTheZoneAndItsDistanceToUTC)
{
    const QDateTime date(QDate(2008, 3, 4), QTime(17, 30), NSCalendar::systemTimeZone());
    const QString text = isoDateText(date);
    EXPECT_TRUE(text.startsWith(u"2008-03-04T17:30:00")) << text.toStdString();
    EXPECT_EQ(QDateTime::fromString(text, Qt::ISODate), date);
}

TEST(ISODateText, HasPartsOfSecondsOnlyWhereThereAreSome)
{
    const QDateTime whole(QDate(2008, 3, 4), QTime(17, 30, 5), NSCalendar::systemTimeZone());
    EXPECT_FALSE(isoDateText(whole).contains(u'.'));
    EXPECT_TRUE(isoDateText(whole.addMSecs(7)).contains(u":05.007"));
}

TEST(ISODateText, TellsAnInstantWhateverZoneItWasGivenIn)
{
    const QDateTime utc(QDate(2008, 7, 1), QTime(12, 0), KTPrivate::UTC);
    const QDateTime elsewhere = utc.toOffsetFromUtc(5 * 3600);
    EXPECT_EQ(isoDateText(utc), isoDateText(elsewhere));
}

TEST(ISODateText, IsWhatQtWritesInAnyYear)
{
    for (const char *const zone : {"America/New_York", "Asia/Kolkata", "Pacific/Apia", "UTC"}) {
        const testing_support::InZone inZone(zone);
        for (const qint64 seconds :
             {0LL, -1LL, 1'204'651'800LL, -2'208'988'800LL, -62'135'596'800LL, -62'200'000'000LL,
              253'402'300'799LL, 253'402'400'000LL}) {
            for (const int milliseconds : {0, 7, 999}) {
                const QDateTime date =
                    QDateTime::fromMSecsSinceEpoch(seconds * 1000 + milliseconds, KTPrivate::UTC);
                const int offset =
                    date.toTimeZone(NSCalendar::systemTimeZone()).offsetFromUtc() / 60 * 60;
                const auto form = milliseconds == 0 ? Qt::ISODate : Qt::ISODateWithMs;
                EXPECT_EQ(isoDateText(date), date.toOffsetFromUtc(offset).toString(form));
            }
        }
    }
    EXPECT_EQ(isoDateText(QDateTime()), QString());
}
