#include <KTUtility/NSDateFormatter>
#include <KTUtility/Platform/Dates/NaturalLanguageWords_p.h>

#include "LanguageSupport.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(NaturalLanguageWords, PreferTheLongest)
{
    using Kind = NaturalLanguageMeaning::Kind;
    const NaturalLanguageWords words = wordsOf("en_US");
    const NaturalLanguageWord day = words.find(u"day after tomorrow at five");
    EXPECT_EQ(day.meaning.kind, Kind::Day);
    EXPECT_EQ(day.meaning.value, 2);
    EXPECT_EQ(day.length, 18);
    EXPECT_EQ(words.find(u"day after next").meaning.kind, Kind::Unit);
    EXPECT_EQ(words.find(u"in 12 days.").meaning.kind, Kind::Amount);
    EXPECT_EQ(words.find(u"in 12 days.").length, 10);
    EXPECT_EQ(words.find(u"in twelve days").meaning.kind, Kind::InFuture);
}

TEST(NaturalLanguageWords, EndWhereWordsEnd)
{
    const NaturalLanguageWords english = wordsOf("en_US");
    EXPECT_EQ(english.find(u"today's").length, 5);
    EXPECT_EQ(english.find(u"todays").length, 0);
    EXPECT_EQ(english.find(u"monday").length, 6);
    EXPECT_EQ(english.find(u"monda").length, 0);
    EXPECT_EQ(english.find(u"").length, 0);
    const NaturalLanguageWords japanese = wordsOf("ja_JP");
    EXPECT_EQ(japanese.find(u"明日の午後").length, 2);
    EXPECT_EQ(japanese.find(u"明後日の午後").length, 3);
}

TEST(NaturalLanguageWords, FindOneKindOnly)
{
    using Kind = NaturalLanguageMeaning::Kind;
    const NaturalLanguageWords words = wordsOf("en_US");
    EXPECT_EQ(words.find(u"second", Kind::Unit).length, 6);
    EXPECT_EQ(words.find(u"second", Kind::Month).length, 0);
    EXPECT_EQ(words.find(u"mar", Kind::Month).meaning.value, 3);
    EXPECT_EQ(words.find(u"sunday", Kind::Weekday).meaning.value, 0);
    EXPECT_EQ(words.find(u"pm", Kind::HalfOfDay).meaning.value, 1);
}

TEST(NaturalLanguageWords, HaveRelativeDaysInEveryLanguage)
{
    using Kind = NaturalLanguageMeaning::Kind;
    for (const char *const locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "es_ES", "it_IT", "nl_NL",
                                     "pt_BR", "sv_SE", "fi_FI", "pl_PL", "ru_RU", "tr_TR", "ar_EG",
                                     "he_IL", "hi_IN", "ko_KR", "zh_CN", "th_TH", "el_GR"}) {
        const NaturalLanguageWords words = wordsOf(locale);
        const auto names = environmentOf(locale)->symbolsOf(NSDateFormatterSymbols::Month);
        const QString march = NaturalLanguageWords::folded(names.value(2));
        EXPECT_EQ(words.find(march, Kind::Month).meaning.value, 3) << locale;
        const auto days = environmentOf(locale)->symbolsOf(NSDateFormatterSymbols::Weekday);
        const QString friday = NaturalLanguageWords::folded(days.value(5));
        EXPECT_EQ(words.find(friday, Kind::Weekday).meaning.value, 5) << locale;
    }
}

TEST(NaturalLanguageWords, AreSharedByLanguage)
{
    const auto environment = environmentOf("en_US");
    EXPECT_EQ(NaturalLanguageWords::wordsOf(*environment),
              NaturalLanguageWords::wordsOf(*environment));
    EXPECT_NE(NaturalLanguageWords::wordsOf(*environment),
              NaturalLanguageWords::wordsOf(*environmentOf("en_GB")));
}

TEST(NaturalLanguageWords, FollowTheNamesOfAFormatter)
{
    NSDateFormatter formatter(u"%m/%d/%y"_s, true);
    formatter.setLocale(NSLocale(u"en_US"_s));
    QStringList months = formatter.symbols(NSDateFormatterSymbols::Month);
    months[2] = u"Ventôse"_s;
    formatter.setSymbols(NSDateFormatterSymbols::Month, months);
    EXPECT_TRUE(formatter.dateFromString(u"5 ventôse 2008"_s).isValid());
    NSDateFormatter other(u"%m/%d/%y"_s, true);
    other.setLocale(NSLocale(u"en_US"_s));
    EXPECT_FALSE(other.dateFromString(u"5 ventôse 2008"_s).isValid());
}
