// Reading what a formatter has shown.

#include <KTUtility/CommonForms/Standards/ShownDate_p.h>
#include <KTUtility/NSLocale>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/Properties.h"
#include "support/TestSupport.h"
#include "support/Zones.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using testing_support::newYork;

namespace {
/// A formatter in New York.
void prepare(NSDateFormatter *formatter, const QString &locale, const QString &pattern)
{
    formatter->setLocale(NSLocale(locale));
    formatter->setTimeZone(newYork());
    formatter->setDateFormat(pattern);
}

/// What a text is on a day in New York, "2008-03-05T14:30:00 -05:00"; "NO" if it is not read.
QString read(const QString &pattern, const QString &text, const QDate &today,
             const QString &locale = u"en_US"_s)
{
    NSDateFormatter formatter;
    prepare(&formatter, locale, pattern);
    NSCalendar calendar = NSCalendar::calendarOfLocale(NSLocale(locale));
    calendar.setTimeZone(newYork());
    const QDateTime noon(today, QTime(12, 0), newYork());
    const auto instant =
        readShownDate(text, {formatter, calendar, [&] { return noon; }, [&] { return noon; }});
    if (!instant)
        return u"NO"_s;
    return QDateTime::fromMSecsSinceEpoch(*instant, UTC)
        .toTimeZone(newYork())
        .toString(Qt::ISODate);
}

const QDate Winter(2008, 2, 20);
const QDate Summer(2009, 7, 20);
} // namespace

TEST(ShownDate, ReadsWhatIsShown)
{
    EXPECT_EQ(read(u"M/d/yyyy"_s, u"3/5/2008"_s, Winter), u"2008-03-05T12:00:00-05:00");
    EXPECT_EQ(read(u"M/d/yyyy h:mm a"_s, u"3/5/2008 12:05 AM"_s, Winter),
              u"2008-03-05T00:05:00-05:00");
    EXPECT_EQ(read(u"EEEE, MMMM d, yyyy"_s, u"Wednesday, March 5, 2008"_s, Winter),
              u"2008-03-05T12:00:00-05:00");
}

