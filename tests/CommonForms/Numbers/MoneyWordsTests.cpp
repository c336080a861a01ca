// What people write for currencies.

#include <KTUtility/CommonForms/Numbers/MoneyWords_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
bool isWordOf(const QString &code, const QString &locale, const QString &word)
{
    const QString folded = FoldedText::folded(word);
    return MoneyWords::of(NSLocale(locale), code)->longestAt(folded, 0).length == folded.size();
}
} // namespace

TEST(MoneyWords, AreCodesSignsAndNames)
{
    struct Row
    {
        QString locale;
        QString code;
        QString words; ///< with "|" between
    };
    const Row rows[] = {
        {u"en_US"_s, u"USD"_s, u"USD|$|US$|$US|US dollars|dollars|US"_s},
        {u"en_US"_s, u"CAD"_s, u"CAD|CA$|$|Canadian dollar|Canada|C$"_s},
        {u"de_DE"_s, u"USD"_s, u"US-Dollar|Dollar|dollars"_s},
        {u"fr_FR"_s, u"USD"_s, u"dollars des \u00C9tats-Unis|dollar"_s},
        {u"ja_JP"_s, u"JPY"_s, u"\u5186|\uFFE5|\u00A5|yen|\\"_s},
        {u"ja_JP"_s, u"USD"_s, u"\u7C73\u30C9\u30EB|\u30C9\u30EB"_s},
        {u"ko_KR"_s, u"USD"_s, u"\uB2EC\uB7EC"_s},
        {u"ru_RU"_s, u"RUB"_s, u"\u0440\u0443\u0431|\u20BD|\u0440\u0443\u0431\u043B\u0435\u0439"_s},
        {u"da_DK"_s, u"DKK"_s, u"kr.|kr|kroner"_s},
        {u"en_IN"_s, u"INR"_s, u"\u20B9|Rs|rupees|Indian rupees"_s},
        {u"vi_VN"_s, u"VND"_s, u"\u20AB|\u0111\u1ED3ng|\u0111"_s},
        {u"en_US"_s, u"XAB"_s, u"XAB"_s},
    };
    for (const Row &row : rows) {
        for (const QString &word : row.words.split(u'|'))
            EXPECT_TRUE(isWordOf(row.code, row.locale, word))
                << qPrintable(row.locale + u' ' + row.code + u' ' + word);
    }
}

TEST(MoneyWords, AreNotThoseOfOtherCurrencies)
{
    EXPECT_FALSE(isWordOf(u"CAD"_s, u"en_US"_s, u"US dollars"_s));
    EXPECT_FALSE(isWordOf(u"EUR"_s, u"en_US"_s, u"$"_s));
    EXPECT_FALSE(isWordOf(u"NZD"_s, u"en_US"_s, u"Australian dollars"_s));
    EXPECT_FALSE(isWordOf(u"USD"_s, u"ja_JP"_s, u"\u5186"_s));
    EXPECT_FALSE(isWordOf(u"USD"_s, u"en_US"_s, u"bananas"_s));
}

TEST(MoneyWords, KnowCasesOfNames)
{
    const auto roubles = MoneyWords::of(NSLocale(u"ru_RU"_s), u"RUB"_s);
    EXPECT_TRUE(roubles->isInflectedName(u"\u0440\u0443\u0431\u043B\u044F\u0445"));
    EXPECT_FALSE(roubles->isInflectedName(u"\u0440\u0443\u0431\u0438\u043D"));
    EXPECT_TRUE(MoneyWords::of(NSLocale(u"tr_TR"_s), u"USD"_s)->isInflectedName(u"dolar"));
}

TEST(MoneyWords, TellWhoseCurrencyATextNames)
{
    const NSLocale locale(u"en_US"_s);
    EXPECT_EQ(currencyNamedIn(locale, u"5 us dollars"), u"USD"_s);
    EXPECT_EQ(currencyNamedIn(locale, u"gbp 5"), u"GBP"_s);
    EXPECT_EQ(currencyNamedIn(locale, u"5\u20AC"), u"EUR"_s);
    EXPECT_EQ(currencyNamedIn(locale, u"5 swiss francs"), u"CHF"_s);
    EXPECT_TRUE(currencyNamedIn(locale, u"5 bananas").isNull());
    EXPECT_TRUE(currencyNamedIn(locale, u"xgbp").isNull());
}
