#include <KTUtility/Platform/Queries/LocalInstants_p.h>

#include "support/LibcZone.h"
#include "support/TestSupport.h"

#include <QTimeZone>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using testing_support::LibcZone;

namespace {
/// Some zones with clocks that are changed by day, at midnight, by a day, or not at all.
const char *const Zones[] = {"Europe/Berlin",       "America/Sao_Paulo", "Pacific/Apia",
                             "Australia/Lord_Howe", "Africa/Casablanca", "Asia/Tehran",
                             "America/New_York",    "Europe/Moscow",     "UTC"};

/// Counts the dates whose instant is another than Qt's.
int failuresFrom(const QDateTime &first, qint64 step, int count)
{
    LocalInstants instants;
    int failures = 0;
    for (QDateTime date = first; count > 0; --count) {
        failures += instants.of(date) == date.toMSecsSinceEpoch() ? 0 : 1;
        const QDateTime utc(date.date(), date.time(), Qt::UTC);
        const QDateTime next = utc.addSecs(step);
        date = QDateTime(next.date(), next.time());
    }
    return failures;
}
} // namespace

TEST(LocalInstants, AreThoseOfQtInEveryZone)
{
    for (const char *const zone : Zones) {
        const LibcZone inZone(zone);
        const QDateTime first(QDate(1970, 1, 1), QTime(0, 7));
        EXPECT_EQ(failuresFrom(first, 7 * 3600 + 1, 60'000), 0) << zone;
    }
}

TEST(LocalInstants, AreThoseOfQtAroundChangesOfTheClock)
{
    const QDate days[] = {{2025, 3, 30}, {2025, 10, 26}, {2018, 11, 4}, {2011, 12, 30},
                          {2018, 2, 18}, {2022, 3, 22},  {2025, 11, 2}};
    for (const char *const zone : Zones) {
        const LibcZone inZone(zone);
        for (const QDate day : days)
            EXPECT_EQ(failuresFrom(QDateTime(day.addDays(-1), QTime(20, 0)), 300, 500), 0) << zone;
    }
}

TEST(LocalInstants, AreThoseOfQtWhereTheClockGoesBackWithinDays)
{
    const struct
    {
        const char *zone;
        QDate first;
    } table[] = {{"America/Recife", {2000, 9, 20}},
                 {"America/Noronha", {2000, 9, 20}},
                 {"America/Boa_Vista", {2000, 9, 20}},
                 {"Asia/Gaza", {2040, 10, 1}},
                 {"Africa/Freetown", {1939, 8, 20}}};
    for (const auto &[zone, first] : table) {
        const LibcZone inZone(zone);
        EXPECT_EQ(failuresFrom(QDateTime(first, QTime(0, 7)), 1800, 2000), 0) << zone;
    }
}

TEST(LocalInstants, OtherDatesAreAskedThemselves)
{
    const LibcZone berlin("Europe/Berlin");
    LocalInstants instants;
    const QDateTime dates[] = {
        QDateTime(),
        QDateTime(QDate(2026, 3, 5), QTime(1, 0), Qt::UTC),
        QDateTime(QDate(2026, 3, 5), QTime(1, 0), QTimeZone("America/New_York")),
        QDateTime(QDate(2026, 3, 5), QTime(1, 0)).toOffsetFromUtc(7200),
        QDateTime(QDate(-4800, 1, 1), QTime(1, 0)),
        QDateTime(QDate(-4713, 11, 24), QTime(1, 0)),
        QDateTime(QDate(9999, 12, 31), QTime(23, 59)),
    };
    for (const QDateTime &date : dates)
        EXPECT_EQ(instants.of(date), date.toMSecsSinceEpoch());
}
