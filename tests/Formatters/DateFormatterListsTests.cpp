#include <KTUtility/Formatters/DateFormatterLists_p.h>

#include <KTUtility/Formatters/DatePatterns_p.h>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// The settings of a date field, in a locale and its own calendar.
DateFormatterSettings settingsIn(const QString &locale)
{
    DateFormatterSettings settings;
    settings.locale = NSLocale(locale);
    settings.calendar = NSCalendar::calendarOfLocale(settings.locale);
    settings.today = QDateTime(QDate(2008, 2, 20), QTime(17, 0), UTC);
    return settings;
}

QStringList patternsOf(const KTDateFormatterList &list)
{
    QStringList patterns;
    for (size_t index = 0; index < list.size(); ++index)
        patterns += list[index]->dateFormat();
    return patterns;
}
} // namespace

TEST(DateFormatterLists, AFormatterHasThePatternAndTheSettings)
{
    DateFormatterSettings settings = settingsIn(u"fr_FR"_s);
    settings.defaultDate = QDateTime(QDate(2001, 1, 1), QTime(12, 0), UTC);
    for (const bool isLenient : {false, true}) {
        const auto formatter =
            DateFormatterLists::formatterWithPattern(settings, u"d/M"_s, isLenient);
        EXPECT_EQ(formatter->dateFormat(), u"d/M");
        EXPECT_EQ(formatter->isLenient(), isLenient);
        EXPECT_EQ(formatter->locale().localeIdentifier(), u"fr_FR");
        EXPECT_EQ(formatter->defaultDate(), settings.defaultDate);
        EXPECT_FALSE(formatter->generatesCalendarDates());
    }
}

TEST(DateFormatterLists, AFormatterHasTheLocalesStyles)
{
    struct Row
    {
        QString locale;
        uint dateStyle;
        uint timeStyle;
        QString pattern;
    };
    const Row rows[] = {
        {u"en_US"_s, NSDateFormatterShortStyle, NSDateFormatterNoStyle, u"M/d/yy"_s},
        {u"en_US"_s, NSDateFormatterLongStyle, NSDateFormatterNoStyle, u"MMMM d, y"_s},
        {u"de_DE"_s, NSDateFormatterShortStyle, NSDateFormatterNoStyle, u"dd.MM.yy"_s},
        {u"de_DE"_s, NSDateFormatterNoStyle, NSDateFormatterShortStyle, u"HH:mm"_s},
        {u"ja_JP"_s, NSDateFormatterMediumStyle, NSDateFormatterNoStyle, u"y/MM/dd"_s},
        {u"en_US"_s, NSDateFormatterNoStyle, NSDateFormatterNoStyle, u""_s},
    };
    for (const Row &row : rows) {
        const auto formatter = DateFormatterLists::formatterWithStyles(
            settingsIn(row.locale), row.dateStyle, row.timeStyle, false);
        EXPECT_EQ(formatter->dateFormat(), row.pattern) << row.locale.toStdString();
        EXPECT_EQ(formatter->dateStyle(), row.dateStyle);
        EXPECT_EQ(formatter->timeStyle(), row.timeStyle);
    }
}

TEST(DateFormatterLists, ALocaleHasItsFourStyles)
{
    const DateFormatterSettings settings = settingsIn(u"en_US"_s);
    const KTDateFormatterList dates = DateFormatterLists::datesOfLocale(settings);
    EXPECT_EQ(patternsOf(dates),
              (QStringList{u"M/d/yy"_s, u"MMM d, y"_s, u"MMMM d, y"_s, u"EEEE, MMMM d, y"_s}));
    const KTDateFormatterList times = DateFormatterLists::timesOfLocale(settings);
    ASSERT_EQ(times.size(), 4U);
    for (uint style = NSDateFormatterShortStyle; style <= NSDateFormatterFullStyle; ++style) {
        EXPECT_EQ(times[style - 1]->timeStyle(), style);
        EXPECT_EQ(times[style - 1]->dateStyle(), uint(NSDateFormatterNoStyle));
    }
}

TEST(DateFormatterLists, JapanHasItsMonthAndDayOfThisYear)
{
    const DateFormatterSettings settings = settingsIn(u"ja_JP"_s);
    const KTDateFormatterList dates = DateFormatterLists::datesOfLocale(settings);
    EXPECT_EQ(patternsOf(dates).mid(4), DatePatterns::japanese());
    EXPECT_EQ(dates[4]->defaultDate(), settings.today);
    EXPECT_EQ(dates[5]->defaultDate(), settings.today);
    EXPECT_FALSE(dates[0]->defaultDate().isValid());
    EXPECT_EQ(DateFormatterLists::datesOfLocale(settingsIn(u"ja"_s)).size(), 4U);
}

TEST(DateFormatterLists, TheJapaneseCalendarIsReadLeniently)
{
    struct Row
    {
        QString locale;
        bool isLenient;
    };
    for (const Row &row : {Row{u"ja_JP"_s, false}, Row{u"ja_JP@calendar=japanese"_s, true}}) {
        const DateFormatterSettings settings = settingsIn(row.locale);
        EXPECT_EQ(settings.isJapaneseCalendar(), row.isLenient);
        const KTDateFormatterList dates = DateFormatterLists::datesOfLocale(settings);
        EXPECT_EQ(dates[0]->isLenient(), row.isLenient);
        EXPECT_EQ(dates[4]->isLenient(), row.isLenient);
        EXPECT_FALSE(DateFormatterLists::timesOfLocale(settings)[0]->isLenient());
    }
}

