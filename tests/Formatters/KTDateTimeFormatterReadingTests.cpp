#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/NSLocale>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// What a text reads as in the machine's zone, "NO" if nothing reads it.
QString reading(const KTDateTimeFormatter &formatter, const QString &text)
{
    QVariant value = 7;
    const bool isRead = formatter.getObjectValue(&value, text);
    EXPECT_EQ(isRead, value.isValid()) << qPrintable(text);
    return wallTime(value.toDateTime());
}

QString reading(const KTDateTimeFormatter &formatter, const char16_t *text)
{
    return reading(formatter, QString::fromUtf16(text));
}

/// The pattern that took all of the last text.
QString winner(const KTDateTimeFormatter &formatter)
{
    const NSDateFormatter *recent = formatter.mostRecentFormatter();
    return recent ? recent->dateFormat() : QString();
}

/// A formatter that reads in another order than its locale's.
std::unique_ptr<KTDateTimeFormatter> formatterWithOrder(int order)
{
    const char *const locales[] = {"en_US", "en_GB", "sv_SE", "en_US"};
    return formatterIn<KTDateTimeFormatter>(QString::fromLatin1(locales[order]));
}

struct Row
{
    const char16_t *text;
    const char16_t *value;   ///< "T…" is today, "-…" this year
    const char16_t *pattern; ///< of the formatter that took all of it; nullptr if none did
};

QString expectedValue(const QString &value)
{
    if (value.startsWith(u'T'))
        return todayText() + value;
    return value.startsWith(u'-') ? QString(todayText().left(4) + value) : value;
}

void expectRows(const QString &locale, const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
        const QString text = QString::fromUtf16(row.text);
        EXPECT_EQ(reading(*formatter, text), expectedValue(QString::fromUtf16(row.value)))
            << qPrintable(locale + u' ' + text);
        const QString pattern = row.pattern ? QString::fromUtf16(row.pattern) : QString();
        EXPECT_EQ(winner(*formatter), pattern) << qPrintable(locale + u' ' + text);
    }
}

/// One pattern for "yy" and "yyyy".
QString withAnyYear(QString pattern)
{
    return pattern.replace(QRegularExpression(u"y+"_s), u"y"_s);
}

/// What is wanted otherwise than the table says. "yy" takes two digits here and "yyyy" four, so
/// that nothing is read in the years 1 to 99 any more; "ha" takes a bare hour; English has "Sept";
/// without a default date, 1/1/50 is within the hundred years; the table writes the year 8 as "8".
QString wantedOtherwise(const QString &locale, const QString &text)
{
    static const QHash<QString, QString> everywhere{
        {u"1"_s, u"T01:00:00"_s},  {u"12"_s, u"T12:00:00"_s}, {u"5"_s, u"T05:00:00"_s},
        {u"5:"_s, u"T05:00:00"_s}, {u"2/29/07"_s, u"NO"_s},   {u"2/30/08"_s, u"NO"_s},
        {u"3/4/8"_s, u"NO"_s},     {u"3/4/108"_s, u"NO"_s}};
    static const QHash<QString, QString> inLocales{
        {u"en_US 08/3/4"_s, u"2008-03-04T12:00:00"_s},
        {u"en_US 3/4/0008"_s, u"0008-03-04T12:00:00"_s},
        {u"en_US Sept 4, 2008"_s, u"2008-09-04T12:00:00"_s},
        {u"de_DE 08/3/4"_s, u"2008-04-03T12:00:00"_s},
        {u"de_DE 2/29/08"_s, u"2008-02-29T12:00:00"_s},
        {u"de_DE 20/3/4"_s, u"2020-04-03T12:00:00"_s},
        {u"de_DE 20/3/4 17:30"_s, u"2020-04-03T17:30:00"_s},
        {u"de_DE 3/4/0008"_s, u"0008-04-03T12:00:00"_s},
        {u"de_DE 4/13/08"_s, u"2008-04-13T12:00:00"_s},
        {u"ja_JP  3/4/08"_s, u"2008-03-04T00:00:00"_s},
        {u"ja_JP 1/1/50"_s, u"1950-01-01T00:00:00"_s},
        {u"ja_JP 2/29/08"_s, u"2008-02-29T00:00:00"_s},
        {u"ja_JP 3-4-08"_s, u"2008-03-04T00:00:00"_s},
        {u"ja_JP 3.4.08"_s, u"2008-03-04T00:00:00"_s},
        {u"ja_JP 3/ 4/08"_s, u"2008-03-04T00:00:00"_s},
        {u"ja_JP 3/4/0008"_s, u"0008-03-04T00:00:00"_s},
        {u"ja_JP 3/4/08"_s, u"2008-03-04T00:00:00"_s},
        {u"ja_JP 3/4/08 17:30"_s, u"2008-03-04T17:30:00"_s},
        {u"ja_JP 4.3.08"_s, u"2008-04-03T00:00:00"_s},
        {u"ja_JP 4.3.08 17:30"_s, u"2008-04-03T17:30:00"_s},
        {u"ja_JP 4/13/08"_s, u"2008-04-13T00:00:00"_s},
        {u"ja_JP ３/４/０８"_s, u"2008-03-04T00:00:00"_s}};
    const QString known = everywhere.value(text);
    return known.isNull() ? inLocales.value(locale + u' ' + text) : known;
}

