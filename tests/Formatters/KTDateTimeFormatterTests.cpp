#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/NSAssertionHandler>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSKeyValueObservation>
#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace testing_support;

// Settings and display; reading is tested in KTDateTimeFormatterReadingTests.cpp.

namespace {
/// 5 March 2008, 17:30:15 in New York.
QVariant someDate()
{
    return QDateTime(QDate(2008, 3, 5), QTime(22, 30, 15), KTPrivate::UTC);
}

QString displayPattern(const KTDateTimeFormatter &formatter)
{
    return formatter.displayFormatter()->dateFormat();
}
} // namespace

TEST(KTDateTimeFormatter, StartsWithShortDatesInTheUsersLocale)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(formatter.locale().localeIdentifier(), u"en_US");
    EXPECT_EQ(formatter.dateStyle(), 1U);
    EXPECT_EQ(formatter.timeStyle(), 0U);
    EXPECT_TRUE(formatter.displayDate());
    EXPECT_FALSE(formatter.displayTime());
    EXPECT_TRUE(formatter.displayYear());
    EXPECT_EQ(formatter.inputOrder(), 0);
    EXPECT_EQ(displayPattern(formatter), u"M/d/yyyy");
    EXPECT_EQ(formatter.stringForObjectValue(someDate()), u"3/5/2008");
}

TEST(KTDateTimeFormatter, RunsItsExample)
{
    KTDateTimeFormatter formatter;
    QVariant value;
    EXPECT_TRUE(formatter.getObjectValue(&value, u"March 5, 2008"_s));
    EXPECT_EQ(formatter.stringForObjectValue(value), u"3/5/2008");
    formatter.setDateStyle(NSDateFormatterLongStyle);
    EXPECT_EQ(formatter.stringForObjectValue(value), u"March 5, 2008");
    formatter.setDisplayYear(false);
    EXPECT_EQ(formatter.stringForObjectValue(value), u"March 5");
}

TEST(KTDateTimeFormatter, ShowsFourDigitsOfTheYear)
{
    const std::pair<QString, QString> patterns[] = {
        {u"en_US"_s, u"M/d/yyyy"_s},   {u"de_DE"_s, u"dd.MM.yyyy"_s},
        {u"en_GB"_s, u"dd/MM/yyyy"_s}, {u"sv_SE"_s, u"yyyy-MM-dd"_s},
        {u"ja_JP"_s, u"yyyy/MM/dd"_s}, {u"ja_JP@calendar=japanese"_s, u"GGGGGy/M/d"_s}};
    for (const auto &[locale, pattern] : patterns)
        EXPECT_EQ(displayPattern(*formatterIn<KTDateTimeFormatter>(locale)), pattern)
            << qPrintable(locale);
}

TEST(KTDateTimeFormatter, ShowsTheTimeBehindTheDate)
{
    KTDateTimeFormatter formatter;
    formatter.setDisplayTime(true);
    EXPECT_EQ(formatter.stringForObjectValue(someDate()), u"3/5/2008 5:30 PM");
    formatter.setTimeStyle(NSDateFormatterMediumStyle);
    EXPECT_EQ(formatter.stringForObjectValue(someDate()), u"3/5/2008 5:30:15 PM");
    formatter.setDisplayDate(false);
    EXPECT_EQ(formatter.stringForObjectValue(someDate()), u"5:30:15 PM");
}

TEST(KTDateTimeFormatter, LeavesTheYearOut)
{
    struct Row
    {
        const char16_t *locale;
        bool showsTime;
        const char16_t *pattern;
    };
    const Row rows[] = {{u"en_US", false, u"MMMM d"},     {u"en_US", true, u"MMMM d h:mm a"},
                        {u"en_GB", false, u"d MMMM"},     {u"de_DE", false, u"d.MMMM"},
                        {u"de_AT", false, u"d MMMM"},     {u"de_DE", true, u"d.MMMM HH:mm"},
                        {u"sv_SE", false, u"MMMM d"},     {u"ja_JP", false, u"M月d日"},
                        {u"ja_JP", true, u"M月d日 H:mm"}, {u"de_JP", false, u"d日M月"}};
    for (const Row &row : rows) {
        const auto formatter = formatterIn<KTDateTimeFormatter>(QString::fromUtf16(row.locale));
        formatter->setDisplayYear(false);
        formatter->setDisplayTime(row.showsTime);
        const QString pattern = QString::fromUtf16(row.pattern);
        EXPECT_EQ(displayPattern(*formatter), pattern)
            << qPrintable(formatter->locale().localeIdentifier());
        EXPECT_EQ(formatter->getMonthAndDayFormat(), pattern);
        formatter->setDisplayYear(true);
        EXPECT_EQ(formatter->getMonthAndDayFormat(), QString());
    }
}

