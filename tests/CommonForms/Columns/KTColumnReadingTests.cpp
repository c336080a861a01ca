// What a column's texts decide together, and how they are read then.

#include <KTUtility/KTColumnReading>

#include "Formatters/FormatterSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSDecimalNumber>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {
KTColumnReading columnOf(KTColumnReading::Kind kind, const QString &locale,
                         const QStringList &texts)
{
    KTColumnReading column(kind, NSLocale(locale));
    for (const QString &text : texts)
        column.add(text);
    return column;
}

struct Decided
{
    const char16_t *locale;
    QStringList texts;
    const char16_t *convention;
    KTColumnReading::Basis basis;
    QList<qsizetype> contradictions;
};

void expectDecisions(KTColumnReading::Kind kind, const QList<Decided> &rows)
{
    for (const Decided &row : rows) {
        const QString locale = QString::fromUtf16(row.locale);
        SCOPED_TRACE(qPrintable(locale + u": "_s + row.texts.join(u" | "_s)));
        const KTColumnReading column = columnOf(kind, locale, row.texts);
        EXPECT_EQ(column.convention(), QString::fromUtf16(row.convention));
        EXPECT_EQ(column.basis(), row.basis);
        EXPECT_EQ(column.contradictions(), row.contradictions);
        EXPECT_EQ(column.contradictionCount(), row.contradictions.size());
        EXPECT_EQ(column.textCount(), row.texts.size());
    }
}

/// The day that a column's text is read as, "2016-02-03"; "NO" if it is not.
QString dayOf(const KTColumnReading &column, const QString &locale, const QString &text)
{
    const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
    QVariant value;
    const bool isRead = column.getObjectValue(*formatter, &value, text);
    return isRead ? wallTime(value.toDateTime()).left(10) : u"NO"_s;
}

QString numberOf(const KTColumnReading &column, const QString &locale, const QString &text)
{
    const auto formatter = formatterIn<KTNumberFormatter>(locale);
    formatter->setRejectsUnevenGroups(true);
    QVariant value;
    if (!column.getObjectValue(*formatter, &value, text))
        return u"NO"_s;
    return NSDecimalNumber::decimalNumberWithNumber(value).description();
}

QStringList repeated(const QString &text, qsizetype count)
{
    return QStringList(count, text);
}
} // namespace

TEST(KTColumnReading, RunsItsExample)
{
    KTColumnReading column(KTColumnReading::Dates, NSLocale(u"en_US"_s));
    for (const QString &text : {u"3/2/2016"_s, u"13/2/2016"_s})
        column.add(text);
    EXPECT_EQ(column.convention(), u"dmy"_s);
    EXPECT_EQ(column.basis(), KTColumnReading::Values);
    EXPECT_EQ(dayOf(column, u"en_US"_s, u"3/2/2016"_s), u"2016-02-03"_s);
}

TEST(KTColumnReading, OneDateDecidesTheOrderOfAll)
{
    expectDecisions(
        KTColumnReading::Dates,
        {
            {u"en_US", {u"3/2/2016"_s, u"4/5/2016"_s}, u"mdy", KTColumnReading::Locale, {}},
            {u"de_DE", {u"3.2.2016"_s, u"4.5.2016"_s}, u"dmy", KTColumnReading::Locale, {}},
            {u"ja_JP", {u"3/2/2016"_s}, u"ymd", KTColumnReading::Locale, {}},
            {u"en_US", {u"13/2/2016"_s, u"4/5/2016"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"3/2"_s, u"13/2"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"3.2."_s, u"13. 2."_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"2/13/2016"_s, u"4/5/2016"_s}, u"mdy", KTColumnReading::Values, {}},
            {u"de_DE", {u"2/13/2016"_s, u"4/5/2016"_s}, u"mdy", KTColumnReading::Values, {}},
            {u"ja_JP", {u"2/13/2016"_s}, u"ymd", KTColumnReading::Values, {}},
            {u"ja_JP", {u"13/2/2016"_s, u"4/5/2016"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"05-13-31"_s, u"05-02-03"_s}, u"mdy", KTColumnReading::Values, {}},
            {u"en_US", {u"99-2-3"_s, u"05-02-03"_s}, u"ymd", KTColumnReading::Values, {}},
            {u"ja_JP", {u"9-2-05"_s, u"5-2-03"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"99-12-31"_s, u"05-02-03"_s}, u"ymd", KTColumnReading::Values, {}},
            {u"en_US",
             {u"13/2/2016 14:30"_s, u"4/5/2016 8:00"_s},
             u"dmy",
             KTColumnReading::Values,
             {}},
            {u"en_US", {u"at 14:30, 13/2/2016"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"13. 2. 2016"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"١٣/٢/٢٠١٦"_s}, u"dmy", KTColumnReading::Values, {}},
            {u"en_US", {u"１３／２／２０１６"_s}, u"dmy", KTColumnReading::Values, {}},
        });
}