/// A value of the table, made on 20 November 2026, as of today.
QString asOfToday(const QString &value, const QString &pattern)
{
    if (value.startsWith(u"2026-11-20T"))
        return todayText() + value.mid(10);
    const bool isThisYear = value.startsWith(u"2026-") && !pattern.contains(u'y');
    return !isThisYear ? value : QString(todayText().left(4) + value.mid(4));
}
} // namespace

TEST(KTDateTimeFormatterReading, ReadsAsTheTableSays)
{
    int cells = 0;
    int otherwise = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/date_cascade.jsonl"_s)) {
        const bool isBerlin = row[u"ctx"].toString() == u"berlin";
        const EnvironmentGuard zone("TZ", isBerlin ? "Europe/Berlin" : "America/New_York");
        const QString locale = row[u"locale"].toString();
        const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
        const QJsonObject texts = row[u"cells"].toObject();
        for (auto it = texts.begin(); it != texts.end(); ++it, ++cells) {
            formatter->clearFormatters();
            const QString found = reading(*formatter, it.key());
            EXPECT_EQ(formatter->inputOrder(), row[u"inputOrder"].toInt());
            const QString wanted = wantedOtherwise(locale, it.key());
            const QString pattern = it.value()[1].toString();
            otherwise += !wanted.isNull();
            if (!wanted.isNull()) {
                EXPECT_EQ(found, expectedValue(wanted)) << qPrintable(locale + u' ' + it.key());
            } else if (it.value().isNull()) {
                EXPECT_EQ(found, u"NO") << qPrintable(locale + u' ' + it.key());
            } else {
                EXPECT_EQ(found, asOfToday(it.value()[3].toString(), pattern))
                    << qPrintable(locale + u' ' + it.key());
                const bool isIso = it.value()[0].toString() == u"iso";
                EXPECT_EQ(withAnyYear(winner(*formatter)), isIso ? QString() : withAnyYear(pattern))
                    << qPrintable(locale + u' ' + it.key());
            }
        }
    }
    EXPECT_EQ(cells, 1010);
    EXPECT_EQ(otherwise, 71);
}

