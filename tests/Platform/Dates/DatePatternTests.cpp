#include <KTUtility/Platform/Dates/DatePattern_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
using Kind = DateElement::Kind;

DatePattern patternOf(const char16_t *text)
{
    return DatePattern(QString::fromUtf16(text));
}

/// The elements in letters: N for numbers, M month names, E weekdays, A halves, O others, and
/// literals in brackets, as they are sought.
QString outlineOf(const char16_t *text)
{
    QString outline;
    const DatePattern pattern = patternOf(text);
    for (const DateElement &element : pattern.elements()) {
        if (element.kind == Kind::Literal)
            outline += u'[' + element.sought + u']';
        else
            outline += u"_NMEAO"[int(element.kind)];
    }
    return outline;
}

QString charactersOf(const char16_t *text)
{
    QString characters;
    const DatePattern pattern = patternOf(text);
    for (const DateElement &element : pattern.elements())
        characters += element.characters;
    return characters;
}
} // namespace

TEST(DatePattern, TakesPatternsApart)
{
    EXPECT_EQ(outlineOf(u"M/d/yy"), u"N[/]N[/]N");
    EXPECT_EQ(outlineOf(u"EEEE, MMMM d, y"), u"E[, ]M[ ]N[, ]N");
    EXPECT_EQ(outlineOf(u"h:mm:ss a zzzz"), u"N[:]N[:]N[ ]A[ ]O");
    EXPECT_EQ(outlineOf(u"ha"), u"NA");
    EXPECT_EQ(outlineOf(u"y年M月d日EEEE"), u"N[年]N[月]N[日]E");
    EXPECT_EQ(outlineOf(u"d LLL y G"), u"N[ ]M[ ]N[ ]O");
    EXPECT_EQ(outlineOf(u"SSS Q w D"), u"O[ ]O[ ]O[ ]O");
    EXPECT_EQ(outlineOf(u""), u"");
}

TEST(DatePattern, UnderstandsQuotes)
{
    EXPECT_EQ(outlineOf(u"yyyy-MM-dd'T'HH:mm"), u"N[-]N[-]N[T]N[:]N");
    EXPECT_EQ(outlineOf(u"d 'of' MMMM"), u"N[ of ]M");
    EXPECT_EQ(outlineOf(u"h 'o''clock'"), u"N[ o'clock]");
    EXPECT_EQ(outlineOf(u"d''M"), u"N[']N");
    EXPECT_EQ(outlineOf(u"d 'open"), u"N[ open]");
    EXPECT_EQ(outlineOf(u"'"), u"[]");
    EXPECT_EQ(charactersOf(u"h 'o''clock'"), u" o'clock");
}

TEST(DatePattern, SeeksRunsOfWhitespaceAsOne)
{
    EXPECT_EQ(outlineOf(u"M  \t d"), u"N[ ]N");
    EXPECT_EQ(charactersOf(u"M  \t d"), u"  \t ");
    // Whitespace for a reader, but a character like any other in a pattern.
    EXPECT_EQ(outlineOf(u"h\u202Fa"), u"N[\u202F]A");
}

TEST(DatePattern, LeavesAdjacentNumbersToICU)
{
    EXPECT_EQ(outlineOf(u"yyyyMMdd"), u"OOO");
    EXPECT_EQ(outlineOf(u"HHmm ss"), u"OO[ ]N");
    EXPECT_EQ(outlineOf(u"dMMM"), u"NM");
    EXPECT_EQ(outlineOf(u"sSSS"), u"OO");
    EXPECT_EQ(outlineOf(u"hmma"), u"OOA");
    EXPECT_TRUE(patternOf(u"yyyyMMdd").needsICU());
    EXPECT_TRUE(patternOf(u"h z").needsICU());
    EXPECT_FALSE(patternOf(u"h z zzzz").needsICUForMoreThanZones());
    EXPECT_TRUE(patternOf(u"h v").needsICUForMoreThanZones());
    EXPECT_TRUE(patternOf(u"h zzzzz").needsICUForMoreThanZones());
    EXPECT_FALSE(patternOf(u"EEEE d LLLL y h:mm a").needsICU());
}

TEST(DatePattern, LeavesOddYearsToICU)
{
    EXPECT_EQ(outlineOf(u"y"), u"N");
    EXPECT_EQ(outlineOf(u"yy"), u"N");
    EXPECT_EQ(outlineOf(u"yyy"), u"O");
    EXPECT_EQ(outlineOf(u"yyyy"), u"N");
    EXPECT_EQ(outlineOf(u"yyyyy"), u"O");
    EXPECT_EQ(outlineOf(u"Y u r U"), u"O[ ]O[ ]O[ ]O");
}