TEST(KTColumnReading, WhatIsNoDateOfDigitsDecidesNothing)
{
    for (const QString &text : {u""_s,
                                u"2016-13-02"_s,
                                u"2016-02-13"_s,
                                u"13 February 2016"_s,
                                u"1.2.3.4"_s,
                                u"13/2/2016/1"_s,
                                u"13/13/2016"_s,
                                u"32/1/2016"_s,
                                u"30/2/2016"_s,
                                u"0/2/2016"_s,
                                u"13.2"_s,
                                u"14.30"_s,
                                u"13/2 and more"_s,
                                u"13/2-2016"_s,
                                u"13/2/20167"_s,
                                u"13/2/201"_s,
                                u"13/2/5"_s,
                                u"113/2/2016"_s,
                                u"13"_s,
                                u"13/"_s,
                                u"/13/2/"_s,
                                u"10:30"_s}) {
        const KTColumnReading column = columnOf(KTColumnReading::Dates, u"en_US"_s, {text});
        EXPECT_EQ(column.basis(), KTColumnReading::Locale) << text.toStdString();
        EXPECT_EQ(column.ambiguousCount(), 0) << text.toStdString();
        EXPECT_FALSE(column.contradicts(text)) << text.toStdString();
    }
}

TEST(KTColumnReading, AFewContradictionsAreToldAndNotRead)
{
    const QStringList texts =
        repeated(u"13/2/2016"_s, 10) + QStringList{u"2/14/2016"_s, u"1/2/2016"_s};
    const KTColumnReading column = columnOf(KTColumnReading::Dates, u"en_US"_s, texts);
    EXPECT_EQ(column.convention(), u"dmy"_s);
    EXPECT_EQ(column.basis(), KTColumnReading::Values);
    EXPECT_EQ(column.contradictions(), QList<qsizetype>{10});
    EXPECT_EQ(column.decidingCount(u"dmy"_s), 10);
    EXPECT_EQ(column.decidingCount(u"mdy"_s), 1);
    EXPECT_EQ(column.decidingCount(u"xyz"_s), 0);
    EXPECT_EQ(column.ambiguousCount(), 1);
    EXPECT_EQ(dayOf(column, u"en_US"_s, u"2/14/2016"_s), u"NO"_s);
    EXPECT_EQ(dayOf(column, u"en_US"_s, u"1/2/2016"_s), u"2016-02-01"_s);
    const auto formatter = formatterIn<KTDateTimeFormatter>(u"en_US"_s);
    QVariant value = 1;
    QString reason;
    EXPECT_FALSE(column.getObjectValue(*formatter, &value, u"2/14/2016"_s, &reason));
    EXPECT_EQ(reason, KTColumnReading::contradictionDescription());
    EXPECT_FALSE(value.isValid());
    EXPECT_FALSE(column.getObjectValue(*formatter, nullptr, u"2/14/2016"_s));
}