TEST(KTDateTimeFormatterReading, ReadsDatesAndTimesInAmericanOrder)
{
    expectRows(u"en_US"_s,
               {{u"3/4/08", u"2008-03-04T12:00:00", u"M/d/yy"},
                {u"3-4-2008", u"2008-03-04T12:00:00", u"M-d-yyyy"},
                {u"3.4", u"-03-04T12:00:00", u"M.d"},
                {u"13/4/08", u"2013-04-08T12:00:00", u"yy/M/d"},
                {u"31/12/99", u"1999-12-31T12:00:00", u"d/M/yy"},
                {u"2008/03/05", u"2008-03-05T12:00:00", u"yyyy/M/d"},
                {u"2008/3/5", u"2008-03-05T12:00:00", u"yyyy/M/d"},
                {u"Mar 5, 2008", u"2008-03-05T12:00:00", u"MMM d, yyyy"},
                {u"march 5, 2008", u"2008-03-05T12:00:00", u"MMM d, yyyy"},
                {u"5 March", u"-03-05T12:00:00", u"d MMM"},
                {u"Sept 5, 2008", u"2008-09-05T12:00:00", u"MMM d, yyyy"},
                {u"Wednesday, March 5, 2008", u"2008-03-05T12:00:00", u"EEEE, MMMM d, y"},
                {u"3/4/08 5:30 PM", u"2008-03-04T17:30:00", u"M/d/yy h:m a"},
                {u"3/4/08 5pm", u"2008-03-04T17:00:00", u"M/d/yy ha"},
                {u"3/4/08 17:30:15", u"2008-03-04T17:30:15", u"M/d/yy k:m:s"},
                {u"5pm", u"T17:00:00", u"ha"},
                {u"5:30pm", u"T17:30:00", u"h:ma"},
                {u"5:30 PM", u"T17:30:00", u"h:m a"},
                {u"5:30\u202FPM", u"T17:30:00", u"h:m a"},
                {u"17:30", u"T17:30:00", u"k:m"},
                {u"9:05", u"T09:05:00", u"k:m"},
                {u"5", u"T05:00:00", u"ha"},
                {u"5:", u"T05:00:00", u"ha"},
                {u"12", u"T12:00:00", u"ha"},
                {u" 3/4/08", u"2008-03-04T12:00:00", u"M/d/yy"},
                {u"３/４/０８", u"2008-03-04T12:00:00", u"M/d/yy"},
                {u"3/4/08 ", u"NO", nullptr},
                {u"2/30/08", u"NO", nullptr},
                {u"0/0/0", u"NO", nullptr},
                {u"99/99/9999", u"NO", nullptr},
                {u"Monday", u"NO", nullptr},
                {u"tomorrow", u"NO", nullptr},
                {u"17", u"NO", nullptr},
                {u"25:00", u"NO", nullptr},
                {u"3/4/08x", u"NO", nullptr}});
}

TEST(KTDateTimeFormatterReading, ReadsInTheOrderOfTheLocale)
{
    const QString text = u"3/4/08"_s;
    EXPECT_EQ(reading(*formatterWithOrder(0), text), u"2008-03-04T12:00:00");
    EXPECT_EQ(reading(*formatterWithOrder(1), text), u"2008-04-03T12:00:00");
    expectRows(u"de_DE"_s, {{u"5.3.2008 17:30", u"2008-03-05T17:30:00", u"d.M.yyyy k:m"},
                            {u"5. März 2008", u"2008-03-05T12:00:00", u"d. MMMM y"},
                            {u"2008/03/05", u"2008-05-03T12:00:00", u"yyyy/d/M"}});
    expectRows(u"ja_JP"_s, {{u"3月5日", u"-03-05T12:00:00", u"M月d日"},
                            {u"2008年3月5日", u"2008-03-05T00:00:00", u"y年M月d日"},
                            {u"3/4", u"2000-03-04T00:00:00", u"M/d"}});
    expectRows(u"ja_JP@calendar=japanese"_s,
               {{u"平成20年3月5日", u"2008-03-05T00:00:00", u"Gy年M月d日"}});
    expectRows(u"ar_EG"_s, {{u"٥/٣/٢٠٠٨", u"2008-03-05T12:00:00", u"d/M/yyyy"}});
}

