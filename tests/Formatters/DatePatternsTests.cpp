#include <KTUtility/Formatters/DatePatterns_p.h>

#include "support/TestSupport.h"

#include <QSet>

#include <climits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
constexpr int Orders[] = {DatePatterns::MonthDayYear, DatePatterns::DayMonthYear,
                          DatePatterns::YearMonthDay, DatePatterns::YearDayMonth};
constexpr int UnknownOrders[] = {-1, 4, INT_MIN, INT_MAX};
} // namespace

TEST(DatePatterns, TheOrderIsThatOfTheFirstTwoFields)
{
    struct Row
    {
        const char16_t *pattern;
        DatePatterns::Order order;
    };
    const Row rows[] = {
        {u"M/d/yy", DatePatterns::MonthDayYear},
        {u"EEEE, MMMM d, y", DatePatterns::MonthDayYear},
        {u"MMMM y", DatePatterns::MonthDayYear},
        {u"d. MMMM y", DatePatterns::DayMonthYear},
        {u"dd/yy/MM", DatePatterns::DayMonthYear},
        {u"yyyy-MM-dd", DatePatterns::YearMonthDay},
        {u"y年M月d日", DatePatterns::YearMonthDay},
        {u"yy.d.M", DatePatterns::YearDayMonth},
        // What is quoted is no field, and two quotes are a quote.
        {u"'M' d/M", DatePatterns::DayMonthYear},
        {u"'d of year' yy M", DatePatterns::YearMonthDay},
        {u"d 'de' MMMM 'de' y", DatePatterns::DayMonthYear},
        {u"''d/M", DatePatterns::DayMonthYear},
        {u"'M''d' y d", DatePatterns::YearDayMonth},
    };
    for (const Row &row : rows)
        EXPECT_EQ(DatePatterns::orderOf(QString::fromUtf16(row.pattern)), row.order)
            << QString::fromUtf16(row.pattern).toStdString();
}

TEST(DatePatterns, WithoutTwoFieldsTheMonthIsFirst)
{
    for (const QString &pattern :
         {QString(), u""_s, u"y"_s, u"dd"_s, u"h:mm a"_s, u"'d M y"_s, u"d 'M"_s, u"'"_s, u"''"_s})
        EXPECT_EQ(DatePatterns::orderOf(pattern), DatePatterns::MonthDayYear)
            << pattern.toStdString();
    EXPECT_EQ(DatePatterns::orderOf(megabyteOf(u"d"_s)), DatePatterns::MonthDayYear);
    EXPECT_EQ(DatePatterns::orderOf(megabyteOf(u"d"_s) + u"M"), DatePatterns::DayMonthYear);
}

TEST(DatePatterns, DatesBeginWithTheirOrder)
{
    struct Row
    {
        int order;
        const char16_t *first;
        const char16_t *last;
    };
    const Row rows[] = {
        {DatePatterns::MonthDayYear, u"M-d-yy", u"yyyy/d/M"},
        {DatePatterns::DayMonthYear, u"d-M-yy", u"yyyy/M/d"},
        {DatePatterns::YearMonthDay, u"yy.M.d", u"d.M.yyyy"},
        {DatePatterns::YearDayMonth, u"yy.d.M", u"MMMM d"},
    };
    for (const Row &row : rows) {
        EXPECT_EQ(DatePatterns::dates(row.order).first(), row.first);
        EXPECT_EQ(DatePatterns::dates(row.order).last(), row.last);
        EXPECT_EQ(DatePatterns::orderOf(DatePatterns::dates(row.order).first()), row.order);
    }
}

TEST(DatePatterns, EachOrderTriesTheSamePatternsOnce)
{
    const QStringList &some = DatePatterns::dates(DatePatterns::MonthDayYear);
    const QSet<QString> all(some.begin(), some.end());
    EXPECT_EQ(all.size(), 41);
    for (const int order : Orders) {
        const QStringList &patterns = DatePatterns::dates(order);
        EXPECT_EQ(patterns.size(), all.size());
        EXPECT_EQ(QSet<QString>(patterns.begin(), patterns.end()), all);
    }
}

TEST(DatePatterns, AnUnknownOrderHasNoDates)
{
    for (const int order : UnknownOrders)
        EXPECT_TRUE(DatePatterns::dates(order).isEmpty());
}

TEST(DatePatterns, TimesAreTriedFromTheLongestToTheHourAlone)
{
    EXPECT_EQ(DatePatterns::times().first(), u"h:m:s a");
    EXPECT_EQ(DatePatterns::times().last(), u"ha");
    for (qsizetype at = 1; at < DatePatterns::times().size(); ++at)
        EXPECT_LE(DatePatterns::times()[at].count(u':'), 2);
    EXPECT_EQ(QSet<QString>(DatePatterns::times().begin(), DatePatterns::times().end()).size(), 8);
}

