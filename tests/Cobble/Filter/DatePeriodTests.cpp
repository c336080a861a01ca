#include "Filter/DatePeriod.h"

#include "Commands/UserSettings.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(DatePeriod, IsReadInManyForms)
{
    const struct
    {
        const char16_t *locale;
        const char16_t *text;
        DatePeriod period;
    } rows[] = {
        {u"en_US", u"March", {3, 0}},
        {u"en_US", u"march 2020", {3, 2020}},
        {u"en_US", u"Mar. 2020", {3, 2020}},
        {u"en_US", u"2020", {0, 2020}},
        {u"en_US", u"2020-03", {3, 2020}},
        {u"en_US", u"--03", {3, 0}},
        {u"en_US", u"3/2020", {3, 2020}},
        {u"en_US", u"2020 March", {3, 2020}},
        {u"en_US", u"March, 2020", {3, 2020}},
        {u"de_DE", u"März 2020", {3, 2020}},
        {u"de_DE", u"MAERZ", {0, 0}},
        {u"de_DE", u"marz", {3, 0}},
        {u"de_DE", u"March", {3, 0}},
        {u"de_DE", u"Jan.", {1, 0}},
        {u"fr_FR", u"août 1999", {8, 1999}},
        {u"es_ES", u"marzo de 2020", {3, 2020}},
        {u"ru_RU", u"март 2020", {3, 2020}},
        {u"ru_RU", u"марта", {3, 0}},
        {u"ja_JP", u"3月", {3, 0}},
        {u"ja_JP", u"2020年3月", {3, 2020}},
        {u"ja_JP", u"2020年", {0, 2020}},
        {u"ar_EG", u"مارس ٢٠٢٠", {3, 2020}},
        {u"ar_EG", u"٢٠٢٠", {0, 2020}},
        {u"fa_IR", u"2020-03", {3, 2020}},
    };
    for (const auto &row : rows) {
        const LocaleScope scope(QString::fromUtf16(row.locale));
        const QString text = QString::fromUtf16(row.text);
        EXPECT_TRUE(DatePeriod::read(text).value_or(DatePeriod()) == row.period)
            << text.toStdString();
    }
}

TEST(DatePeriod, OtherTextsAreNone)
{
    const LocaleScope scope(u"en_US"_s);
    for (const QString &text : {u""_s, u"Marsh"_s, u"3"_s, u"13/2020"_s, u"2020-00"_s, u"0000"_s,
                                u"March 5"_s, u"2020-03-05"_s, u"-"_s, u"Mayor 2020"_s})
        EXPECT_FALSE(DatePeriod::read(text)) << text.toStdString();
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_FALSE(DatePeriod::read(text)) << text.left(20).toStdString();
}

TEST(DatePeriod, HoldsItsDays)
{
    const struct
    {
        DatePeriod period;
        QDate date;
        bool isIn;
    } rows[] = {
        {{3, 2020}, {2020, 3, 1}, true},   {{3, 2020}, {2020, 3, 31}, true},
        {{3, 2020}, {2020, 4, 1}, false},  {{3, 2020}, {2019, 3, 1}, false},
        {{3, 0}, {1999, 3, 15}, true},     {{3, 0}, {1999, 2, 28}, false},
        {{0, 2020}, {2020, 12, 31}, true}, {{0, 2020}, {2021, 1, 1}, false},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.period.contains(row.date), row.isIn);
}

TEST(DatePeriod, IsReadFromItsTexts)
{
    for (const QString &locale :
         {u"en_US"_s, u"de_DE"_s, u"ja_JP"_s, u"ar_EG"_s, u"fa_IR"_s, u"cs_CZ"_s}) {
        const LocaleScope scope(locale);
        for (const DatePeriod &period :
             {DatePeriod{3, 2020}, DatePeriod{0, 1999}, DatePeriod{12, 0}}) {
            EXPECT_TRUE(DatePeriod::read(period.text()) == period) << period.text().toStdString();
            EXPECT_TRUE(DatePeriod::read(period.portableText()) == period);
        }
    }
}