// The texts of docs/decisions/typed-dates.md.
TEST(KTDateTimeFormatterReading, KeepsToItsPatterns)
{
    expectRows(u"en_US"_s, {{u"2008-03-05T14:30:00Z", u"2008-03-05T14:30:00", nullptr},
                            {u"2008-03-05T14:30:00+02:00", u"2008-03-05T14:30:00", nullptr},
                            {u"2008-03-05T14:30", u"2008-03-05T12:00:00", nullptr},
                            {u"2008-03-05 5:30 PM", u"2008-03-05T12:00:00", nullptr},
                            {u"24:00", u"T00:00:00", u"k:m"},
                            {u"24:30", u"T00:30:00", u"k:m"},
                            {u"0pm", u"T12:00:00", u"ha"}});
    expectRows(u"ja_JP"_s, {{u"3月5日 17:30", u"2000-03-05T17:30:00", u"M月d日 k:m"},
                            {u"2026/13/1", u"2026-01-13T00:00:00", u"yyyy/d/M"}});
    expectRows(u"en_GB"_s, {{u"2008/03/05", u"2008-05-03T12:00:00", u"yyyy/d/M"},
                            {u"30/2/08", u"2030-08-02T12:00:00", u"yy/d/M"}});
    expectRows(u"ar_EG"_s, {{u"٢٠٠٨-٠٣-٠٥", u"2008-05-03T12:00:00", u"yyyy-d-M"}});
    const std::pair<const char16_t *, const char16_t *> refused[] = {
        {u"en_US", u"3/4/08, 5:30 PM|March 5 2008|Mar. 5, 2008|March 5th, 2008|Wed 3/5/08|5:30 p.m."
                   u"|tomorrow|noon|5.|13|17|0"},
        {u"de_DE", u"5.3.|17 Uhr|17:30 Uhr|5.3.2008 17.30"},
        {u"fr_FR", u"17h30|1er mars|5 mars 2008 à 17:30"},
        {u"zh_CN", u"3月5日|下午5:30"},
        {u"ja_JP", u"午後5:30|17時30分|平成20年3月5日"},
        {u"ko_KR", u"오후5:30|3월 5일"},
        {u"ru_RU", u"март 2008"},
        {u"th_TH", u"17:30 น."},
        {u"es_ES", u"5 de marzo"}};
    for (const auto &[locale, texts] : refused) {
        for (const QString &text : QString::fromUtf16(texts).split(u'|'))
            EXPECT_EQ(reading(*formatterIn<KTDateTimeFormatter>(QString::fromUtf16(locale)), text),
                      u"NO")
                << qPrintable(text);
    }
}

TEST(KTDateTimeFormatterReading, ReadsIsoDatesEverywhere)
{
    const QStringList locales{u"en_US"_s, u"de_DE"_s, u"sv_SE"_s, u"ar_EG"_s,
                              u"th_TH"_s, u"fa_IR"_s, u"he_IL"_s, u"hi_IN"_s};
    for (const QString &locale : locales)
        expectRows(locale, {{u"2008-03-05T14:30:00", u"2008-03-05T14:30:00", nullptr},
                            {u"2008-03-05 14:30:00", u"2008-03-05T14:30:00", nullptr},
                            {u"2008-03-05", u"2008-03-05T12:00:00", nullptr},
                            {u"2008-03-05 14:30", u"2008-03-05T12:00:00", nullptr}});
}

TEST(KTDateTimeFormatterReading, ReadsNothingFromNothing)
{
    const KTDateTimeFormatter formatter;
    for (const char16_t *text : {u"", u"   ", u"\t\n", u"\u00A0"}) {
        QVariant value = 7;
        QString error = u"before"_s;
        EXPECT_FALSE(formatter.getObjectValue(&value, QString::fromUtf16(text), &error));
        EXPECT_FALSE(value.isValid());
        EXPECT_EQ(error, u"before");
    }
    EXPECT_FALSE(formatter.getObjectValue(nullptr, QString()));
    EXPECT_TRUE(formatter.getObjectValue(nullptr, u"3/4/08"_s));
}

TEST(KTDateTimeFormatterReading, RemembersTheFormatterThatTookAll)
{
    const KTDateTimeFormatter formatter;
    reading(formatter, u"3/4/08 5:30 PM");
    const NSDateFormatter *const recent = formatter.mostRecentFormatter();
    EXPECT_EQ(winner(formatter), u"M/d/yy h:m a");
    EXPECT_EQ(reading(formatter, u"no date"), u"NO");
    EXPECT_EQ(formatter.mostRecentFormatter(), recent); // a failure leaves it
    useFreshHome();
    {
        const KTLogCapture log(kLog_FormattersDateTimes, 4);
        EXPECT_EQ(reading(formatter, u"12/31/09 11:05 AM"), u"2009-12-31T11:05:00");
        EXPECT_EQ(log.messages(),
                  QStringList{u"using _mostRecentFormatter, format: M/d/yy h:m a"_s});
    }
    EXPECT_EQ(reading(formatter, u"2008-03-05"), u"2008-03-05T12:00:00");
    EXPECT_EQ(formatter.mostRecentFormatter(), nullptr); // ISO forgets it
}