TEST(KTColumnReading, TwoHandsDecideNothing)
{
    expectDecisions(KTColumnReading::Dates,
                    {
                        {u"en_US",
                         {u"13/2/2016"_s, u"2/14/2016"_s, u"1/2/2016"_s},
                         u"mdy",
                         KTColumnReading::Mixed,
                         {0}},
                        {u"de_DE",
                         {u"13.2.2016"_s, u"2.14.2016"_s, u"1.2.2016"_s},
                         u"dmy",
                         KTColumnReading::Mixed,
                         {1}},
                        {u"en_US",
                         repeated(u"13/2/2016"_s, 9) + repeated(u"2/13/2016"_s, 2),
                         u"mdy",
                         KTColumnReading::Mixed,
                         {0, 1, 2, 3, 4, 5, 6, 7, 8}},
                    });
    const KTColumnReading column =
        columnOf(KTColumnReading::Dates, u"en_US"_s, {u"13/2/2016"_s, u"2/14/2016"_s});
    EXPECT_EQ(dayOf(column, u"en_US"_s, u"1/2/2016"_s), u"2016-01-02"_s);
    EXPECT_EQ(column.textForLocale(u"13/2/2016"_s), u"13/2/2016"_s);
}

TEST(KTColumnReading, WhatIsToldHolds)
{
    KTColumnReading column =
        columnOf(KTColumnReading::Dates, u"en_US"_s, {u"2/14/2016"_s, u"1/2/2016"_s});
    EXPECT_FALSE(column.setConvention(u"."_s));
    EXPECT_EQ(column.basis(), KTColumnReading::Values);
    EXPECT_TRUE(column.setConvention(u"dmy"_s));
    EXPECT_EQ(column.basis(), KTColumnReading::Told);
    EXPECT_EQ(column.convention(), u"dmy"_s);
    EXPECT_EQ(column.contradictions(), QList<qsizetype>{0});
    EXPECT_EQ(dayOf(column, u"en_US"_s, u"1/2/2016"_s), u"2016-02-01"_s);
    EXPECT_TRUE(column.setConvention(QString()));
    EXPECT_EQ(column.convention(), u"mdy"_s);
    EXPECT_EQ(column.localeConvention(), u"mdy"_s);
}

TEST(KTColumnReading, DatesAreReadAsTheLocaleWouldTypeThem)
{
    struct Row
    {
        const char16_t *locale;
        const char16_t *convention;
        const char16_t *text;
        const char16_t *inLocale;
    };
    for (const Row &row : {
             Row{u"en_US", u"dmy", u"3/2/2016", u"2/3/2016"},
             Row{u"en_US", u"dmy", u"3. 2. 2016 14.30", u"2. 3. 2016 14.30"},
             Row{u"en_US", u"dmy", u"on 03-02-16", u"on 02-03-16"},
             Row{u"en_US", u"ymd", u"16-02-03", u"02-03-16"},
             Row{u"en_US", u"ymd", u"02-03-2016", u"02-03-2016"},
             Row{u"en_US", u"dmy", u"3/2", u"2/3"},
             Row{u"en_US", u"mdy", u"3/2", u"3/2"},
             Row{u"en_US", u"dmy", u"2016-02-03", u"2016-02-03"},
             Row{u"en_US", u"dmy", u"2/13/2016", u"2/13/2016"},
             Row{u"de_DE", u"mdy", u"2/3/2016 5:30 PM", u"3/2/2016 5:30 PM"},
             Row{u"ja_JP", u"dmy", u"3/2/2016", u"2016/2/3"},
             Row{u"ja_JP", u"dmy", u"3/2", u"2/3"},
         }) {
        KTColumnReading column(KTColumnReading::Dates, NSLocale(QString::fromUtf16(row.locale)));
        ASSERT_TRUE(column.setConvention(QString::fromUtf16(row.convention)));
        EXPECT_EQ(column.textForLocale(QString::fromUtf16(row.text)),
                  QString::fromUtf16(row.inLocale));
    }
}

