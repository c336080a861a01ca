// The words of dates in the locales' languages.

#include <KTUtility/CommonForms/Dates/DateTokens_p.h>
#include <KTUtility/CommonForms/Dates/DateWords_p.h>
#include <KTUtility/NSCalendar>

#include "support/TestSupport.h"

#include <thread>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using Kind = DateWord::Kind;

struct Row
{
    const char *locale;
    const char16_t *word;
    DateWord meaning;
};

constexpr Row Words[] = {
    {"en_US", u"MARCH", {Kind::Month, 3}},
    {"en_US", u"sept", {Kind::Month, 9}},
    {"en_US", u"Tue", {Kind::Weekday, 3}},
    {"en_US", u"tomorrow", {Kind::RelativeDay, 1}},
    {"en_US", u"ago", {Kind::AmountSuffix, 0, -1}},
    {"en_US", u"hours", {Kind::Unit, int(NSHourCalendarUnit)}},
    {"en_US", u"p.m.", {Kind::HalfOfDay, AfternoonHours}},
    {"de_DE", u"März", {Kind::Month, 3}},
    {"de_DE", u"MARZ", {Kind::Month, 3}},
    {"de_DE", u"Uhr", {Kind::HourMark}},
    {"de_DE", u"vor", {Kind::AmountPrefix, 0, -1}},
    {"fr_FR", u"août", {Kind::Month, 8}},
    {"fr_FR", u"à", {Kind::TimeMark}},
    {"fr_FR", u"mar", {Kind::Weekday, 3}},
    {"es_ES", u"de", {Kind::Filler}},
    {"ru_RU", u"марта", {Kind::Month, 3}},
    {"ru_RU", u"март", {Kind::Month, 3}},
    {"ru_RU", u"через", {Kind::AmountPrefix, 0, 1}},
    {"pl_PL", u"marca", {Kind::Month, 3}},
    {"ja_JP", u"水曜日", {Kind::Weekday, 4}},
    {"ja_JP", u"午後", {Kind::HalfOfDay, AfternoonHours}},
    {"ja_JP", u"時", {Kind::HourMark}},
    {"ko_KR", u"월", {Kind::MonthMark}},
    {"vi_VN", u"tháng 12", {Kind::Month, 12}},
    {"he_IL", u"במרץ", {Kind::Month, 3}},
    {"de_DE", u"October", {Kind::Month, 10}},
};

bool means(const DateWords::Match &match, const DateWord &meaning)
{
    return std::find(match.meanings.begin(), match.meanings.end(), meaning) != match.meanings.end();
}
} // namespace

TEST(DateWords, KnowTheWordsOfTheLocale)
{
    for (const Row &row : Words) {
        const DateWords words((NSLocale(QString::fromLatin1(row.locale))));
        const QString folded = FoldedText::folded(QString::fromUtf16(row.word));
        const DateWords::Match match = words.longestAt(folded, 0);
        EXPECT_EQ(match.length, folded.size()) << row.locale << ' ' << folded.toStdString();
        EXPECT_TRUE(means(match, row.meaning)) << row.locale << ' ' << folded.toStdString();
    }
}

TEST(DateWords, AreEnglishOnlyWhereThatMeansNothingElse)
{
    const auto german = DateWords::wordsOf(NSLocale(u"de_DE"_s));
    EXPECT_TRUE(means(german->longestAt(u"april", 0), {Kind::Month, 4}));
    // "mar" is a weekday in French, "may" no month.
    const auto french = DateWords::wordsOf(NSLocale(u"fr_FR"_s));
    EXPECT_FALSE(means(french->longestAt(u"mar", 0), {Kind::Month, 3}));
}

TEST(DateWords, KnowPartsAndOtherCasesOfNames)
{
    const auto english = DateWords::wordsOf(NSLocale(u"en_US"_s));
    ASSERT_NE(english->nameLike(u"septem"), nullptr);
    EXPECT_EQ(*english->nameLike(u"septem"), (DateWord{Kind::Month, 9}));
    EXPECT_EQ(english->nameLike(u"ju"), nullptr);
    EXPECT_EQ(english->nameLike(u"jux"), nullptr);
    EXPECT_EQ(english->nameLike(u"mondayish"), nullptr);
    const auto greek = DateWords::wordsOf(NSLocale(u"el_GR"_s));
    ASSERT_NE(greek->nameLike(FoldedText::folded(u"Σεπτέμβρη")), nullptr);
    EXPECT_EQ(*greek->nameLike(FoldedText::folded(u"Σεπτέμβρη")), (DateWord{Kind::Month, 9}));
}

