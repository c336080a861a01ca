// ISO 8601 and RFC 5322 against what Qt writes and counts.

#include "StandardDateSupport.h"
#include "support/Properties.h"
#include "support/TestSupport.h"

#include <QLocale>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using testing_support::checkProperty;
using testing_support::newYork;

namespace {
/// Days since 1970 of a text that is a day, or of what is read otherwise.
std::optional<qint64> dayOf(const QString &text)
{
    return readStandardDate(FoldedText(text), NSLocale(u"de_DE"_s)).day;
}

qint64 daysOf(const QDate &date)
{
    return QDate(1970, 1, 1).daysTo(date);
}

/// The instant of a text in New York, as text; what was read otherwise as it is.
QString instantOf(const QString &text)
{
    const QString reading = standardReading(text);
    return reading.section(u' ', -1);
}

QString twoDigits(int number)
{
    return QString::number(number).rightJustified(2, u'0');
}

/// An instant of 1900 to 2099, in whole seconds.
QDateTime someInstant()
{
    const QDate day = QDate(1900, 1, 1).addDays(*rc::gen::inRange(0, 73'000));
    return QDateTime(day, QTime(0, 0), UTC).addSecs(*rc::gen::inRange(0, 86'400));
}

/// A whole number of quarters of an hour from UTC, in seconds.
int someOffset()
{
    constexpr int Quarter = 900;
    return *rc::gen::inRange(FurthestWest / 15, FurthestEast / 15 + 1) * Quarter;
}
} // namespace

TEST(ISODateModel, DaysAreCountedAsInTheCalendar)
{
    for (QDate day(1995, 1, 1); day.year() < 2030; day = day.addDays(1)) {
        const qint64 days = daysOf(day);
        ASSERT_EQ(dayOf(day.toString(Qt::ISODate)), days) << qPrintable(day.toString());
        ASSERT_EQ(dayOf(day.toString(u"yyyyMMdd"_s)), days) << qPrintable(day.toString());
    }
}

TEST(ISODateModel, WeeksAreCountedAsInTheCalendar)
{
    for (QDate day(1995, 1, 1); day.year() < 2030; day = day.addDays(1)) {
        int year = 0;
        const QString week = twoDigits(day.weekNumber(&year));
        const QString weekday = QString::number(day.dayOfWeek());
        const QString start = QString::number(year);
        const qint64 days = daysOf(day);
        ASSERT_EQ(dayOf(start + u"-W" + week + u'-' + weekday), days) << qPrintable(day.toString());
        ASSERT_EQ(dayOf(start + u'W' + week + weekday), days) << qPrintable(day.toString());
    }
}

TEST(ISODateModel, DaysOfTheYearAreCountedAsInTheCalendar)
{
    for (QDate day(1995, 1, 1); day.year() < 2030; day = day.addDays(1)) {
        const QString number = QString::number(day.dayOfYear()).rightJustified(3, u'0');
        ASSERT_EQ(dayOf(QString::number(day.year()) + u'-' + number), daysOf(day))
            << qPrintable(day.toString());
        // Without the hyphen it is that day, or none.
        const auto bare = dayOf(QString::number(day.year()) + number);
        ASSERT_TRUE(!bare || *bare == daysOf(day)) << qPrintable(day.toString());
    }
}

TEST(ISODateModel, NoNumberIsADayInTwoOrders)
{
    for (QDate day(1995, 1, 1); day.year() < 2030; day = day.addDays(1)) {
        for (const QString &order : {u"ddMMyyyy"_s, u"MMddyyyy"_s, u"dMMyyyy"_s, u"Mddyyyy"_s,
                                     u"dMyyyy"_s, u"yyMMdd"_s, u"ddMMyy"_s, u"MMddyy"_s}) {
            const auto read = dayOf(day.toString(order));
            ASSERT_TRUE(!read || *read == daysOf(day)) << qPrintable(day.toString(order));
        }
    }
}

TEST(ISODateModel, InstantsComeBackFromAnyOffset)
{
    checkProperty("a date with an offset is its instant", 2000, [] {
        const QDateTime instant = someInstant();
        const QString expected = instant.toString(Qt::ISODate);
        const QDateTime there = instant.toOffsetFromUtc(someOffset());
        RC_ASSERT((instantOf(there.toString(Qt::ISODate)) == expected));
        RC_ASSERT((instantOf(there.toString(Qt::ISODate).replace(u'T', u' ')) == expected));
        RC_ASSERT((instantOf(there.toString(Qt::RFC2822Date)) == expected));
        RC_ASSERT((instantOf(instant.toString(u"yyyyMMdd'T'HHmmss'Z'"_s)) == expected));
    });
}

TEST(ISODateModel, InstantsComeBackFromMailInEnglish)
{
    checkProperty("a date of mail or of a program is its instant", 1000, [] {
        const QDateTime instant = someInstant();
        const QString expected = instant.toString(Qt::ISODate);
        const QLocale english = QLocale::c();
        const QString mail = english.toString(instant, u"ddd, d MMM yyyy HH:mm:ss"_s);
        RC_ASSERT((instantOf(mail + u" GMT") == expected));
        RC_ASSERT((instantOf(mail + u" +0000 (UTC)") == expected));
        const QString program = english.toString(instant, u"ddd MMM d HH:mm:ss"_s);
        const QString year = QString::number(instant.date().year());
        RC_ASSERT((instantOf(program + u" UTC " + year) == expected));
        RC_ASSERT((instantOf(program + u' ' + year + u" +0000") == expected));
    });
}

TEST(ISODateModel, LocalTimesAreThoseOfTheZone)
{
    checkProperty("a date without a zone is the field's", 1000, [] {
        const QDateTime instant = someInstant();
        const QDateTime here = instant.toTimeZone(newYork());
        // In an hour that exists twice, the later is meant.
        const QDateTime read = QDateTime::fromString(
            instantOf(here.toString(u"yyyy-MM-dd'T'HH:mm:ss"_s)), Qt::ISODate);
        RC_ASSERT((read.toTimeZone(newYork()).toString(u"yyyyMMddHHmmss"_s) ==
                   here.toString(u"yyyyMMddHHmmss"_s)));
        RC_ASSERT((read == instant || read == instant.addSecs(3600)));
    });
}

TEST(ISODateModel, FractionsAreCutNotRounded)
{
    checkProperty("milliseconds are the first three digits", 500, [] {
        const int fraction = *rc::gen::inRange(0, 1'000'000);
        const QString digits = QString::number(fraction).rightJustified(6, u'0');
        const StandardDate date = readStandardDate(
            FoldedText(QString(u"2008-03-05T14:30:05." + digits + u'Z')), NSLocale(u"en_US"_s));
        RC_ASSERT((date.isRead()));
        RC_ASSERT((date.time->millisecond == fraction / 1000));
        RC_ASSERT((date.time->second == 5));
    });
}
