// What a field shows, before the standards.

#include <KTUtility/CommonForms/Standards/FieldDate_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"
#include "support/Zones.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

using testing_support::newYork;

namespace {
/// A text in a field of New York with a pattern.
FieldDate read(const QString &pattern, const QString &text)
{
    const NSLocale locale(u"en_US"_s);
    NSDateFormatter formatter;
    formatter.setLocale(locale);
    formatter.setTimeZone(newYork());
    formatter.setDateFormat(pattern);
    const NSCalendar calendar = NSCalendar::calendarOfLocale(locale);
    const QDateTime noon(QDate(2008, 2, 20), QTime(12, 0), newYork());
    return readFieldDate(text, {formatter, calendar, [&] { return noon; }, [&] { return noon; }},
                         locale);
}

QString instantOf(const FieldDate &date)
{
    return QDateTime::fromMSecsSinceEpoch(date.instant, UTC).toString(Qt::ISODate);
}
} // namespace

TEST(FieldDate, IsWhatTheFieldShowsFirst)
{
    // The field's own order, though the text has the form of ISO 8601.
    const FieldDate shown = read(u"yyyy-dd-MM"_s, u"2008-03-05"_s);
    EXPECT_EQ(shown.reading.form, u"display");
    EXPECT_EQ(shown.reading.zone, u"America/New_York");
    EXPECT_EQ(instantOf(shown), u"2008-05-03T16:00:00Z");
    const FieldDate standard = read(u"M/d/yyyy"_s, u"2008-03-05"_s);
    EXPECT_EQ(standard.reading.form, u"iso8601.date");
    EXPECT_EQ(instantOf(standard), u"2008-03-05T17:00:00Z");
}

TEST(FieldDate, TellsTheZoneInWhichItWasRead)
{
    EXPECT_EQ(read(u"M/d/yyyy"_s, u"2008-03-05 14:30"_s).reading.zone, u"America/New_York");
    EXPECT_EQ(read(u"M/d/yyyy"_s, u"2008-03-05 14:30Z"_s).reading.zone, u"UTC");
    EXPECT_EQ(read(u"M/d/yyyy"_s, u"2008-03-05 14:30+01"_s).reading.zone, u"UTC+01:00");
    EXPECT_EQ(read(u"M/d/yyyy"_s, u"2008-03-05T14:30+01[Europe/Berlin]"_s).reading.zone,
              u"Europe/Berlin");
}

TEST(FieldDate, SaysWhyItIsRefused)
{
    const FieldDate refused = read(u"M/d/yyyy"_s, u"2008-02-30"_s);
    EXPECT_EQ(refused.answer, StandardDate::Answer::Refused);
    EXPECT_EQ(refused.reason, u"The month has no such day.");
    EXPECT_FALSE(refused.reading.isRead());
    const FieldDate leap = read(u"M/d/yyyy"_s, u"2008-03-05T14:30:60"_s);
    EXPECT_EQ(leap.answer, StandardDate::Answer::Refused);
    EXPECT_EQ(leap.reason, u"There is no leap second then.");
}

TEST(FieldDate, LeavesOtherFormsAlone)
{
    const FieldDate other = read(u"M/d/yyyy"_s, u"tomorrow"_s);
    EXPECT_EQ(other.answer, StandardDate::Answer::OtherForm);
    EXPECT_FALSE(other.beginsWithDate);
    EXPECT_TRUE(read(u"M/d/yyyy"_s, u"2008-03-05 at noon"_s).beginsWithDate);
}