TEST(KTColumnReading, DatesWithoutYearAreReadAlikeByAllFormatters)
{
    for (const QString &locale :
         {u"sv_SE"_s, u"en_SE"_s, u"mg"_s, u"af"_s, u"jgo"_s, u"en_US"_s, u"de_DE"_s, u"ja_JP"_s,
          u"hu_HU"_s, u"fr_CA"_s, u"zh_CN"_s, u"ko_KR"_s, u"lt_LT"_s, u"en_ZA"_s}) {
        const NSLocale rules(locale);
        for (const QString &convention : {u"dmy"_s, u"mdy"_s}) {
            KTColumnReading column(KTColumnReading::Dates, rules);
            ASSERT_TRUE(column.setConvention(convention));
            if (column.localeConvention() == convention)
                continue; // As it stands.
            for (const bool readsCommonForms : {false, true}) {
                const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
                formatter->setReadsCommonForms(readsCommonForms);
                QVariant value;
                EXPECT_TRUE(column.getObjectValue(*formatter, &value, u"3/2"_s));
                EXPECT_EQ(wallTime(value.toDateTime()).mid(5, 5),
                          convention == u"dmy" ? u"02-03"_s : u"03-02"_s)
                    << qPrintable(locale + u' ' + convention) << readsCommonForms << ' '
                    << qPrintable(column.textForLocale(u"3/2"_s));
            }
        }
    }
}

TEST(KTColumnReading, DatesOfAllSeparatorsAreReadInBothOrders)
{
    for (const QString &locale : {u"en_US"_s, u"en_GB"_s, u"de_DE"_s, u"fr_FR"_s, u"pl_PL"_s}) {
        for (const QString &separator : {u"/"_s, u"."_s, u"-"_s}) {
            const QString text = QStringList{u"3"_s, u"2"_s, u"2016"_s}.join(separator);
            KTColumnReading column(KTColumnReading::Dates, NSLocale(locale));
            column.setConvention(u"dmy"_s);
            EXPECT_EQ(dayOf(column, locale, text), u"2016-02-03"_s)
                << qPrintable(locale + u' ' + text);
            column.setConvention(u"mdy"_s);
            EXPECT_EQ(dayOf(column, locale, text), u"2016-03-02"_s)
                << qPrintable(locale + u' ' + text);
        }
    }
}

TEST(KTColumnReading, OneNumberDecidesTheSignsOfAll)
{
    expectDecisions(KTColumnReading::Numbers,
                    {
                        {u"en_US", {u"1.234"_s, u"5"_s}, u".", KTColumnReading::Locale, {}},
                        {u"de_DE", {u"1.234"_s, u"5"_s}, u",", KTColumnReading::Locale, {}},
                        {u"en_US", {u"1.234"_s, u"1,5"_s}, u",", KTColumnReading::Values, {}},
                        {u"de_DE", {u"1.234"_s, u"1,5"_s}, u",", KTColumnReading::Values, {}},
                        {u"de_DE", {u"1.234"_s, u"1.5"_s}, u".", KTColumnReading::Values, {}},
                        {u"de_DE", {u"1,234"_s, u"0,234"_s}, u",", KTColumnReading::Values, {}},
                        {u"de_DE", {u"1,234"_s, u"1,234.5"_s}, u".", KTColumnReading::Values, {}},
                        {u"de_DE", {u"1,234,567"_s}, u".", KTColumnReading::Values, {}},
                        {u"de_DE", {u"12,34,567"_s}, u".", KTColumnReading::Values, {}},
                        {u"en_US", {u"1.234.567"_s}, u",", KTColumnReading::Values, {}},
                        {u"en_US", {u"1 234,567"_s}, u",", KTColumnReading::Values, {}},
                        {u"en_US", {u"1234,567"_s}, u",", KTColumnReading::Values, {}},
                        {u"de_DE", {u"1'234.567"_s}, u".", KTColumnReading::Values, {}},
                        {u"de_DE", {u".5"_s}, u".", KTColumnReading::Values, {}},
                        {u"de_DE", {u"-.5 kg"_s}, u".", KTColumnReading::Values, {}},
                        {u"de_DE", {u"Rs.500"_s}, u",", KTColumnReading::Locale, {}},
                        {u"de_DE", {u"Rs.1,500.50"_s}, u".", KTColumnReading::Values, {}},
                        {u"en_US", {u"1.5"_s, u"1,5"_s}, u".", KTColumnReading::Mixed, {1}},
                        {u"en_US",
                         repeated(u"1,5"_s, 10) + QStringList{u"1.5"_s},
                         u",",
                         KTColumnReading::Values,
                         {10}},
                        {u"ar_EG", {u"1,5"_s}, u",", KTColumnReading::Values, {}},
                    });
}

