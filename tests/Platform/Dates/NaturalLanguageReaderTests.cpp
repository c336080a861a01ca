// What the reader of natural language makes of texts, before any date is computed.

#include <KTUtility/NSDateFormatter>
#include <KTUtility/Platform/Dates/NaturalLanguageReader_p.h>

#include "LanguageSupport.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
std::optional<NaturalLanguageSaid> read(const QString &text, const QString &order = u"mdy"_s)
{
    static const NaturalLanguageWords words = wordsOf("en_US");
    return NaturalLanguageReader(words, text, order, 1950).read();
}

QString partOf(const char *name, const std::optional<int> &value)
{
    return value ? u"%1=%2 "_s.arg(QLatin1String(name)).arg(*value) : QString();
}

/// Everything that was said, in one line; null if nothing was understood.
QString describe(const std::optional<NaturalLanguageSaid> &said)
{
    if (!said)
        return QString();
    QString text = said->isNow ? u"now "_s : u""_s;
    text += partOf("days", said->daysFromToday) + partOf("weekday", said->weekday);
    text += said->weekdayDirection != 0 ? partOf("direction", said->weekdayDirection) : QString();
    text += partOf("y", said->year) + partOf("m", said->month) + partOf("d", said->day);
    for (const NaturalLanguageSaid::Move &move : said->moves)
        text += u"move=%1*%2 "_s.arg(move.unit).arg(move.amount);
    text += partOf("h", said->hour);
    if (said->hour)
        text += u"%1:%2 "_s.arg(said->minute).arg(said->second);
    text += partOf("half", said->half);
    return text.trimmed();
}

QString understood(const char16_t *text, const char16_t *order = u"mdy")
{
    return describe(read(QString::fromUtf16(text), QString::fromUtf16(order)));
}
} // namespace

TEST(NaturalLanguageReader, ReadsNumbersInTheGivenOrder)
{
    EXPECT_EQ(understood(u"3/4"), u"m=3 d=4");
    EXPECT_EQ(understood(u"3/4", u"dmy"), u"m=4 d=3");
    EXPECT_EQ(understood(u"3/4", u"ymd"), u"m=3 d=4");
    EXPECT_EQ(understood(u"3/4", u"ydm"), u"m=4 d=3");
    EXPECT_EQ(understood(u"3/4/08"), u"y=2008 m=3 d=4");
    EXPECT_EQ(understood(u"3/4/08", u"dmy"), u"y=2008 m=4 d=3");
    EXPECT_EQ(understood(u"08-3-4", u"ymd"), u"y=2008 m=3 d=4");
    EXPECT_EQ(understood(u"08.3.4", u"ydm"), u"y=2008 m=4 d=3");
    EXPECT_EQ(understood(u"2008-3-4", u"dmy"), u"y=2008 m=4 d=3");
    EXPECT_EQ(understood(u"3/4/2008", u"ymd"), u"y=2008 m=3 d=4");
}

TEST(NaturalLanguageReader, PutsYearsIntoTheirCentury)
{
    EXPECT_EQ(understood(u"1/1/50"), u"y=1950 m=1 d=1");
    EXPECT_EQ(understood(u"1/1/49"), u"y=2049 m=1 d=1");
    EXPECT_EQ(understood(u"1/1/1850"), u"y=1850 m=1 d=1");
    EXPECT_EQ(understood(u"may 5 08"), u"y=2008 m=5 d=5");
    EXPECT_EQ(understood(u"may 5 2008"), u"y=2008 m=5 d=5");
    EXPECT_EQ(understood(u"may 2008"), u"y=2008 m=5");
}

TEST(NaturalLanguageReader, ReadsTimes)
{
    EXPECT_EQ(understood(u"5:30"), u"h=5 30:0");
    EXPECT_EQ(understood(u"5:30:15"), u"h=5 30:15");
    EXPECT_EQ(understood(u"5pm"), u"h=5 0:0 half=1");
    EXPECT_EQ(understood(u"5 AM"), u"h=5 0:0 half=0");
    EXPECT_EQ(understood(u"5:30 p.m."), u"h=5 30:0 half=1");
    EXPECT_EQ(understood(u"noon"), u"h=12 0:0");
    EXPECT_EQ(understood(u"5:"), u"h=5 0:0");
    EXPECT_EQ(understood(u"5 o'clock"), u"h=5 0:0");
    EXPECT_EQ(understood(u"5 o’clock pm"), u"h=5 0:0 half=1");
    EXPECT_EQ(understood(u"23"), u"h=23 0:0");
}

TEST(NaturalLanguageReader, ReadsMoves)
{
    EXPECT_EQ(understood(u"in 3 days"), u"move=16*3");
    EXPECT_EQ(understood(u"3 days ago"), u"move=16*-3");
    EXPECT_EQ(understood(u"in 1 day"), u"move=16*1");
    EXPECT_EQ(understood(u"a week ago"), u"move=256*-1");
    EXPECT_EQ(understood(u"in an hour"), u"move=32*1");
    EXPECT_EQ(understood(u"2 months from now"), u"move=8*2");
    EXPECT_EQ(understood(u"5 minutes later"), u"move=64*5");
    EXPECT_EQ(understood(u"next year"), u"move=4*1");
    EXPECT_EQ(understood(u"this month"), u"move=8*0");
    EXPECT_EQ(understood(u"last second"), u"move=128*-1");
}

TEST(NaturalLanguageReader, ReadsDaysByName)
{
    EXPECT_EQ(understood(u"now"), u"now");
    EXPECT_EQ(understood(u"TODAY"), u"days=0");
    EXPECT_EQ(understood(u"tomorrow morning"), u"days=1 h=10 0:0");
    EXPECT_EQ(understood(u"Mon"), u"weekday=1");
    EXPECT_EQ(understood(u"Mon. 5:30"), u"weekday=1 h=5 30:0");
    EXPECT_EQ(understood(u"next sunday"), u"weekday=0 direction=1");
    EXPECT_EQ(understood(u"last Saturday"), u"weekday=6 direction=-1");
    EXPECT_EQ(understood(u"prior Saturday"), u"weekday=6 direction=-1");
    EXPECT_EQ(understood(u"this saturday"), u"weekday=6");
    EXPECT_EQ(understood(u"March 4th"), u"m=3 d=4");
    EXPECT_EQ(understood(u"the 1st of May"), u"m=5 d=1");
}

TEST(NaturalLanguageReader, RejectsWordsOutOfPlace)
{
    for (const char16_t *const text : {u"",
                                       u" , ",
                                       u"on",
                                       u"may may",
                                       u"today today",
                                       u"5 6",
                                       u"in",
                                       u"in may",
                                       u"3 days",
                                       u"next 5",
                                       u"next next week",
                                       u"5:3:4:2",
                                       u"5:60",
                                       u"5:30:60",
                                       u"5:x",
                                       u"3/x",
                                       u"1/2/3/4",
                                       u"pm",
                                       u"5 pm am",
                                       u"hello",
                                       u"12345",
                                       u"123456789",
                                       u"a",
                                       u"a may",
                                       u"ago",
                                       u"24",
                                       u"-3"})
        EXPECT_EQ(understood(text), QString()) << qPrintable(QString::fromUtf16(text));
}

TEST(NaturalLanguageReader, ReadsDigitsOfOtherScripts)
{
    EXPECT_EQ(understood(u"３/４/０８"), u"y=2008 m=3 d=4");
    EXPECT_EQ(understood(u"٥:٣٠"), u"h=5 30:0");
    EXPECT_EQ(understood(u"in ３ days"), u"move=16*3");
}