TEST(KTDateTimeFormatter, MakesFormattersOfItsLocaleAndDefaultDate)
{
    struct Row
    {
        const char16_t *locale;
        uint dateStyle;
        uint timeStyle;
        const char16_t *pattern;
    };
    const Row rows[] = {
        {u"en_US", NSDateFormatterShortStyle, NSDateFormatterNoStyle, u"M/d/yy"},
        {u"en_US", NSDateFormatterNoStyle, NSDateFormatterShortStyle, u"h:mm a"},
        {u"en_US", NSDateFormatterShortStyle, NSDateFormatterShortStyle, u"M/d/yy h:mm a"},
        {u"de_DE", NSDateFormatterLongStyle, NSDateFormatterNoStyle, u"d. MMMM y"},
        {u"ja_JP", NSDateFormatterLongStyle, NSDateFormatterNoStyle, u"y年M月d日"},
    };
    for (const Row &row : rows) {
        const auto formatter = formatterIn<KTDateTimeFormatter>(QString::fromUtf16(row.locale));
        for (const bool isLenient : {false, true}) {
            const auto made =
                formatter->formatterWithDateStyle(row.dateStyle, row.timeStyle, isLenient);
            EXPECT_EQ(made->dateFormat(), row.pattern);
            EXPECT_EQ(made->isLenient(), isLenient);
            EXPECT_EQ(made->locale(), formatter->locale());
            EXPECT_EQ(made->defaultDate(), formatter->defaultDate());
            EXPECT_NE(made,
                      formatter->formatterWithDateStyle(row.dateStyle, row.timeStyle, isLenient));
        }
    }
}

TEST(KTDateTimeFormatter, ShowsDatesOnly)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(5), QString());
    EXPECT_EQ(formatter.stringForObjectValue(u"3/4/08"_s), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QVariant()), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QDateTime()), QString());
    EXPECT_FALSE(formatter.attributedStringForObjectValue(someDate()).has_value());
}

TEST(KTDateTimeFormatter, RaisesIfBothStylesAreMissing)
{
    KTDateTimeFormatter formatter;
    NSKeyValueCoding::setValue(&formatter, 0, kKTFieldOption_dateStyle);
    for (int attempt = 0; attempt < 2; ++attempt)
        standardErrorOf([&] {
            EXPECT_RAISES(formatter.stringForObjectValue(someDate()),
                          NSInternalInconsistencyException, u"date/time cannot both have NoStyle");
        });
    formatter.setTimeStyle(1);
    EXPECT_EQ(formatter.stringForObjectValue(someDate()), u"5:30 PM");
}

TEST(KTDateTimeFormatter, SetsStylesAndFlagsOnEachOther)
{
    KTDateTimeFormatter formatter;
    formatter.setDateStyle(0);
    EXPECT_FALSE(formatter.displayDate());
    formatter.setDateStyle(3);
    EXPECT_TRUE(formatter.displayDate());
    formatter.setTimeStyle(2);
    EXPECT_TRUE(formatter.displayTime()); // by its style, though no time was asked for
    formatter.setTimeStyle(0);
    EXPECT_FALSE(formatter.displayTime());
    formatter.setDisplayDate(false);
    EXPECT_EQ(formatter.dateStyle(), 0U);
    EXPECT_EQ(formatter.timeStyle(), 1U);
    formatter.setDisplayDate(true);
    EXPECT_EQ(formatter.dateStyle(), 0U); // a lost style does not come back
    formatter.setDisplayTime(false);
    EXPECT_EQ(formatter.dateStyle(), 1U);
    EXPECT_EQ(formatter.timeStyle(), 0U);
    formatter.setDisplayTime(true);
    EXPECT_EQ(formatter.timeStyle(), 1U);
    formatter.setTimeStyle(3);
    formatter.setDisplayTime(true);
    EXPECT_EQ(formatter.timeStyle(), 3U);
}