TEST(KTColumnReading, WhatIsNoNumberDecidesNothing)
{
    for (const QString &text :
         {u""_s, u"12"_s, u"1 234"_s, u"192.168.1.1"_s, u"1.2.3"_s, u"1,23,4"_s, u"1.5 or 2.5"_s,
          u"26.05.2014"_s, u"5."_s, u"1.234,56,78"_s, u"1,234.567.890"_s, u"no"_s, u"1..5"_s,
          u"٫٥"_s}) {
        const KTColumnReading column = columnOf(KTColumnReading::Numbers, u"en_US"_s, {text});
        EXPECT_EQ(column.basis(), KTColumnReading::Locale) << text.toStdString();
        EXPECT_EQ(column.ambiguousCount(), 0) << text.toStdString();
    }
}

TEST(KTColumnReading, NumbersAreReadByTheirSigns)
{
    const KTColumnReading german =
        columnOf(KTColumnReading::Numbers, u"en_US"_s, {u"1.234"_s, u"1,5"_s});
    EXPECT_EQ(numberOf(german, u"en_US"_s, u"1.234"_s), u"1234"_s);
    EXPECT_EQ(numberOf(german, u"en_US"_s, u"-1.234,5"_s), u"-1234.5"_s);
    EXPECT_EQ(numberOf(german, u"en_US"_s, u"7"_s), u"7"_s);
    EXPECT_EQ(numberOf(german, u"en_US"_s, u"1.5"_s), u"NO"_s);
    const KTColumnReading english = columnOf(KTColumnReading::Numbers, u"de_DE"_s, {u"1.5"_s});
    EXPECT_EQ(numberOf(english, u"de_DE"_s, u"1,234"_s), u"1234"_s);
    EXPECT_EQ(numberOf(english, u"de_DE"_s, u"1,234.5"_s), u"1234.5"_s);
    const KTColumnReading plain = columnOf(KTColumnReading::Numbers, u"de_DE"_s, {u"1.234"_s});
    EXPECT_EQ(numberOf(plain, u"de_DE"_s, u"1.234"_s), u"1234"_s);
}

TEST(KTColumnReading, AmountsKeepTheirCurrency)
{
    const UserLocale user("en_US");
    const KTColumnReading column = columnOf(KTColumnReading::Amounts, u"en_US"_s, {u"€1.234,50"_s});
    EXPECT_EQ(column.textForLocale(u"€1.234,50"_s), u"€1234.50"_s);
    EXPECT_EQ(column.textForLocale(u"1.234 EUR"_s), u"1234 EUR"_s);
    KTCurrencyFormatter formatter;
    formatter.setCurrencyType(u"EUR"_s);
    QVariant value;
    ASSERT_TRUE(column.getObjectValue(formatter, &value, u"€1.234,50"_s));
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithNumber(value).description(), u"1234.5"_s);
}

