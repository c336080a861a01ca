#include "Fields/ZoneDays.h"

#include "support/InZone.h"
#include "support/TestSupport.h"

TEST(ZoneDays, HaveTheOffsetOfTheWholeDay)
{
    const testing_support::InZone inZone("America/New_York");
    ZoneDays days;
    EXPECT_EQ(days.offsetOn(QDate(2008, 7, 4)), -14400);
    EXPECT_EQ(days.offsetOn(QDate(2008, 1, 4)), -18000);
    EXPECT_EQ(days.offsetOn(QDate(2008, 7, 4)), -14400);
}

TEST(ZoneDays, SayNothingAboutDaysOnWhichTheClockIsChanged)
{
    const testing_support::InZone inZone("America/New_York");
    ZoneDays days;
    for (const int day : {8, 9, 10})
        EXPECT_EQ(days.offsetOn(QDate(2008, 3, day)), std::nullopt) << day;
    // Less than a minute off.
    EXPECT_EQ(days.offsetOn(QDate(1850, 3, 9)), std::nullopt);
}

TEST(ZoneDays, AreAllAlikeInUTC)
{
    const testing_support::InZone inZone("UTC");
    ZoneDays days;
    EXPECT_EQ(days.offsetOn(QDate(1600, 1, 1)), 0);
    EXPECT_EQ(days.offsetOn(QDate(9999, 12, 31)), 0);
}
