#include <KTUtility/Formatters/DateReading_p.h>

#include <KTUtility/Formatters/DateFormatterLists_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
std::shared_ptr<NSDateFormatter> formatterOf(const QString &pattern)
{
    DateFormatterSettings settings;
    settings.locale = NSLocale(u"en_US"_s);
    return DateFormatterLists::formatterWithPattern(settings, pattern, false);
}

KTDateFormatterList listOf(const QStringList &patterns)
{
    return KTDateFormatterList(size_t(patterns.size()), [patterns](size_t index) {
        return formatterOf(patterns[qsizetype(index)]);
    });
}

/// A text that lives as long as its reading.
struct Typed
{
    explicit Typed(const QString &typed) : text(typed), reading(text) {}

    QString text;
    DateReading reading;
};

QString chosenBy(const DateReading &reading)
{
    return reading.chosen() ? reading.chosen()->dateFormat() : QString();
}
} // namespace

TEST(DateReading, KnowsATextOfWhitespace)
{
    for (const QString &text : {QString(), u""_s, u" "_s, u"\t\r\n "_s, u"\u00A0\u3000"_s})
        EXPECT_TRUE(Typed(text).reading.hasOnlyWhitespace()) << text.toStdString();
    EXPECT_TRUE(Typed(megabyteOf(u" "_s)).reading.hasOnlyWhitespace());
    for (const QString &text : {u"5"_s, u" 5 "_s, u"x"_s, u"."_s, QString(QChar(0))})
        EXPECT_FALSE(Typed(text).reading.hasOnlyWhitespace()) << text.toStdString();
    EXPECT_FALSE(Typed(megabyteOf(u" "_s) + u"5").reading.hasOnlyWhitespace());
}

TEST(DateReading, KnowsTheShapeOfIso)
{
    for (const QString &text :
         {u"2008-03-05"_s, u"  2008-03-05"_s, u"2008/03/05"_s, u"2008-03-05T17:30:00"_s,
          u"2008 and 03 and 05"_s, u"9999-99-99"_s, u"2008-03-05 and more"_s})
        EXPECT_TRUE(Typed(text).reading.hasIsoShape()) << text.toStdString();
    for (const QString &text : {QString(), u""_s, u"2008"_s, u"2008-03"_s, u"20080305"_s,
                                u"2008-3-05"_s, u"2008-03-5"_s, u"2008-03-051"_s, u"08-03-05"_s,
                                u"x2008-03-05"_s, u"-2008-03-05"_s, u"２００８-０３-０５"_s})
        EXPECT_FALSE(Typed(text).reading.hasIsoShape()) << text.toStdString();
    EXPECT_FALSE(Typed(megabyteOf(u"2"_s)).reading.hasIsoShape());
}

TEST(DateReading, TakesTheRecentFormatterIfItReadsAllOfTheText)
{
    const auto recent = formatterOf(u"M/d/yy"_s);
    Typed whole(u"3/5/08"_s);
    EXPECT_TRUE(whole.reading.readWithRecent(recent.get()));
    EXPECT_EQ(whole.reading.chosen(), recent.get());
    EXPECT_EQ(wallTime(whole.reading.date()).left(10), u"2008-03-05");
    for (const QString &text : {u"3/5/08 x"_s, u"3/5"_s, u"x"_s, QString()}) {
        Typed other(text);
        EXPECT_FALSE(other.reading.readWithRecent(recent.get())) << text.toStdString();
        EXPECT_EQ(other.reading.chosen(), nullptr);
    }
    EXPECT_FALSE(whole.reading.readWithRecent(nullptr));
}

TEST(DateReading, OfIsoTheFirstThatReadsAnythingWins)
{
    const KTDateFormatterList iso = listOf({u"yyyy-MM-dd HH:mm:ss"_s, u"yyyy-MM-dd"_s, u"yyyy"_s});
    struct Row
    {
        QString text;
        QString date;
    };
    const Row rows[] = {
        {u"2008-03-05 17:30:00"_s, u"2008-03-05T17:30:00"_s},
        {u"2008-03-05"_s, u"2008-03-05T00:00:00"_s},
        {u"2008-03-05 and more"_s, u"2008-03-05T00:00:00"_s},
        {u"2008-99"_s, u"2008-01-01T00:00:00"_s},
    };
    for (const Row &row : rows) {
        Typed typed(row.text);
        EXPECT_TRUE(typed.reading.readIso(iso)) << row.text.toStdString();
        EXPECT_EQ(wallTime(typed.reading.date()), row.date);
        EXPECT_EQ(typed.reading.chosen(), nullptr);
    }
    EXPECT_FALSE(Typed(u"March"_s).reading.readIso(iso));
    EXPECT_FALSE(Typed(u"2008-03-05"_s).reading.readIso(listOf({})));
}