TEST(KTColumnReading, AFractionDecidesWhatClocksAre)
{
    expectDecisions(KTColumnReading::Durations,
                    {
                        {u"en_US", {u"1:30"_s, u"2:00"_s}, u"h:m", KTColumnReading::Locale, {}},
                        {u"en_US", {u"1:30"_s, u"2:04.5"_s}, u"m:s", KTColumnReading::Values, {}},
                        {u"en_US", {u"1:30"_s, u"-2:04,5"_s}, u"m:s", KTColumnReading::Values, {}},
                        {u"en_US",
                         {u"1:02:30"_s, u"2h"_s, u"1:75"_s, u"1:3"_s, u"12345:00"_s},
                         u"h:m",
                         KTColumnReading::Locale,
                         {}},
                    });
    const KTColumnReading column = columnOf(KTColumnReading::Durations, u"en_US"_s, {u"2:04.5"_s});
    EXPECT_EQ(column.textForLocale(u"1:30"_s), u"0:01:30"_s);
    EXPECT_EQ(column.textForLocale(u" -75:30.25 "_s), u"-1:15:30.25"_s);
    EXPECT_EQ(column.textForLocale(u"2h"_s), u"2h"_s);
}

TEST(KTColumnReading, HostileTextsDecideNothing)
{
    for (const auto kind :
         {KTColumnReading::Dates, KTColumnReading::Numbers, KTColumnReading::Durations}) {
        KTColumnReading column(kind, NSLocale(u"en_US"_s));
        for (const QString &text : testing_support::hostileTexts())
            column.add(text);
        column.add(testing_support::megabyteOf(u"13/2/2016 "_s));
        column.add(testing_support::megabyteOf(u"1,5"_s));
        EXPECT_EQ(column.basis(), KTColumnReading::Locale);
        for (const QString &text : testing_support::hostileTexts())
            EXPECT_EQ(column.textForLocale(text), text);
    }
}

TEST(KTColumnReading, AMillionTextsTakeTheirTimeAndNoMore)
{
    // Of this process, so that others beside it do not count.
    const auto timeOfEach = [](int count) {
        KTColumnReading column(KTColumnReading::Dates, NSLocale(u"en_US"_s));
        const std::clock_t start = std::clock();
        for (int index = 0; index < count; ++index)
            column.add(index % 3 ? u"3/2/2016"_s : u"2/13/2016"_s);
        column.add(u"13/2/2016"_s);
        EXPECT_EQ(column.convention(), u"mdy"_s);
        EXPECT_EQ(column.contradictions(), QList<qsizetype>{count});
        return double(std::clock() - start) / count;
    };
    timeOfEach(1000);
    const double few = timeOfEach(100'000);
    // What is not linear takes ten times as long for each.
    EXPECT_LT(timeOfEach(1'000'000), few * 5);
}

TEST(KTColumnReading, ContradictionsAreAllCountedAndTheFirstListed)
{
    KTColumnReading column(KTColumnReading::Numbers, NSLocale(u"en_US"_s));
    column.setConvention(u"."_s);
    for (int index = 0; index < 3000; ++index)
        column.add(u"1,5"_s);
    EXPECT_EQ(column.contradictionCount(), 3000);
    EXPECT_EQ(column.contradictions().size(), KTColumnReading::MostListed);
    EXPECT_EQ(column.contradictions().last(), KTColumnReading::MostListed - 1);
}

TEST(KTColumnReading, APointThatIsNotTheLocalesIsReplaced)
{
    for (const QString &locale : {u"ar_EG"_s, u"fa_IR"_s}) {
        const auto points = columnOf(KTColumnReading::Numbers, locale, {u"1,234.5"_s});
        EXPECT_EQ(numberOf(points, locale, u"1.234"_s), u"1.234"_s) << qPrintable(locale);
        const auto commas = columnOf(KTColumnReading::Numbers, locale, {u"1.234,5"_s});
        EXPECT_EQ(numberOf(commas, locale, u"1,234"_s), u"1.234"_s) << qPrintable(locale);
    }
}