TEST(DateWords, KnowEndingsOfOrdinals)
{
    const auto lengthAt = [](const char *locale, const char16_t *text, qsizetype position) {
        const auto words = DateWords::wordsOf(NSLocale(QString::fromLatin1(locale)));
        return words->ordinalAt(FoldedText::folded(QString::fromUtf16(text)), position);
    };
    EXPECT_EQ(lengthAt("en_US", u"1st May", 1), 2);
    EXPECT_EQ(lengthAt("en_US", u"1stMay", 1), 0);
    EXPECT_EQ(lengthAt("fr_FR", u"1er mai", 1), 2);
    EXPECT_EQ(lengthAt("es_ES", u"1º", 1), 1);
    EXPECT_EQ(lengthAt("sv_SE", u"5:e maj", 1), 2);
    EXPECT_EQ(lengthAt("ru_RU", u"5-го мая", 1), 3);
    EXPECT_EQ(lengthAt("en_US", u"5 th", 1), 0);
}

TEST(DateWords, KnowHowHoursAreCounted)
{
    EXPECT_TRUE(DateWords::wordsOf(NSLocale(u"en_US"_s))->hasTwelveHours());
    EXPECT_FALSE(DateWords::wordsOf(NSLocale(u"de_DE"_s))->hasTwelveHours());
    EXPECT_FALSE(DateWords::wordsOf(NSLocale(u"fr_FR"_s))->hasTwelveHours());
    EXPECT_EQ(DateWords::wordsOf(NSLocale(u"sv_SE"_s))->dayMonthSign(), u'/');
    EXPECT_EQ(DateWords::wordsOf(NSLocale(u"en_US"_s))->dayMonthSign(), 0);
}

TEST(DateWords, AreSharedByThreads)
{
    const auto first = DateWords::wordsOf(NSLocale(u"cs_CZ"_s));
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number)
        threads.emplace_back([&first] {
            EXPECT_EQ(DateWords::wordsOf(NSLocale(u"cs_CZ"_s)), first);
            EXPECT_NE(DateWords::wordsOf(NSLocale(u"sk_SK"_s)), nullptr);
        });
    for (std::thread &thread : threads)
        thread.join();
}

TEST(DateTokens, TakeTextsApart)
{
    const auto words = DateWords::wordsOf(NSLocale(u"en_US"_s));
    const DateTokens tokens(u"wed, 5th mar'08", *words);
    ASSERT_TRUE(tokens.isValid());
    ASSERT_EQ(tokens.count(), 6);
    EXPECT_TRUE(tokens.at(0).is(Kind::Weekday));
    EXPECT_TRUE(tokens.at(1).isSign(u','));
    EXPECT_TRUE(tokens.at(2).isNumber() && tokens.at(2).isOrdinal && tokens.at(2).isSpaced);
    EXPECT_EQ(tokens.at(2).value, 5);
    EXPECT_EQ(tokens.at(3).begin, 9);
    EXPECT_TRUE(tokens.at(4).isSign(u'\'') && !tokens.at(4).isSpaced);
    EXPECT_EQ(tokens.at(5).digits, 2);
    EXPECT_FALSE(tokens.at(6).isNumber() || tokens.at(-1).isNumber());
}

TEST(DateTokens, KnowTheirLimits)
{
    const auto words = DateWords::wordsOf(NSLocale(u"en_US"_s));
    for (const QString &text : {u""_s, u"5 foo"_s, u"5 %"_s, u"123456789"_s, u" 5"_s.repeated(29)})
        EXPECT_FALSE(DateTokens(FoldedText::folded(text), *words).isValid()) << text.toStdString();
    EXPECT_TRUE(DateTokens(u"12345678", *words).isValid());
}