TEST(ShownDate, ReadsNothingElse)
{
    for (const QString &text : {u"03/05/2008"_s, u"3/5/08"_s, u"3/5/2008 "_s, u"2/30/2008"_s,
                                u"13/1/2008"_s, u"0/1/2008"_s, u"3/0/2008"_s, u"3/5/0"_s, u""_s})
        EXPECT_EQ(read(u"M/d/yyyy"_s, text, Winter), u"NO") << qPrintable(text);
    EXPECT_EQ(read(u"EEEE, MMMM d, yyyy"_s, u"Tuesday, March 5, 2008"_s, Winter), u"NO");
    EXPECT_EQ(read(u"H:mm"_s, u"24:00"_s, Winter), u"NO");
    EXPECT_EQ(read(u"H:mm"_s, u"14:60"_s, Winter), u"NO");
    EXPECT_EQ(read(u"H:mm"_s, QString(10'000, u'1'), Winter), u"NO");
}

TEST(ShownDate, ATimeIsTodays)
{
    EXPECT_EQ(read(u"H:mm"_s, u"14:30"_s, Winter), u"2008-02-20T14:30:00-05:00");
    EXPECT_EQ(read(u"Bh:mm"_s, u"in the afternoon2:30"_s, Winter), u"2008-02-20T14:30:00-05:00");
    // Two in the morning does not exist on the day on which summer time begins.
    EXPECT_EQ(read(u"H:mm"_s, u"2:30"_s, QDate(2008, 3, 9)), u"2008-03-08T02:30:00-05:00");
}

TEST(ShownDate, ADayIsThisYears)
{
    EXPECT_EQ(read(u"MMMM d"_s, u"March 5"_s, Summer), u"2009-03-05T12:00:00-05:00");
    EXPECT_EQ(read(u"MMMM d"_s, u"February 29"_s, Summer), u"2008-02-29T12:00:00-05:00");
    EXPECT_EQ(read(u"MMMM d"_s, u"February 30"_s, Summer), u"NO");
}

TEST(ShownDate, ZonesOfTheOtherHalfOfTheYearAreThoseOfItsLastDay)
{
    EXPECT_EQ(read(u"h:mm a z"_s, u"2:30 PM EST"_s, Winter), u"2008-02-20T14:30:00-05:00");
    const QString shown = read(u"h:mm a z"_s, u"2:30 PM EDT"_s, Winter);
    EXPECT_EQ(shown.mid(10), u"T14:30:00-04:00");
    EXPECT_EQ(shown.left(4), u"2007");
    EXPECT_EQ(read(u"h:mm a z"_s, u"2:30 PM CEST"_s, Winter), u"NO");
}

TEST(ShownDate, DoubledHoursAreTheLaterUnlessAZoneIsShown)
{
    EXPECT_EQ(read(u"M/d/yyyy h:mm a"_s, u"11/2/2008 1:30 AM"_s, Winter),
              u"2008-11-02T01:30:00-05:00");
    EXPECT_EQ(read(u"M/d/yyyy h:mm a z"_s, u"11/2/2008 1:30 AM EST"_s, Winter),
              u"2008-11-02T01:30:00-05:00");
    EXPECT_EQ(read(u"M/d/yyyy h:mm a z"_s, u"11/2/2008 1:30 AM EDT"_s, Winter),
              u"2008-11-02T01:30:00-04:00");
}

/// Whatever a formatter shows of a day, in the calendars that count otherwise.
TEST(ShownDate, ReadsOtherCalendars)
{
    const QDateTime day(QDate(2008, 3, 5), QTime(12, 0), newYork());
    for (const char *const name :
         {"ja_JP@calendar=japanese", "th_TH", "fa_IR", "ar_SA", "he_IL@calendar=hebrew",
          "en_US@calendar=hebrew", "zh_CN@calendar=chinese", "zh_TW@calendar=roc",
          "am_ET@calendar=ethiopic", "hi_IN@calendar=indian"}) {
        const QString locale = QString::fromLatin1(name);
        for (unsigned style = NSDateFormatterMediumStyle; style <= NSDateFormatterFullStyle;
             ++style) {
            NSDateFormatter formatter;
            prepare(&formatter, locale, QString());
            formatter.setDateStyle(style);
            const QString text = formatter.stringFromDate(day);
            EXPECT_EQ(read(formatter.dateFormat(), text, Summer, locale),
                      u"2008-03-05T12:00:00-05:00")
                << name << ' ' << qPrintable(text);
        }
    }
}

TEST(ShownDate, ReadsNothingThatIsNotShownSo)
{
    const QStringList pieces{u"3"_s,    u"5"_s,  u"/"_s,   u"2008"_s,  u" "_s,
                             u"2:30"_s, u"PM"_s, u"EST"_s, u"March"_s, QString(QChar(0xD800)),
                             u"٣"_s};
    NSDateFormatter formatter;
    prepare(&formatter, u"en_US"_s, u"M/d/yyyy h:mm a z"_s);
    const NSCalendar calendar = NSCalendar::calendarOfLocale(NSLocale(u"en_US"_s));
    const QDateTime noon(Winter, QTime(12, 0), newYork());
    testing_support::checkProperty("what is read is what is shown", 2000, [&] {
        QString text;
        for (int count = *rc::gen::inRange(0, 14); count > 0; --count)
            text += testing_support::someOf(pieces);
        const auto instant = readShownDate(
            text, {formatter, calendar, [&] { return noon; }, [] { return QDateTime(); }});
        if (instant)
            RC_ASSERT(
                (formatter.stringFromDate(QDateTime::fromMSecsSinceEpoch(*instant, UTC)) == text));
    });
}