TEST(KTDateTimeFormatter, TellsObserversOfStylesThatFollow)
{
    KTDateTimeFormatter formatter;
    QSignalSpy timeStyle(&formatter, &KTDateTimeFormatter::timeStyleChanged);
    QSignalSpy dateStyle(&formatter, &KTDateTimeFormatter::dateStyleChanged);
    QSignalSpy displayDate(&formatter, &KTDateTimeFormatter::displayDateChanged);
    formatter.setDisplayDate(false);
    EXPECT_EQ(timeStyle.count(), 1);
    EXPECT_EQ(displayDate.count(), 1);
    formatter.setDisplayDate(false); // has a time style already
    EXPECT_EQ(timeStyle.count(), 1);
    formatter.setDisplayTime(false);
    EXPECT_EQ(dateStyle.count(), 1);
    EXPECT_EQ(timeStyle.count(), 1);
    formatter.setDisplayTime(true);
    EXPECT_EQ(timeStyle.count(), 2);
    NSKeyValueCoding::setValue(&formatter, 2, kKTFieldOption_timeStyle);
    EXPECT_EQ(timeStyle.count(), 3);
}

TEST(KTDateTimeFormatter, StylesThatFollowAreAnnouncedWithTheirOldValues)
{
    KTDateTimeFormatter formatter;
    QStringList told;
    const auto write = [&](QStringView key) {
        return [&told, key](const NSKeyValueChange &change) {
            told += (change.isPrior ? u"before " : u"") + key + u' ' +
                    QString::number(change.oldValue->toUInt()) + u'>' +
                    QString::number(change.newValue.value_or(QVariant()).toUInt());
        };
    };
    constexpr NSKeyValueObservingOptions All = NSKeyValueObservingOptionNew |
                                               NSKeyValueObservingOptionOld |
                                               NSKeyValueObservingOptionPrior;
    const NSKeyValueObservation time(&formatter, kKTFieldOption_timeStyle, All, write(u"time"));
    const NSKeyValueObservation date(&formatter, kKTFieldOption_dateStyle, All, write(u"date"));
    formatter.setDisplayDate(false);
    EXPECT_EQ(told, QStringList({u"before time 0>0"_s, u"time 0>1"_s}));
    told.clear();
    formatter.setDisplayTime(false);
    EXPECT_EQ(told, QStringList({u"before date 0>0"_s, u"date 0>1"_s}));
    told.clear();
    formatter.setDisplayTime(true);
    EXPECT_EQ(told, QStringList({u"before time 0>0"_s, u"time 0>1"_s}));
}

TEST(KTDateTimeFormatter, ListsThreeOptionsAndSetsTheOthersByKey)
{
    KTDateTimeFormatter formatter;
    const QVariantMap expected{{kKTFieldOption_dateStyle, 1U},
                               {kKTFieldOption_timeStyle, 0U},
                               {kKTFieldOption_displayYear, true}};
    EXPECT_EQ(formatter.options(), expected);
    NSKeyValueCoding::setValue(&formatter, true, kKTFieldOption_displayTime);
    EXPECT_EQ(formatter.timeStyle(), 1U);
    NSKeyValueCoding::setValue(&formatter, 2, kKTFieldOption_inputOrder);
    EXPECT_EQ(formatter.inputOrder(), 2);
    NSKeyValueCoding::setValue(&formatter, false, kKTFieldOption_displayDate);
    EXPECT_EQ(formatter.dateStyle(), 0U);
    KTDateTimeFormatter other;
    formatter.setDateStyle(4);
    formatter.setDisplayYear(false);
    other.setOptions(formatter.options());
    EXPECT_EQ(other.stringForObjectValue(someDate()), formatter.stringForObjectValue(someDate()));
}

TEST(KTDateTimeFormatter, KnowsTheOrderOfAPattern)
{
    const std::pair<const char16_t *, int> patterns[] = {{u"M/d/yy", 0},
                                                         {u"d.M.y", 1},
                                                         {u"yyyy-MM-dd", 2},
                                                         {u"yyyy/dd/MM", 3},
                                                         {u"EEEE, d. MMMM y", 1},
                                                         {u"'day' d 'Monat' M", 1},
                                                         {u"", 0},
                                                         {u"h:mm a", 0},
                                                         {u"d", 0},
                                                         {u"MMMM", 0},
                                                         {u"d y", 1},
                                                         {u"dy", 1},
                                                         {u"y d", 3},
                                                         {u"M y", 0},
                                                         {u"d'M'y", 1},
                                                         {u"''d''M", 1},
                                                         {u"'it''s M'd M", 1},
                                                         {u"'never closed d M", 0},
                                                         {u"LLLL d", 0},
                                                         {u"'a' 'M' d y", 1},
                                                         {u"y年M月d日", 2}};
    for (const auto &[pattern, order] : patterns)
        EXPECT_EQ(KTDateTimeFormatter::inputOrderForDateFormat(QString::fromUtf16(pattern)), order)
            << qPrintable(QString::fromUtf16(pattern));
}

