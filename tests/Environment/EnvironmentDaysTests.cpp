// Days that the zone makes longer or shorter, beside Qt's own reckoning.

#include "EnvironmentSupport.h"

#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/NSDate_KTAdditions>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using environment_support::wallTime;
using environment_support::zone;

namespace {
constexpr int QuarterOfAnHour = 900;

/// The changes of the clock from 2007 to 2023; none in zones without summer time.
QTimeZone::OffsetDataList changes()
{
    return zone().transitions(QDateTime(QDate(2007, 1, 1), QTime(0, 0), KTPrivate::UTC),
                              QDateTime(QDate(2024, 1, 1), QTime(0, 0), KTPrivate::UTC));
}

int secondsAhead(const QDateTime &instant)
{
    return zone().offsetFromUtc(instant);
}

/// By how much the clock is put forward.
int jumpAt(const QDateTime &change)
{
    return secondsAhead(change) - secondsAhead(change.addSecs(-1));
}

QDateTime beginningOf(const QDate &day)
{
    return day.startOfDay(zone());
}

void expectDay(const QDate &day)
{
    const QDateTime begin = beginningOf(day);
    const QDateTime next = beginningOf(day.addDays(1));
    for (const QDateTime &instant : {begin, begin.addSecs(1), begin.addSecs(5400),
                                     begin.addSecs(43200), next.addSecs(-5400), next.addSecs(-1)}) {
        EXPECT_EQ(KTAdditions::beginningOfDay(instant), begin) << qPrintable(wallTime(instant));
        EXPECT_EQ(KTAdditions::endOfDay(instant), next.addSecs(-1))
            << qPrintable(wallTime(instant));
        const QTime clock = instant.toTimeZone(zone()).time();
        EXPECT_EQ(KTAdditions::secondsSinceMidnight(instant), clock.msecsSinceStartOfDay() / 1000);
    }
}

KTDateTimeFormatter *dateAndTime()
{
    auto *const formatter = new KTDateTimeFormatter;
    formatter->setDisplayTime(true);
    return formatter;
}
} // namespace

TEST(EnvironmentDays, EveryDayBeginsAndEndsWhereQtSays)
{
    for (QDate day(2018, 1, 1); day < QDate(2020, 1, 1); day = day.addDays(3))
        expectDay(day);
    for (const QTimeZone::OffsetData &change : changes()) {
        const QDate day = change.atUtc.toTimeZone(zone()).date();
        for (const int offset : {-1, 0, 1})
            expectDay(day.addDays(offset));
    }
}

TEST(EnvironmentDays, AddingDaysKeepsTheClock)
{
    for (const QTimeZone::OffsetData &change : changes()) {
        const QDate day = change.atUtc.toTimeZone(zone()).date();
        const QDateTime noon(day.addDays(-3), QTime(12, 0), zone());
        for (int days = 0; days < 7; ++days)
            EXPECT_EQ(wallTime(KTAdditions::dateByAddingDays(noon, days)),
                      wallTime(QDateTime(day.addDays(days - 3), QTime(12, 0), zone())));
        EXPECT_EQ(KTAdditions::dateByAddingHours(noon, 96), noon.addSecs(96 * 3600));
    }
}

TEST(EnvironmentDays, TimesAroundAChangeAreShownAndReadBack)
{
    const std::unique_ptr<KTDateTimeFormatter> formatter(dateAndTime());
    for (const QTimeZone::OffsetData &change : changes()) {
        for (int quarter = -10; quarter <= 10; ++quarter) {
            const QDateTime date = change.atUtc.addSecs(quarter * QuarterOfAnHour);
            const QString text = formatter->stringForObjectValue(date);
            QVariant value;
            ASSERT_TRUE(formatter->getObjectValue(&value, text)) << text.toStdString();
            EXPECT_EQ(formatter->stringForObjectValue(value), text);
            // An hour that comes twice may be taken for either.
            EXPECT_EQ(wallTime(value.toDateTime()), wallTime(date)) << text.toStdString();
        }
    }
}

TEST(EnvironmentDays, TimesThatTheClockSkipsAreTheGapLater)
{
    const KTDateTimeFormatter formatter;
    for (const QTimeZone::OffsetData &change : changes()) {
        const int gap = jumpAt(change.atUtc);
        for (int skipped = 0; skipped < gap; skipped += QuarterOfAnHour) {
            // What the clock would have shown without the change.
            const QDateTime typed =
                change.atUtc.addSecs(skipped).toOffsetFromUtc(secondsAhead(change.atUtc) - gap);
            const QString text = typed.toString(u"yyyy-MM-dd HH:mm:ss"_s);
            QVariant value;
            ASSERT_TRUE(formatter.getObjectValue(&value, text)) << text.toStdString();
            EXPECT_EQ(value.toDateTime(), change.atUtc.addSecs(skipped)) << text.toStdString();
        }
    }
}

TEST(EnvironmentDays, TheZonesOfTheTestsHaveTheirChanges)
{
    const QByteArray name = qgetenv("TZ");
    QSet<int> jumps;
    for (const QTimeZone::OffsetData &change : changes())
        jumps += jumpAt(change.atUtc);
    if (name == "Australia/Lord_Howe") {
        EXPECT_EQ(jumps, QSet<int>({1800, -1800}));
    } else if (name == "America/Sao_Paulo") {
        EXPECT_EQ(jumps, QSet<int>({3600, -3600}));
        EXPECT_EQ(wallTime(KTAdditions::beginningOfDay(
                      QDateTime(QDate(2018, 11, 4), QTime(12, 0), zone()))),
                  u"2018-11-04T01:00:00");
    } else if (name == "UTC" || name == "Asia/Kolkata") {
        EXPECT_TRUE(jumps.isEmpty());
    }
}
