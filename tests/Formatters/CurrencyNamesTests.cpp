// What people write for a currency.

#include <KTUtility/Formatters/CurrencyNames_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QString replaced(const char16_t *locale, const char16_t *code, const QString &text)
{
    return CurrencyNames::replacedByCode(text, NSLocale(QString::fromUtf16(locale)),
                                         QString::fromUtf16(code));
}
} // namespace

TEST(CurrencyNames, AreCodeSignsAndNamesInAnyNumber)
{
    const QStringList euro = CurrencyNames::of(NSLocale(u"en_US"_s), u"EUR"_s);
    for (const QString &name : {u"eur"_s, u"€"_s, u"euro"_s, u"euros"_s})
        EXPECT_TRUE(euro.contains(name)) << name.toStdString();
    const QStringList koruna = CurrencyNames::of(NSLocale(u"cs_CZ"_s), u"CZK"_s);
    for (const QString &name : {u"kč"_s, u"koruna"_s, u"koruny"_s, u"korun"_s}) {
        const auto holds = [&name](const QString &known) { return known.contains(name); };
        EXPECT_TRUE(std::any_of(koruna.begin(), koruna.end(), holds)) << name.toStdString();
    }
    EXPECT_TRUE(CurrencyNames::of(NSLocale(u"da_DK"_s), u"DKK"_s).contains(u"kr"_s));
}

TEST(CurrencyNames, StandTheLongestFirst)
{
    const QStringList names = CurrencyNames::of(NSLocale(u"en_CA"_s), u"USD"_s);
    ASSERT_GE(names.size(), 4);
    for (qsizetype index = 1; index < names.size(); ++index)
        EXPECT_GE(names[index - 1].size(), names[index].size());
}

TEST(CurrencyNames, AreNoneForWhatIsNoCode)
{
    for (const QString &code : {QString(), u""_s, u"EU"_s, u"EURO"_s})
        EXPECT_TRUE(CurrencyNames::of(NSLocale(u"en_US"_s), code).isEmpty());
}

TEST(CurrencyNames, GiveWayToTheCode)
{
    struct Row
    {
        const char16_t *locale;
        const char16_t *code;
        const char16_t *text;
        const char16_t *result;
    };
    const Row rows[] = {{u"ja_JP", u"JPY", u"¥500", u"JPY500"},
                        {u"ja_JP", u"JPY", u"(￥500)", u"(JPY500)"},
                        {u"ja_JP", u"JPY", u"500円", u"500JPY"},
                        {u"ar_EG", u"EGP", u"5 ج.م.", u"5 EGP"},
                        {u"ar_EG", u"EGP", u"5 ج.م", u"5 EGP"},
                        {u"ar_EG", u"EGP", u"5 ج.م.\u200F", u"5 EGP"},
                        {u"da_DK", u"DKK", u"5 kr", u"5 DKK"},
                        {u"da_DK", u"DKK", u"5 kr.", u"5 DKK"},
                        {u"da_DK", u"DKK", u"5 KR", u"5 DKK"},
                        {u"de_DE", u"EUR", u"5 Euro", u"5 EUR"},
                        {u"en_IE", u"EUR", u"5 euros", u"5 EUR"},
                        {u"en_IE", u"EUR", u"1 euro", u"1 EUR"},
                        {u"en_US", u"EUR", u"5EURO", u"5EUR"},
                        {u"en_US", u"USD", u"5 dollars", u"5 USD"},
                        {u"en_US", u"USD", u"1 dollar", u"1 USD"},
                        {u"en_CA", u"CAD", u"5 dollars", u"5 CAD"},
                        {u"en_CA", u"USD", u"5 dollars", nullptr},
                        {u"fr_CH", u"CHF", u"5 francs", u"5 CHF"},
                        {u"de_CH", u"CHF", u"5 Franken", u"5 CHF"},
                        // A part of another word is no name.
                        {u"en_US", u"EUR", u"5 eurocents", nullptr},
                        {u"sv_SE", u"SEK", u"5 nkr", nullptr},
                        {u"en_US", u"EUR", u"5 dollars", nullptr},
                        {u"en_US", u"EUR", u"5", nullptr}};
    for (const Row &row : rows) {
        const QString result = replaced(row.locale, row.code, QString::fromUtf16(row.text));
        EXPECT_EQ(result.isNull(), row.result == nullptr) << result.toStdString();
        const QString expected = row.result ? QString::fromUtf16(row.result) : QString();
        EXPECT_EQ(result, expected);
    }
}

TEST(CurrencyNames, AreSoughtAtTheBeginningOfATextOnly)
{
    EXPECT_TRUE(replaced(u"en_US", u"EUR", megabyteOf(u"1"_s) + u"€").isNull());
    EXPECT_TRUE(replaced(u"en_US", u"EUR", u'€' + megabyteOf(u"1"_s)).startsWith(u"EUR1"));
    for (const QString &text : hostileTexts())
        EXPECT_TRUE(replaced(u"en_US", u"EUR", u"€ " + text).startsWith(u"EUR"));
}