TEST(KTDateTimeFormatter, TakesTheInputOrderFromTheLocale)
{
    const auto formatter = formatterIn<KTDateTimeFormatter>(u"de_DE"_s);
    EXPECT_EQ(formatter->inputOrder(), 0); // nothing was made yet
    formatter->stringForObjectValue(someDate());
    EXPECT_EQ(formatter->inputOrder(), 1);
    formatter->setInputOrder(3);
    EXPECT_EQ(formatter->inputOrder(), 3);
    EXPECT_EQ(formatter->dateFormats(), KTDateTimeFormatter::dateFormatsForDayMonthYear());
    EXPECT_EQ(formatter->inputOrder(), 1);
    EXPECT_EQ(formatterIn<KTDateTimeFormatter>(u"sv_SE"_s)->dateFormats(),
              KTDateTimeFormatter::dateFormatsForYearMonthDay());
    const KTDateTimeFormatter american;
    EXPECT_EQ(american.dateFormats(), KTDateTimeFormatter::dateFormatsForMonthDayYear());
}

TEST(KTDateTimeFormatter, HasFortyOnePatternsInEachOrder)
{
    const QList<QStringList> lists{KTDateTimeFormatter::dateFormatsForMonthDayYear(),
                                   KTDateTimeFormatter::dateFormatsForDayMonthYear(),
                                   KTDateTimeFormatter::dateFormatsForYearMonthDay(),
                                   KTDateTimeFormatter::dateFormatsForYearDayMonth()};
    QStringList sorted = lists.first();
    sorted.sort();
    for (QStringList list : lists) {
        EXPECT_EQ(list.size(), 41);
        list.sort();
        EXPECT_EQ(list, sorted);
    }
    EXPECT_EQ(lists[0].first(), u"M-d-yy");
    EXPECT_EQ(lists[0].last(), u"yyyy/d/M");
    EXPECT_EQ(lists[1].mid(0, 10).join(u' '),
              u"d-M-yy d/M/yy d.M.yy d-M-yyyy d/M/yyyy d.M.yyyy d-M d/M d.M d MMM yy");
    EXPECT_EQ(lists[1][13], u"d MMM");
    EXPECT_EQ(lists[2].mid(5, 2).join(u' '), u"yyyy/M/d yy.d.M");
    EXPECT_EQ(lists[3].mid(11, 2).join(u' '), u"yyyy/M/d d-M-yy");
    EXPECT_FALSE(sorted.contains(u"d MMMM"_s));
    EXPECT_EQ(KTDateTimeFormatter::timeFormats().join(u'|'),
              u"h:m:s a|h:m:sa|k:m:s|h:m a|h:ma|k:m|h a|ha");
}

TEST(KTDateTimeFormatter, TriesThePatternsThenTheLocalesOwn)
{
    const KTDateTimeFormatter formatter;
    const KTDateFormatterList &dates = formatter.strictDateFormatters();
    ASSERT_EQ(dates.size(), 45U);
    for (size_t index = 0; index < 41; ++index)
        EXPECT_EQ(dates[index]->dateFormat(), formatter.dateFormats()[qsizetype(index)]);
    EXPECT_EQ(dates[41]->dateFormat(), u"M/d/yy");
    EXPECT_EQ(dates[44]->dateFormat(), u"EEEE, MMMM d, y");
    EXPECT_FALSE(dates[44]->isLenient());
    EXPECT_EQ(dates[0]->defaultDate(), formatter.today());
    const KTDateFormatterList &times = formatter.strictTimeFormatters();
    ASSERT_EQ(times.size(), 12U);
    EXPECT_EQ(times[7]->dateFormat(), u"ha");
    EXPECT_EQ(times[8]->dateFormat(), u"h:mm a");
    const KTDateFormatterList &iso = formatter.strictIsoFormatters();
    ASSERT_EQ(iso.size(), 3U);
    EXPECT_EQ(iso[0]->dateFormat(), u"yyyy-MM-dd'T'HH:mm:ss");
    EXPECT_EQ(iso[2]->calendar().calendarIdentifier(), NSGregorianCalendar);
    const KTDateFormatterList &both = formatter.strictFormattersForDateFormat(u"M/d/yy"_s);
    ASSERT_EQ(both.size(), 12U);
    EXPECT_EQ(both[3]->dateFormat(), u"M/d/yy h:m a");
    EXPECT_EQ(&both, &formatter.strictFormattersForDateFormat(u"M/d/yy"_s));
}