TEST(DateReading, FindsEachDateThatATextBeginsWith)
{
    const KTDateFormatterList dates = listOf({u"d.M"_s, u"M/d"_s, u"yyyy"_s, u"M/d/yy"_s});
    Typed typed(u"3/5/08"_s);
    EXPECT_EQ(typed.reading.nextDate(dates, 0), 1U);
    EXPECT_EQ(typed.reading.chosen(), nullptr);
    EXPECT_EQ(typed.reading.nextDate(dates, 1), 1U);
    EXPECT_EQ(typed.reading.nextDate(dates, 3), 3U);
    EXPECT_EQ(typed.reading.chosen(), dates[3].get());
    EXPECT_EQ(wallTime(typed.reading.date()).left(10), u"2008-03-05");
    EXPECT_EQ(typed.reading.nextDate(dates, 4), 4U);
    EXPECT_EQ(Typed(u"nothing"_s).reading.nextDate(dates, 0), dates.size());
    EXPECT_EQ(Typed(QString()).reading.nextDate(dates, 0), dates.size());
    EXPECT_EQ(Typed(u"3/5"_s).reading.nextDate(listOf({}), 0), 0U);
}

TEST(DateReading, OfTimesOnlyTheLastMayLeaveTextOver)
{
    struct Row
    {
        QString text;
        QStringList patterns;
        bool isRead;
        QString chosen;
    };
    const Row rows[] = {
        {u"5:30 pm"_s, {u"h:m a"_s, u"H"_s}, true, u"h:m a"_s},
        {u"5:30 pm"_s, {u"H"_s, u"h:m a"_s}, true, u"h:m a"_s},
        {u"5:30 pm x"_s, {u"H"_s, u"h:m a"_s}, true, QString()},
        {u"5:30 pm x"_s, {u"h:m a"_s, u"d.M"_s}, false, QString()},
        {u"x"_s, {u"h:m a"_s, u"H"_s}, false, QString()},
        {QString(), {u"h:m a"_s}, false, QString()},
        {u"5:30 pm"_s, {}, false, QString()},
    };
    for (const Row &row : rows) {
        const KTDateFormatterList list = listOf(row.patterns);
        Typed time(row.text);
        EXPECT_EQ(time.reading.readTime(list), row.isRead) << row.text.toStdString();
        EXPECT_EQ(chosenBy(time.reading), row.chosen) << row.text.toStdString();
        Typed both(row.text);
        EXPECT_EQ(both.reading.readDateAndTime(list), row.isRead) << row.text.toStdString();
        EXPECT_EQ(chosenBy(both.reading), row.chosen) << row.text.toStdString();
    }
}

TEST(DateReading, TheLatestSuccessIsTheResult)
{
    Typed typed(u"3/5/08 x"_s);
    EXPECT_EQ(typed.reading.nextDate(listOf({u"h"_s}), 0), 0U);
    const KTDateFormatterList dates = listOf({u"M/d/yy"_s});
    EXPECT_EQ(typed.reading.nextDate(dates, 0), 0U);
    // What fails leaves the result.
    EXPECT_FALSE(typed.reading.readTime(listOf({u"d.M"_s})));
    EXPECT_EQ(wallTime(typed.reading.date()).left(10), u"2008-03-05");
}

TEST(DateReading, ABareHourIsDigitsThatThePatternForHoursTook)
{
    struct Row
    {
        QString text;
        QString pattern;
        bool isBare;
    };
    const Row rows[] = {
        {u"5"_s, u"ha"_s, true},      {u"12"_s, u"ha"_s, true},    {u" 5"_s, u"ha"_s, true},
        {u"5:"_s, u"ha"_s, true},     {u"5 x"_s, u"ha"_s, false},  {u"13"_s, u"ha"_s, false},
        {u"5pm"_s, u"ha"_s, false},   {u"5 PM"_s, u"ha"_s, false}, {u"5"_s, u"H"_s, false},
        {u"5:30"_s, u"H:m"_s, false}, {u"x"_s, u"ha"_s, false},
    };
    for (const Row &row : rows) {
        Typed typed(row.text);
        const KTDateFormatterList list = listOf({row.pattern});
        typed.reading.readTime(list);
        EXPECT_EQ(typed.reading.isBareHour(), row.isBare) << row.text.toStdString();
    }
}

TEST(DateReading, SurvivesHostileTexts)
{
    const KTDateFormatterList dates = listOf({u"M/d/yy"_s, u"yyyy-MM-dd"_s, u"ha"_s});
    for (const QString &text : hostileTexts()) {
        Typed typed(text);
        EXPECT_FALSE(typed.reading.hasIsoShape());
        EXPECT_EQ(typed.reading.nextDate(dates, 0), dates.size());
        EXPECT_FALSE(typed.reading.isBareHour());
    }
}
