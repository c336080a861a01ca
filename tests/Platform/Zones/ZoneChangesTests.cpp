// The changes of clocks; for data of another form, see the tests of the zone data.

#include <KTUtility/Platform/Zones/ZoneChanges_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
QDateTime utc(int year, int month, int day, int hour)
{
    return {QDate(year, month, day), QTime(hour, 0), QTimeZone::utc()};
}

QStringList changesOf(const char *zone, const QDateTime &from, const QDateTime &to)
{
    QStringList changes;
    for (const auto &change : ZoneChanges::between(QTimeZone(zone), from, to))
        changes += change.atUtc.toString(Qt::ISODate);
    return changes;
}
} // namespace

TEST(ZoneChanges, AreThoseFromOneTimeToAnotherWithBoth)
{
    const QStringList changes{u"2026-03-29T01:00:00Z"_s, u"2026-10-25T01:00:00Z"_s};
    EXPECT_EQ(changesOf("Europe/Berlin", utc(2026, 1, 1, 0), utc(2026, 12, 31, 0)), changes);
    EXPECT_EQ(changesOf("Europe/Berlin", utc(2026, 3, 29, 1), utc(2026, 10, 25, 1)), changes);
    EXPECT_EQ(changesOf("Europe/Berlin", utc(2026, 3, 29, 2), utc(2026, 10, 25, 0)), QStringList());
}

TEST(ZoneChanges, ComeOneAfterTheOther)
{
    const QTimeZone zone("America/New_York");
    QDateTime date = utc(2026, 1, 1, 0);
    // Across the last one that tables of zones list.
    for (int count = 0; count < 60; ++count) {
        const QDateTime next = ZoneChanges::after(zone, date).atUtc;
        ASSERT_TRUE(next.isValid()) << count;
        EXPECT_LT(date, next);
        EXPECT_LT(date.daysTo(next), 250) << count;
        date = next;
    }
}

TEST(ZoneChanges, AreNoneWhereClocksStay)
{
    EXPECT_FALSE(ZoneChanges::after(QTimeZone("UTC"), utc(2026, 1, 1, 0)).atUtc.isValid());
    EXPECT_EQ(changesOf("Asia/Tokyo", utc(2000, 1, 1, 0), utc(2037, 1, 1, 0)), QStringList());
}