TEST(DateFormatterLists, DatesAreThePatternsOfTheOrderAndThenTheLocales)
{
    const DateFormatterSettings settings = settingsIn(u"de_DE"_s);
    const QStringList own = patternsOf(DateFormatterLists::datesOfLocale(settings));
    for (int order = DatePatterns::MonthDayYear; order <= DatePatterns::YearDayMonth; ++order)
        EXPECT_EQ(patternsOf(*DateFormatterLists::dates(settings, order)),
                  DatePatterns::dates(order) + own);
    for (const int unknown : {-1, 4})
        EXPECT_EQ(patternsOf(*DateFormatterLists::dates(settings, unknown)), own);
    EXPECT_EQ(patternsOf(*DateFormatterLists::times(settings)),
              DatePatterns::times() + patternsOf(DateFormatterLists::timesOfLocale(settings)));
}

TEST(DateFormatterLists, DatesWithTimesPutThePatternsTogether)
{
    const DateFormatterSettings settings = settingsIn(u"en_GB"_s);
    const auto times = DateFormatterLists::times(settings);
    const auto both = DateFormatterLists::datesWithTimes(settings, u"d/M"_s, times);
    QStringList expected = patternsOf(*times);
    for (QString &pattern : expected)
        pattern.prepend(u"d/M "_s);
    EXPECT_EQ(patternsOf(*both), expected);
}

TEST(DateFormatterLists, IsoIsOfTheGregorianCalendar)
{
    for (const QString &locale : {u"en_US"_s, u"ja_JP@calendar=japanese"_s, u"th_TH"_s}) {
        const auto iso = DateFormatterLists::iso(settingsIn(locale));
        EXPECT_EQ(patternsOf(*iso), DatePatterns::iso());
        for (size_t index = 0; index < iso->size(); ++index)
            EXPECT_EQ((*iso)[index]->calendar().calendarIdentifier(), NSGregorianCalendar);
    }
}

TEST(DateFormatterLists, AreSharedBySettingsThatAreTheSame)
{
    const DateFormatterSettings settings = settingsIn(u"en_KE"_s);
    const DateFormatterSettings same = settingsIn(u"en_KE"_s);
    const auto times = DateFormatterLists::times(settings);
    EXPECT_EQ(DateFormatterLists::dates(settings, 0), DateFormatterLists::dates(same, 0));
    EXPECT_EQ(times, DateFormatterLists::times(same));
    EXPECT_EQ(DateFormatterLists::iso(settings), DateFormatterLists::iso(same));
    EXPECT_EQ(DateFormatterLists::datesWithTimes(settings, u"d/M"_s, times),
              DateFormatterLists::datesWithTimes(same, u"d/M"_s, times));
    EXPECT_EQ(DateFormatterLists::dates(settings, 3)->madeCount(), 0U);
}

TEST(DateFormatterLists, AreNotSharedBySettingsThatDiffer)
{
    const DateFormatterSettings settings = settingsIn(u"en_UG"_s);
    const auto dates = DateFormatterLists::dates(settings, 0);
    EXPECT_NE(dates, DateFormatterLists::dates(settings, 1));
    EXPECT_NE(dates, DateFormatterLists::dates(settingsIn(u"en_TZ"_s), 0));
    EXPECT_NE(dates, DateFormatterLists::times(settings));
    DateFormatterSettings other = settings;
    other.today = settings.today.addDays(1);
    EXPECT_NE(dates, DateFormatterLists::dates(other, 0));
    other = settings;
    // The same day, but the one that texts leave out.
    other.defaultDate = settings.today;
    EXPECT_NE(dates, DateFormatterLists::dates(other, 0));
}

TEST(DateFormatterLists, KeepTheZoneThatTheyWereMadeIn)
{
    const EnvironmentGuard guard("TZ", "Asia/Kathmandu");
    const DateFormatterSettings settings = settingsIn(u"en_GH"_s);
    const auto before = DateFormatterLists::dates(settings, 0);
    qputenv("TZ", "Europe/Berlin");
    const auto after = DateFormatterLists::dates(settings, 0);
    EXPECT_NE(before, after);
    EXPECT_EQ((*before)[0]->timeZone().id(), "Asia/Kathmandu");
    EXPECT_EQ((*after)[0]->timeZone().id(), "Europe/Berlin");
}

TEST(DateFormatterLists, AreMadeAnewAndAtOnceWhileTheyAreLogged)
{
    useFreshHome();
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    const DateFormatterSettings settings = settingsIn(u"en_KE"_s);
    const auto times = DateFormatterLists::times(settings);
    EXPECT_EQ(times->madeCount(), times->size());
    EXPECT_NE(times, DateFormatterLists::times(settings));
    const auto both = DateFormatterLists::datesWithTimes(settings, u"d/M"_s, times);
    EXPECT_EQ(both->madeCount(), both->size());
    EXPECT_TRUE(log.messages().contains(u"adding date/time format: d/M h:m:s a"_s));
}

TEST(DateFormatterLists, DatesOfAStyleTakeFourDigitsOfTheYearBeforeATime)
{
    const QString text = u"5.3.2008. 17:30:15"_s;
    const auto isRead = [&](const QString &locale, const QString &datePattern) {
        const DateFormatterSettings settings = settingsIn(locale);
        const auto times = DateFormatterLists::times(settings);
        const auto both = DateFormatterLists::datesWithTimes(settings, datePattern, times);
        NSRange range{0, text.size()};
        return (*both)[2]->getObjectValue(nullptr, text, &range, nullptr);
    };
    NSDateFormatter style;
    style.setLocale(NSLocale(u"sr_RS"_s));
    style.setDateStyle(NSDateFormatterShortStyle);
    EXPECT_TRUE(isRead(u"sr_RS"_s, style.dateFormat()));
    EXPECT_FALSE(isRead(u"de_DE"_s, u"d.M.yy."_s)); // is none of its styles
}