TEST(DatePatterns, IsoHasTheTimeFirst)
{
    EXPECT_EQ(DatePatterns::iso(),
              (QStringList{u"yyyy-MM-dd'T'HH:mm:ss"_s, u"yyyy-MM-dd HH:mm:ss"_s, u"yyyy-MM-dd"_s}));
    for (const QString &pattern : DatePatterns::iso())
        EXPECT_EQ(DatePatterns::orderOf(pattern), DatePatterns::YearMonthDay);
}

TEST(DatePatterns, NumericPatternsFollowTheOrder)
{
    EXPECT_EQ(DatePatterns::numeric(DatePatterns::MonthDayYear), u"%m/%d/%y");
    EXPECT_EQ(DatePatterns::numeric(DatePatterns::DayMonthYear), u"%d/%m/%y");
    EXPECT_EQ(DatePatterns::numeric(DatePatterns::YearMonthDay), u"%y/%m/%d");
    EXPECT_EQ(DatePatterns::numeric(DatePatterns::YearDayMonth), u"%y/%d/%m");
    for (const int order : UnknownOrders)
        EXPECT_EQ(DatePatterns::numeric(order), u"%m/%d/%y");
    EXPECT_EQ(DatePatterns::numericTime(), u"%I:%M:%S %p");
}

TEST(DatePatterns, MonthAndDayAreAsACountryWritesThem)
{
    struct Row
    {
        const char16_t *country;
        const char16_t *monthFirst;
        const char16_t *dayFirst;
    };
    const Row rows[] = {
        {u"US", u"MMMM d", u"d MMMM"}, {u"FR", u"MMMM d", u"d MMMM"}, {u"DE", u"MMMM.d", u"d.MMMM"},
        {u"AT", u"MMMM d", u"d MMMM"}, {u"JP", u"M月d日", u"d日M月"}, {u"", u"MMMM d", u"d MMMM"},
        {u"de", u"MMMM d", u"d MMMM"},
    };
    for (const Row &row : rows) {
        const QString country = QString::fromUtf16(row.country);
        for (const int order : {DatePatterns::MonthDayYear, DatePatterns::YearMonthDay})
            EXPECT_EQ(DatePatterns::monthAndDay(order, country), row.monthFirst);
        for (const int order : {DatePatterns::DayMonthYear, DatePatterns::YearDayMonth})
            EXPECT_EQ(DatePatterns::monthAndDay(order, country), row.dayFirst);
    }
    EXPECT_EQ(DatePatterns::monthAndDay(DatePatterns::MonthDayYear, QString()), u"MMMM d");
    EXPECT_EQ(DatePatterns::japanese(), (QStringList{u"M月d日"_s, u"d日M月"_s}));
}

TEST(DatePatterns, TheYearGetsFourDigitsWhereItIs)
{
    struct Row
    {
        const char16_t *pattern;
        const char16_t *expected;
    };
    const Row rows[] = {
        {u"M/d/yy", u"M/d/yyyy"},
        {u"M/d/y", u"M/d/yyyy"},
        {u"yyy.d", u"yyyy.d"},
        {u"yy. M. d.", u"yyyy. M. d."},
        {u"y年M月", u"yyyy年M月"},
        // Years that stand apart become one.
        {u"yy/M/yy", u"yyyy/M/"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(DatePatterns::withFourDigitYear(QString::fromUtf16(row.pattern)), row.expected);
    for (const QString &pattern :
         {QString(), u""_s, u"M/d"_s, u"M/d/yyyy"_s, u"yyyyy"_s, u"h:mm a"_s, u"YY"_s})
        EXPECT_TRUE(DatePatterns::withFourDigitYear(pattern).isNull()) << pattern.toStdString();
}

TEST(DatePatterns, SurvivesHostilePatterns)
{
    for (const QString &text : hostileTexts()) {
        const int order = DatePatterns::orderOf(text);
        EXPECT_FALSE(DatePatterns::dates(order).isEmpty());
        const bool isQuoted = text.count(u'\'') % 2 != 0;
        const QString full = DatePatterns::withFourDigitYear(text + (isQuoted ? u"'yy" : u"yy"));
        EXPECT_TRUE(full.isNull() || full.contains(u"yyyy"));
    }
}

TEST(DatePatterns, LeavesQuotedLettersInPlace)
{
    const std::pair<QString, QString> rows[] = {
        {u"'lyɛ̌ʼ' d 'na' MMMM, y"_s, u"'lyɛ̌ʼ' d 'na' MMMM, yyyy"_s},
        {u"d.M.yy 'yyyy'"_s, u"d.M.yyyy 'yyyy'"_s},
        {u"yy 'y''y' y"_s, u"yyyy 'y''y' "_s},
        {u"''yy''"_s, u"''yyyy''"_s},
        {u"M 'to y"_s, QString()},
        {u"'day' d"_s, QString()},
        {u"'y' yyyy"_s, QString()}};
    for (const auto &[pattern, expected] : rows)
        EXPECT_EQ(DatePatterns::withFourDigitYear(pattern), expected) << qPrintable(pattern);
}
