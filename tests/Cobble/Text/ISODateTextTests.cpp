#include "Text/ISODateText.h"

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