TEST(KTDateTimeFormatterReading, PrefersTheMostRecentFormatter)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(reading(formatter, u"31/12/99"), u"1999-12-31T12:00:00");
    EXPECT_EQ(reading(formatter, u"3/4/08"), u"2008-04-03T12:00:00"); // as days first
    EXPECT_EQ(reading(formatter, u"3/14/08"), u"2008-03-14T12:00:00");
}

TEST(KTDateTimeFormatterReading, AcceptsAPartOnlyFromTheLastAttempt)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(reading(formatter, u"5:30:15 PM Eastern Standard Time x"),
              todayText() + u"T17:30:15");
    EXPECT_EQ(formatter.mostRecentFormatter(), nullptr);
    EXPECT_EQ(reading(formatter, u"5:30:15 PM x"), u"NO");
    EXPECT_EQ(reading(formatter, u"3/4/08 x"), u"NO");
}

TEST(KTDateTimeFormatterReading, ReadsTimesThatSummerTimeSkips)
{
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(reading(formatter, u"3/9/08 2:30 AM"), u"2008-03-09T03:30:00");
    EXPECT_EQ(reading(formatter, u"2008-03-09T02:30:00"), u"2008-03-09T03:30:00");
    EXPECT_EQ(reading(formatter, u"11/2/08 1:30 AM").mid(11), u"01:30:00"); // twice that day
}

TEST(KTDateTimeFormatterReading, ReadsBareHoursOnTheDefaultDay)
{
    const KTDateTimeFormatter formatter;
    for (int hour = 1; hour <= 12; ++hour) {
        const QString expected = todayText() + u"T%1:00:00"_s.arg(hour, 2, 10, QLatin1Char('0'));
        EXPECT_EQ(reading(formatter, QString::number(hour)), expected);
        EXPECT_EQ(reading(formatter, QString::number(hour) + u':'), expected);
        EXPECT_EQ(reading(formatter, QString(u' ' + QString::number(hour))), expected);
    }
    for (const char16_t *text : {u"0", u"13", u"5 ", u"5.", u"005", u"-5"})
        EXPECT_EQ(reading(formatter, text), u"NO") << qPrintable(QString::fromUtf16(text));
}

TEST(KTDateTimeFormatterReading, ReadsBareHoursInTheDigitsOfTheLocale)
{
    const std::pair<QString, QString> texts[] = {{u"ar_EG"_s, u"٥"_s},   {u"fa_IR"_s, u"۵"_s},
                                                 {u"ja_JP"_s, u"５"_s},  {u"hi_IN"_s, u"५"_s},
                                                 {u"fa_IR"_s, u" ۵:"_s}, {u"en_US"_s, u"٥"_s}};
    for (const auto &[locale, text] : texts) {
        const QString time = reading(*formatterIn<KTDateTimeFormatter>(locale), text);
        EXPECT_EQ(time.mid(10), u"T05:00:00") << qPrintable(locale + u' ' + text);
    }
    const KTDateTimeFormatter formatter;
    EXPECT_EQ(reading(formatter, u"١٢"), todayText() + u"T12:00:00");
    for (const char16_t *text : {u"١٣", u"٠", u"٠٠٥", u"٥.", u"٥x", u"-٥"})
        EXPECT_EQ(reading(formatter, text), u"NO") << qPrintable(QString::fromUtf16(text));
}

TEST(KTDateTimeFormatterReading, ReadsTheYearThatItShowsWhereAPointFollows)
{
    for (const QString &locale : {u"sr_RS"_s, u"sr_Latn_RS"_s, u"sr_Cyrl_BA"_s, u"hr_BA"_s,
                                  u"bs_Cyrl_BA"_s, u"hr_HR"_s, u"bs_BA"_s}) {
        const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
        for (const bool showsTime : {false, true}) {
            formatter->setDisplayTime(showsTime);
            const QString wanted = showsTime ? u"2008-03-05T17:30:00"_s : u"2008-03-05T12:00:00"_s;
            const QDateTime date(QDate(2008, 3, 5), QTime(22, 30), KTPrivate::UTC);
            const QString shown = formatter->stringForObjectValue(date);
            EXPECT_EQ(reading(*formatter, shown), wanted) << qPrintable(locale + u' ' + shown);
        }
    }
    // By whichever pattern: "d.M.yy." in CLDR 42, "d. M. y." in CLDR 46.
    const std::pair<const char16_t *, const char16_t *> typed[] = {
        {u"5.3.2008.", u"2008-03-05T12:00:00"},       {u"5. 3. 2008.", u"2008-03-05T12:00:00"},
        {u"5.3.08.", u"2008-03-05T12:00:00"},         {u"5.3.2008", u"2008-03-05T12:00:00"},
        {u"5.3.2008. 17:30", u"2008-03-05T17:30:00"}, {u"5.3.8.", u"NO"}};
    for (const auto &[text, value] : typed)
        EXPECT_EQ(reading(*formatterIn<KTDateTimeFormatter>(u"sr_RS"_s), QString::fromUtf16(text)),
                  QString::fromUtf16(value))
            << qPrintable(QString::fromUtf16(text));
}