TEST(KTDateTimeFormatter, TriesJapaneseDatesInJapan)
{
    const auto formatter = formatterIn<KTDateTimeFormatter>(u"ja_JP@calendar=japanese"_s);
    const KTDateFormatterList own = formatter->localeStrictDateFormatters();
    ASSERT_EQ(own.size(), 6U);
    EXPECT_TRUE(own[0]->isLenient());
    EXPECT_EQ(own[4]->dateFormat(), u"M月d日");
    EXPECT_EQ(own[5]->dateFormat(), u"d日M月");
    EXPECT_EQ(own[5]->defaultDate(), formatter->today());
    EXPECT_FALSE(own[0]->defaultDate().isValid());
    EXPECT_TRUE(formatter->strictFormattersForDateFormat(u"M/d"_s)[0]->isLenient());
    EXPECT_FALSE(formatter->localeStrictTimeFormatters()[0]->isLenient());
    EXPECT_FALSE(
        formatterIn<KTDateTimeFormatter>(u"ja_JP"_s)->localeStrictDateFormatters()[0]->isLenient());
}

TEST(KTDateTimeFormatter, FillsInTodayAtNoonButNotInJapan)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(wallTime(formatter.today()), todayText() + u"T12:00:00");
    EXPECT_EQ(formatter.defaultDate(), formatter.today());
    const auto japanese = formatterIn<KTDateTimeFormatter>(u"ja_JP"_s);
    EXPECT_FALSE(japanese->defaultDate().isValid());
    EXPECT_TRUE(japanese->today().isValid());
}

TEST(KTDateTimeFormatter, ReadsNaturalLanguageInTheOrderOfTheLocale)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(formatter.formatStringForInputOrder(0), u"%m/%d/%y");
    EXPECT_EQ(formatter.formatStringForInputOrder(1), u"%d/%m/%y");
    EXPECT_EQ(formatter.formatStringForInputOrder(2), u"%y/%m/%d");
    EXPECT_EQ(formatter.formatStringForInputOrder(3), u"%y/%d/%m");
    EXPECT_EQ(formatter.formatStringForInputOrder(-1), u"%m/%d/%y");
    const auto german = formatterIn<KTDateTimeFormatter>(u"de_DE"_s);
    EXPECT_EQ(german->lenientFormatter()->dateFormat(), u"%d/%m/%y");
    german->setDisplayTime(true);
    EXPECT_EQ(german->lenientFormatter()->dateFormat(), u"%d/%m/%y %I:%M:%S %p");
    german->setDisplayDate(false);
    EXPECT_EQ(german->lenientFormatter()->dateFormat(), u"%I:%M:%S %p");
    EXPECT_TRUE(german->lenientFormatter()->allowsNaturalLanguage());
    EXPECT_EQ(german->lenientFormatter()->defaultDate(), german->today());
}

TEST(KTDateTimeFormatter, MakesFormattersAnewAfterEachSetting)
{
    KTDateTimeFormatter formatter;
    const auto isMadeAnew = [&](const std::function<void()> &change) {
        QVariant value;
        EXPECT_TRUE(formatter.getObjectValue(&value, u"3/4/08"_s));
        EXPECT_NE(formatter.mostRecentFormatter(), nullptr);
        change();
        return formatter.mostRecentFormatter() == nullptr;
    };
    EXPECT_TRUE(isMadeAnew([&] { formatter.setLocale(NSLocale(u"en_US"_s)); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.setDateStyle(2); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.setTimeStyle(1); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.setDisplayDate(true); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.setDisplayTime(true); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.setDisplayYear(true); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.setInputOrder(1); }));
    EXPECT_TRUE(isMadeAnew([&] { formatter.clearFormatters(); }));
}

TEST(KTDateTimeFormatter, LogsWhatItMakes)
{
    useFreshHome();
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    KTDateTimeFormatter formatter;
    formatter.stringForObjectValue(someDate());
    formatter.lenientFormatter();
    const QStringList expected{
        u"KTDateTimeFormatter creating _displayFormatter, showDate:1, showTime:0"_s,
        u"_displayFormatter, format=M/d/yy"_s,
        u"KTDateTimeFormatter stringForObjectValue returns:3/5/2008, value:"_s +
            NSObject::description(someDate()),
        u"KTDateTimeFormatter creating _lenientFormatter, format=%m/%d/%y"_s,
        u"KTDateTimeFormatter _lenientFormatter: showDate=1, showTime=0"_s};
    EXPECT_EQ(log.messages(), expected);
}