TEST(DatePattern, KnowsWidthsOfYears)
{
    const auto takes = [](const char16_t *text) {
        const DatePattern pattern = patternOf(text);
        QString widths;
        for (int digits = 1; digits <= 5; ++digits) {
            if (pattern.takesYearOf(digits))
                widths += QString::number(digits);
        }
        return widths;
    };
    EXPECT_EQ(takes(u"M/d/y"), u"24");
    EXPECT_EQ(takes(u"M/d/yy"), u"2");
    EXPECT_EQ(takes(u"M/d/yyy"), u"12345");
    EXPECT_EQ(takes(u"M/d/yyyy"), u"4");
    EXPECT_EQ(takes(u"M/d"), u"12345");
}

TEST(DatePattern, TakesYearsOfTwoOrFourDigitsInAStyle)
{
    const auto style = DatePattern::patternOf(u"d.M.yy."_s, DateYears::OfStyle);
    EXPECT_TRUE(style->takesYearOf(2));
    EXPECT_TRUE(style->takesYearOf(4));
    EXPECT_FALSE(style->takesYearOf(1));
    EXPECT_FALSE(style->takesYearOf(3));
    EXPECT_FALSE(DatePattern::patternOf(u"d.M.yyyy."_s, DateYears::OfStyle)->takesYearOf(2));
    // The same text without a style is another pattern, whichever was asked for first.
    const auto plain = DatePattern::patternOf(u"d.M.yy."_s);
    EXPECT_NE(plain, style);
    EXPECT_FALSE(plain->takesYearOf(4));
    EXPECT_EQ(DatePattern::patternOf(u"d.M.yy."_s, DateYears::OfStyle), style);
}

TEST(DatePattern, KnowsWhereTheYearIs)
{
    EXPECT_EQ(patternOf(u"M/d/yy").beforeYear, u"M/d/");
    EXPECT_EQ(patternOf(u"M/d/yy").yearLetters, 2);
    EXPECT_EQ(patternOf(u"M/d/yy").digitsAfterYear, 0);
    EXPECT_EQ(patternOf(u"yyyyMMdd").beforeYear, u"");
    EXPECT_EQ(patternOf(u"yyyyMMdd").digitsAfterYear, 4);
    EXPECT_EQ(patternOf(u"yyyyMMMdd").digitsAfterYear, 0);
    EXPECT_EQ(patternOf(u"'year' y").beforeYear, u"'year' ");
    EXPECT_EQ(patternOf(u"h:mm").yearLetters, 0);
}

TEST(DatePattern, KnowsWhatLeads)
{
    EXPECT_EQ(patternOf(u"M/d/yy").leadingKind(), Kind::Number);
    EXPECT_EQ(patternOf(u"M/d/yy").unitAfterLead(), u'/');
    EXPECT_TRUE(patternOf(u"M/d/yy").isLedByMonth());
    EXPECT_EQ(patternOf(u"h a").unitAfterLead(), u' ');
    EXPECT_FALSE(patternOf(u"h a").isLedByMonth());
    EXPECT_EQ(patternOf(u"ha").unitAfterLead(), u'\0');
    // Nothing follows the point, so it may be missing.
    EXPECT_EQ(patternOf(u"d.").unitAfterLead(), u'\0');
    EXPECT_EQ(patternOf(u"MMM d").leadingKind(), Kind::MonthName);
    EXPECT_EQ(patternOf(u"EEE").leadingKind(), Kind::Weekday);
    EXPECT_EQ(patternOf(u"a h").leadingKind(), Kind::HalfOfDay);
    EXPECT_EQ(patternOf(u"'x'd").leadingKind(), Kind::Literal);
    EXPECT_EQ(patternOf(u"").leadingKind(), Kind::Other);
}

TEST(DatePattern, KnowsNamesZonesAndBareHours)
{
    EXPECT_TRUE(patternOf(u"d MMM").hasMonthName);
    EXPECT_TRUE(patternOf(u"LLLL").hasMonthName);
    EXPECT_FALSE(patternOf(u"d MM").hasMonthName);
    for (const char16_t *const text : {u"z", u"Z", u"O", u"v", u"V", u"X", u"x"})
        EXPECT_TRUE(patternOf(text).hasZone);
    EXPECT_FALSE(patternOf(u"h:mm 'z'").hasZone);
    EXPECT_TRUE(patternOf(u"Bh:mm").hasDayPeriod);
    EXPECT_FALSE(patternOf(u"ah:mm").hasDayPeriod);
    EXPECT_TRUE(patternOf(u"ha").isBareHour);
    EXPECT_FALSE(patternOf(u"h a").isBareHour);
    EXPECT_FALSE(patternOf(u"hha").isBareHour);
}