TEST(KTDateTimeFormatterReading, ReadsWhatEveryLocaleShows)
{
    const QDateTime date(QDate(2014, 8, 24), QTime(16, 0), KTPrivate::UTC);
    for (const QString &locale : NSLocale::availableLocaleIdentifiers()) {
        const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
        for (const uint style : {1U, 2U, 3U, 4U}) {
            formatter->setDateStyle(style);
            const QString shown = formatter->stringForObjectValue(date);
            EXPECT_EQ(reading(*formatter, shown).left(10), u"2014-08-24")
                << qPrintable(locale + u' ' + shown);
        }
    }
}

TEST(KTDateTimeFormatterReading, ReadsEarlyDaysAsTheyAreTyped)
{
    expectRows(u"en_US"_s, {{u"1/1/1500", u"1500-01-01T12:00:00", u"M/d/yyyy"},
                            {u"10/4/1582", u"1582-10-04T12:00:00", u"M/d/yyyy"},
                            {u"10/10/1582", u"1582-10-10T12:00:00", u"M/d/yyyy"},
                            {u"2/29/1500", u"NO", nullptr},
                            {u"3/4/0008", u"0008-03-04T12:00:00", u"M/d/yyyy"}});
    const KTDateTimeFormatter formatter;
    const QDateTime date(QDate(1582, 10, 10), QTime(17, 0), KTPrivate::UTC);
    EXPECT_EQ(formatter.stringForObjectValue(date), u"10/10/1582");
}

TEST(KTDateTimeFormatterReading, MakesPlainDatesOfCalendarDates)
{
    useFreshHome();
    const auto formatter = formatterIn<KTDateTimeFormatter>(u"en_US"_s);
    formatter->lenientFormatter()->setGeneratesCalendarDates(true);
    formatter->lenientFormatter()->setTimeZone(QTimeZone("Asia/Kathmandu"));
    formatter->displayFormatter();
    QVariant value;
    {
        const KTLogCapture log(kLog_FormattersDateTimes, 4);
        EXPECT_TRUE(formatter->getLenientDateValue(&value, u"march 5, 2008 17:30:15"_s));
        const QStringList messages = log.messages();
        ASSERT_EQ(messages.size(), 3);
        EXPECT_TRUE(messages[1].contains(u"getObjectValue forString:march 5, 2008 17:30:15"));
        EXPECT_EQ(messages[2], u"after NSCalendar conversion, value:3/5/2008");
    }
    // The day and clock of its zone, in the user's.
    EXPECT_EQ(wallTime(value.toDateTime()), u"2008-03-05T17:30:15");
    EXPECT_EQ(value.toDateTime().timeSpec(), Qt::UTC);
}

TEST(KTDateTimeFormatterReading, CountsYearsOfCalendarDatesInTheLocalesCalendar)
{
    // Deliberate: what is 2008 after Christ becomes 2008 of the Buddhist era.
    const auto formatter = formatterIn<KTDateTimeFormatter>(u"th_TH"_s);
    formatter->lenientFormatter()->setGeneratesCalendarDates(true);
    QVariant value;
    ASSERT_TRUE(formatter->getLenientDateValue(&value, u"5/3/2008"_s));
    EXPECT_EQ(wallTime(value.toDateTime()), u"1465-03-05T12:00:00");
}

