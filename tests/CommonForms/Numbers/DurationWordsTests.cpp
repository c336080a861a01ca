// The words of durations.

#include <KTUtility/CommonForms/Numbers/DurationWords_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
bool hasWord(const char *locale, const char16_t *word, const DurationWord &meaning)
{
    const QString folded = FoldedText::folded(QStringView(word));
    const auto match =
        DurationWords::of(NSLocale(QString::fromLatin1(locale)))->units.longestAt(folded, 0);
    return match.length == folded.size() &&
           std::find(match.meanings.begin(), match.meanings.end(), meaning) != match.meanings.end();
}
} // namespace

TEST(DurationWords, HaveAllWidthsAndPlurals)
{
    struct Row
    {
        const char *locale;
        const char16_t *word;
        DurationWord meaning;
    };
    const Row rows[] = {
        {"en_US", u"hours", {DurationUnit::Hour}},
        {"en_US", u"hour", {DurationUnit::Hour}},
        {"en_US", u"hr", {DurationUnit::Hour}},
        {"en_US", u"hrs", {DurationUnit::Hour}},
        {"en_US", u"h", {DurationUnit::Hour}},
        {"en_US", u"wks", {DurationUnit::Week}},
        {"de_DE", u"Stunden", {DurationUnit::Hour}},
        {"de_DE", u"Std.", {DurationUnit::Hour}},
        {"de_DE", u"Std", {DurationUnit::Hour}},
        {"ru_RU", u"\u0447\u0430\u0441\u043E\u0432", {DurationUnit::Hour}},
        {"ru_RU", u"\u043C\u0438\u043D\u0443\u0442\u044B", {DurationUnit::Minute}},
        {"pl_PL", u"dni", {DurationUnit::Day}},
        {"ja_JP", u"\u6642\u9593", {DurationUnit::Hour}},
        {"zh_CN", u"\u5C0F\u65F6", {DurationUnit::Hour}},
        {"nl_NL", u"uren", {DurationUnit::Hour}},
        {"he_IL", u"\u05E9\u05E2\u05EA\u05D9\u05D9\u05DD", {DurationUnit::Hour, 2}},
        {"en_US", u"months", {DurationUnit::Month}},
        {"en_US", u"ns", {DurationUnit::Nanosecond}},
    };
    for (const Row &row : rows)
        EXPECT_TRUE(hasWord(row.locale, row.word, row.meaning))
            << row.locale << ' ' << QString::fromUtf16(row.word).toStdString();
}

TEST(DurationWords, KnowCasesAndAbbreviations)
{
    const auto derived = [](const char *locale, QStringView word) {
        return DurationWords::of(NSLocale(QString::fromLatin1(locale)))->derived(word);
    };
    EXPECT_EQ(derived("sv_SE", u"minuterna"), DurationUnit::Minute);
    EXPECT_EQ(derived("pt_BR", u"seg"), DurationUnit::Second);
    EXPECT_EQ(derived("ru_RU", u"\u0441\u0435\u043A"), DurationUnit::Second);
    EXPECT_EQ(derived("en_US", u"mi"), std::nullopt);
    EXPECT_EQ(derived("en_US", u"bananas"), std::nullopt);
    EXPECT_EQ(derived("en_US", u"m"), std::nullopt);
    EXPECT_EQ(derived("en_US", u"weekend"), std::nullopt);
    EXPECT_EQ(derived("it_IT", u"giornale"), std::nullopt);
    EXPECT_EQ(derived("pt_BR", u"horario"), std::nullopt);
    EXPECT_EQ(derived("es_ES", u"mil"), std::nullopt);
    EXPECT_EQ(derived("de_DE", u"minus"), std::nullopt);
    EXPECT_EQ(derived("en_US", u"micros"), DurationUnit::Microsecond);
}

TEST(DurationWords, HaveCountsAndConjunctions)
{
    const DurationWords &english = DurationWords::english();
    EXPECT_EQ(english.counts.longestAt(u"half an hour", 0).length, 7);
    EXPECT_EQ(english.conjunctions.longestAt(u"and", 0).length, 3);
    EXPECT_EQ(DurationWords::of(NSLocale(u"de_DE"_s))->conjunctions.longestAt(u"und", 0).length, 3);
}

TEST(DurationWords, HaveUnitsOfFixedLengthButTwo)
{
    EXPECT_EQ(secondsOf(DurationUnit::Week), NSDecimalNumber(604'800));
    EXPECT_EQ(secondsOf(DurationUnit::Second), NSDecimalNumber(1));
    EXPECT_EQ(secondsOf(DurationUnit::Millisecond).description(), u"0.001"_s);
    EXPECT_EQ(secondsOf(DurationUnit::Nanosecond).description(), u"0.000000001"_s);
    EXPECT_EQ(secondsOf(DurationUnit::Month), NSDecimalNumber());
    EXPECT_EQ(nameOf(DurationUnit::Hour), u"hour"_s);
}