TEST(DatePattern, AsksForDigits)
{
    const auto minimum = [](const char16_t *text) {
        return patternOf(text).elements().front().minimalDigits;
    };
    EXPECT_EQ(minimum(u"d"), 1);
    EXPECT_EQ(minimum(u"dd"), 2);
    EXPECT_EQ(minimum(u"mm"), 2);
    EXPECT_EQ(minimum(u"ss"), 2);
    EXPECT_EQ(minimum(u"MM"), 1);
    EXPECT_EQ(minimum(u"HH"), 1);
    EXPECT_EQ(minimum(u"yyyy"), 1);
    EXPECT_EQ(minimum(u"DDD"), 3);
    EXPECT_EQ(minimum(u"ww"), 2);
    EXPECT_TRUE(patternOf(u"d MMM y h:mm a").hasMinimalDigits);
    EXPECT_FALSE(patternOf(u"M/d/yyyy HH:m").hasMinimalDigits);
    // Neighbours share their digits, of which each gets as many as it has letters.
    EXPECT_FALSE(patternOf(u"yyyyMMdd").hasMinimalDigits);
    EXPECT_EQ(minimum(u"ddMM"), 1);
}

TEST(DatePattern, KnowsWhereFieldsStart)
{
    QList<qsizetype> starts;
    const DatePattern pattern = patternOf(u"d 'of' MMMM, HH:mm");
    for (const DateElement &element : pattern.elements()) {
        if (element.kind != Kind::Literal)
            starts += element.start;
    }
    EXPECT_EQ(starts, (QList<qsizetype>{0, 7, 13, 16}));
}

TEST(DatePattern, IsSharedByItsText)
{
    const auto first = DatePattern::patternOf(u"M/d/yy"_s);
    EXPECT_EQ(first, DatePattern::patternOf(u"M/d/yy"_s));
    EXPECT_NE(first, DatePattern::patternOf(u"M/d/yyyy"_s));
    EXPECT_NE(first->number, DatePattern::patternOf(u"M/d/yyyy"_s)->number);
    const QString endless(1000, u'd');
    EXPECT_NE(DatePattern::patternOf(endless), DatePattern::patternOf(endless));
}

TEST(DatePattern, ForgetsPatternsWhenThereAreTooMany)
{
    const auto first = DatePattern::patternOf(u"d 'kept'"_s);
    for (int count = 0; count < 5000; ++count)
        DatePattern::patternOf(u"d '%1'"_s.arg(count));
    const auto second = DatePattern::patternOf(u"d 'kept'"_s);
    EXPECT_EQ(first->text, second->text);
    EXPECT_NE(first->number, second->number);
}

TEST(DatePattern, SurvivesHostileTexts)
{
    for (const QString &text : hostileTexts()) {
        const DatePattern pattern(text);
        EXPECT_EQ(pattern.text, text);
        for (const DateElement &element : pattern.elements())
            EXPECT_EQ(element.kind == Kind::Literal, element.letter == u'\0');
    }
}

TEST(DatePattern, KnowsTheDateBeforeATime)
{
    const auto numberOf = [](const QString &text, DateYears years = DateYears::AsWide) {
        return DatePattern(text, years).datePrefix().number;
    };
    EXPECT_EQ(DatePattern(u"M/d/yy h:m a"_s).datePrefix().count, 6);
    EXPECT_EQ(numberOf(u"M/d/yy h:m a"_s), numberOf(u"M/d/yy k:m"_s));
    EXPECT_NE(numberOf(u"M/d/yy h:m a"_s), numberOf(u"d/M/yy h:m a"_s));
    EXPECT_NE(numberOf(u"M/d/yy h"_s), numberOf(u"M/d/yy h"_s, DateYears::OfStyle));
    // English months have more names where some month is read by name.
    EXPECT_NE(numberOf(u"M/d/yy h"_s), numberOf(u"M/d/yy h MMM"_s));
    for (const QString &none : {u"h:m"_s, u"M/d/yy"_s, u"M/d/yy'T'h:m"_s, u"d. h:m"_s, u" h"_s})
        EXPECT_EQ(numberOf(none), 0) << qPrintable(none);
}