TEST(KTDateTimeFormatterReading, ReadsLenientlyWhenAsked)
{
    const KTDateTimeFormatter formatter;
    QVariant value;
    QString error;
    EXPECT_TRUE(formatter.getLenientDateValue(&value, u"today"_s, &error));
    EXPECT_EQ(wallTime(value.toDateTime()), todayText() + u"T12:00:00");
    // A failure leaves the caller's value.
    EXPECT_FALSE(formatter.getLenientDateValue(&value, u"a cow"_s, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(wallTime(value.toDateTime()), todayText() + u"T12:00:00");
    EXPECT_FALSE(formatter.getLenientDateValue(nullptr, u"a cow"_s));
}

TEST(KTDateTimeFormatterReading, LogsEveryAttempt)
{
    useFreshHome();
    const KTDateTimeFormatter formatter;
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    reading(formatter, u"3/4/08 5pm");
    const QStringList messages = log.messages();
    const auto isInOrder = [&](const QStringList &parts) {
        qsizetype at = 0;
        for (const QString &part : parts) {
            at = messages.indexOf(part, at);
            if (at < 0)
                return false;
            ++at;
        }
        return true;
    };
    EXPECT_TRUE(
        isInOrder({u"KTDateTimeFormatter creating formatter, format=M-d-yy"_s,
                   u"KTDateTimeFormatter creating date/time formatter, format=EEEE, MMMM d, y"_s,
                   u"parsing date 3/4/08 5pm using format: M-d-yy"_s,
                   u"parsing date 3/4/08 5pm using format: M/d/yy"_s, u"date matches"_s,
                   u"adding date/time format: M/d/yy h:m:s a"_s,
                   u"KTDateTimeFormatter creating formatter, format=M/d/yy h:m:s a"_s,
                   u"parsing date 3/4/08 5pm using format: M/d/yy h:m:s a"_s,
                   u"parsing date 3/4/08 5pm using format: M/d/yy ha"_s, u"date/time matches"_s,
                   u"exact match (date/time)"_s}));
    EXPECT_EQ(messages.filter(u"got strict date/time formatters: "_s).size(), 1);
    EXPECT_EQ(messages.filter(u"parsing time"_s).size(), 0);
}

TEST(KTDateTimeFormatterReading, LogsTheFormattersOfEachField)
{
    useFreshHome();
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    const auto countOfMade = [&](const KTDateTimeFormatter &formatter) {
        const auto count = [&] { return log.messages().filter(u"creating formatter"_s).size(); };
        const qsizetype before = count();
        reading(formatter, u"5:30 PM");
        return count() - before;
    };
    const KTDateTimeFormatter first;
    const KTDateTimeFormatter second;
    const qsizetype made = countOfMade(first);
    EXPECT_GT(made, 40);
    EXPECT_EQ(countOfMade(second), made);
}

TEST(KTDateTimeFormatterReading, LogsBareHours)
{
    useFreshHome();
    const KTDateTimeFormatter formatter;
    reading(formatter, u"5"); // makes what it needs
    const KTLogCapture log(kLog_FormattersDateTimes, 4);
    reading(formatter, u"6");
    const QStringList messages = log.messages();
    ASSERT_EQ(messages.size(), 3);
    EXPECT_EQ(messages[0], u"using _mostRecentFormatter, format: ha");
    EXPECT_EQ(messages[1], u"KTDateTimeFormatter getObjectValue(lenient) forString:6 returns 1");
    EXPECT_TRUE(messages[2].startsWith(u"KTDateTimeFormatter getObjectValue forString:6 value:"));
}

TEST(KTDateTimeFormatterReading, SurvivesAnyText)
{
    const KTDateTimeFormatter formatter;
    QList<QString> texts = hostileTexts();
    texts << megabyteOf(u"9"_s) << megabyteOf(u"3/4/08 "_s) << megabyteOf(u"Mar "_s)
          << megabyteOf(u"\u0301"_s) << megabyteOf(u" "_s) << megabyteOf(u"5:"_s)
          << u"3/4/08"_s + QChar(0xD800) << u"\u200E3/4/08"_s;
    for (const QString &text : texts)
        reading(formatter, text);
    EXPECT_EQ(reading(formatter, u"3/4/08"), u"2008-03-04T12:00:00");
}
