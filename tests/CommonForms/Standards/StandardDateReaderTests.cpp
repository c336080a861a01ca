// What the forms of the standards have in common.

#include <KTUtility/CommonForms/Standards/StandardDate_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
StandardDate read(const QString &text)
{
    return readStandardDate(FoldedText(text), NSLocale(u"en_US"_s));
}

/// "year=2008 month=3 …"
QString partsOf(const QString &text)
{
    QStringList parts;
    const StandardDate date = read(text);
    for (const KTReadingPart &part : date.parts)
        parts.append(part.role + u'=' + part.meaning);
    return parts.join(u' ');
}
} // namespace

TEST(StandardDateReader, NotesTheParts)
{
    const QList<std::pair<QString, QString>> rows{
        {u"20080305"_s, u"year=2008 month=3 day=5"_s},
        {u"2008-W10-3"_s, u"year=2008 weekOfYear=10 weekday=3"_s},
        {u"2008-065"_s, u"year=2008 dayOfYear=65"_s},
        {u"T14:30:05,25"_s, u"hour=14 minute=30 second=5 fraction=0.25"_s},
        {u"14:30 PST"_s, u"hour=14 minute=30 zone=UTC-08:00"_s},
        {u"5 Mar 08 14:30 EST"_s,
         u"day=5 month=March year=2008 hour=14 minute=30 zone=UTC-05:00"_s},
        {u"Wed Mar 5 02:30:00 PM UTC 2008"_s,
         u"weekday=Wednesday month=March day=5 hour=2 minute=30 second=0 dayPeriod=PM zone=UTC year=2008"_s},
    };
    for (const auto &[text, expected] : rows)
        EXPECT_EQ(partsOf(text), expected) << qPrintable(text);
}

TEST(StandardDateReader, PartsStandWhereTheyWereTyped)
{
    const QString text = u"  ２００８-03-05\u00A0 14:30Z"_s; // wide digits, two blanks
    const StandardDate date = read(text);
    ASSERT_TRUE(date.isRead());
    QStringList typed;
    for (const KTReadingPart &part : date.parts)
        typed.append(text.mid(part.range.location, part.range.length));
    EXPECT_EQ(typed, (QStringList{u"２００８"_s, u"03"_s, u"05"_s, u"14"_s, u"30"_s, u"Z"_s}));
}

TEST(StandardDateReader, SaysTheFirstReasonForRefusing)
{
    EXPECT_EQ(read(u"2008-13-40T25:00"_s).reason, u"There is no such month.");
    EXPECT_EQ(read(u"2008-12-40T25:00"_s).reason, u"The month has no such day.");
    EXPECT_EQ(read(u"2008-12-31T25:00"_s).reason, u"There is no such time of day.");
}

TEST(StandardDateReader, HasATimeOrADay)
{
    const StandardDate day = read(u"2008-03-05"_s);
    EXPECT_TRUE(day.day && !day.time);
    const StandardDate time = read(u"T14:30"_s);
    EXPECT_TRUE(!time.day && time.time);
    const StandardDate both = read(u"2008-03-05T14:30"_s);
    EXPECT_TRUE(both.day && both.time && both.zone.length == 0);
    const StandardDate neither = read(u"noon"_s);
    EXPECT_TRUE(!neither.day && !neither.time && neither.form.isNull());
}
