// Texts that are an amount in one currency.

#include <KTUtility/CommonForms/Numbers/MoneyGrammar_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char *locale;
    const char *currency;
    const char16_t *text;
    const char *value;
};

constexpr Row Rows[] = {
    // Codes.
    {"en_US", "USD", u"USD 5", "5"},
    {"en_US", "USD", u"5 usd", "5"},
    {"fr_FR", "USD", u"USD1,23", "1.23"},
    {"en_US", "USD", u"USD.50", "0.5"},
    {"en_US", "XAB", u"1,099.98 XAB", "1099.98"},
    // Signs, wide and narrow, on either side.
    {"en_US", "USD", u"$5", "5"},
    {"en_US", "USD", u"5 $", "5"},
    {"nl_NL", "USD", u"$20,43", "20.43"},
    {"nl_NL", "USD", u"US$ 3,14", "3.14"},
    {"en_US", "CAD", u"$5", "5"},
    {"es_ES", "CAD", u"C$ 1,34", "1.34"},
    {"en_US", "JPY", u"\u00A5500", "500"},
    {"ja_JP", "JPY", u"500\u5186", "500"},
    {"ja_JP", "JPY", u"\uFFE51,000", "1000"},
    {"zh_CN", "CNY", u"15\u5143", "15"},
    {"da_DK", "DKK", u"1.234,50 kr", "1234.5"},
    {"de_CH", "CHF", u"Fr. 5.50", "5.5"},
    {"ru_RU", "RUB", u"336 \u0440.", "336"},
    {"ru_RU", "RUB", u"10\u0440\u0443\u0431", "10"},
    {"pl_PL", "PLN", u"16.00 z\u0142", "16"},
    // A full stop behind letters is theirs.
    {"en_IN", "INR", u"Rs.599", "599"},
    {"en_IN", "INR", u"Rs. 1,00,000", "100000"},
    {"nb_NO", "NOK", u"kr.500", "500"},
    {"nb_NO", "NOK", u"kr. 500", "500"},
    {"sv_SE", "SEK", u"kr.500", "500"},
    {"en_ZA", "ZAR", u"R.500", "500"},
    {"pl_PL", "PLN", u"z\u0142.500", "500"},
    {"cs_CZ", "CZK", u"K\u010D.500", "500"},
    {"hu_HU", "HUF", u"Ft.500", "500"},
    {"en_PK", "PKR", u"Rs.599", "599"},
    {"es_GT", "GTQ", u"Q.500", "500"},
    {"es_PE", "PEN", u"S/.500", "500"},
    {"hi_IN", "INR", u"\u0930\u0941.500", "500"},
    {"id_ID", "IDR", u"Rp.50.000", "50000"},
    {"id_ID", "IDR", u"Rp. 50.000", "50000"},
    {"es_BO", "BOB", u"Bs. 500", "500"},
    // One behind a currency's mark is the number's.
    {"en_US", "USD", u"$.50", "0.5"},
    // The last full stop of Arabic signs is left out.
    {"ar_EG", "EGP", u"1500 \u062C.\u0645", "1500"},
    {"ar_SA", "SAR", u"1500 \u0631.\u0633", "1500"},
    {"ar_AE", "AED", u"1500 \u062F.\u0625", "1500"},
    {"en_ZM", "ZMW", u"K5", "5"},
    {"en_US", "CUC", u"5 Cuban convertible pesos", "5"},
    {"en_US", "SSP", u"5 South Sudanese pounds", "5"},
    {"zh_CN", "BYN", u"5 \u767D\u4FC4\u7F57\u65AF\u5362\u5E03", "5"},
    {"es_ES", "XAF", u"5 francos", "5"},
    // Several names of one currency.
    {"pt_BR", "NZD", u"nzd$15", "15"},
    {"en_US", "USD", u"$5 USD", "5"},
    {"en_US", "SGD", u"10 Singapore dollars", "10"},
    {"en_US", "MYR", u"Malaysia ringgits 42", "42"},
    {"en_US", "GBP", u"\u00A35 sterling", "5"},
    // Names.
    {"en_US", "USD", u"10 dollars", "10"},
    {"de_DE", "USD", u"17 dollar", "17"},
    {"en_US", "USD", u"5 US-dollars", "5"},
    {"ko_KR", "USD", u"2 \uB2EC\uB7EC", "2"},
    {"tr_TR", "USD", u"5 dolar", "5"},
    {"ru_RU", "RUB", u"10 \u0440\u0443\u0431\u043B\u044F\u0445", "10"},
    {"ro_RO", "RON", u"10 lei", "10"},
    {"sv_SE", "INR", u"20 Rupees", "20"},
    // Signs of negative amounts.
    {"en_US", "USD", u"-$5", "-5"},
    {"en_US", "USD", u"$-5", "-5"},
    {"en_US", "USD", u"$ - 5", "-5"},
    {"en_US", "USD", u"5-$", "-5"},
    {"en_US", "USD", u"$5-", "-5"},
    {"en_US", "USD", u"+$5", "5"},
    {"en_US", "USD", u"($5)", "-5"},
    {"en_US", "USD", u"$(5)", "-5"},
    {"en_US", "USD", u"(5) $", "-5"},
    {"en_US", "USD", u"$( 5.00 )", "-5"},
    // No cents.
    {"de_CH", "CHF", u"CHF 5.\u2013", "5"},
    {"de_DE", "EUR", u"5,- \u20AC", "5"},
    {"en_IN", "INR", u"Rs. 500/-", "500"},
};

struct Refusal
{
    const char *currency;
    const char16_t *text;
    const char *named; ///< a part of the reason
};

constexpr Refusal Refusals[] = {
    {"EUR", u"$5", "USD"},
    {"EUR", u"5 US dollars", "USD"},
    {"CAD", u"5 US dollars", "USD"},
    {"CAD", u"US$5", "USD"},
    {"NZD", u"5 Australian dollars", "AUD"},
    {"USD", u"5 \u20AC", "EUR"},
    {"USD", u"GBP 5", "GBP"},
    {"USD", u"$1,50", "separators"},
    {"USD", u"5 pesos mexicanos", ""},
};

constexpr const char16_t *Unread[] = {
    u"",      u"$",    u"dollars", u"$$",     u"5 bananas", u"$5 $6", u"5 - 10 $",
    u"-($5)", u"-$-5", u"($5",     u"$5)",    u"US 5",      u"$x5",   u"$ five",
    u"()",    u"$()",  u"-",       u"5 USDX", u"$--5",
};

TypedDecimal read(const char *locale, const char *currency, const char16_t *text)
{
    const NSLocale where(QString::fromLatin1(locale));
    const QString code = QString::fromLatin1(currency);
    const QString symbol = where.displayNameForKey(NSLocaleCurrencySymbol, code);
    return MoneyGrammar::read(FoldedText(QStringView(text)), {where, code, symbol});
}
} // namespace

TEST(MoneyGrammar, ReadsWhatPeopleType)
{
    for (const Row &row : Rows) {
        const std::string name = QString::fromUtf16(row.text).toStdString();
        const TypedDecimal typed = read(row.locale, row.currency, row.text);
        ASSERT_TRUE(typed.isRead()) << name << ' ' << typed.reason.toStdString();
        EXPECT_EQ(typed.value.description().toStdString(), row.value) << name;
    }
}

TEST(MoneyGrammar, RefusesOtherCurrenciesByName)
{
    for (const Refusal &row : Refusals) {
        const TypedDecimal typed = read("en_US", row.currency, row.text);
        EXPECT_FALSE(typed.isRead());
        const QString reason = typed.reason + typed.reasonArguments.value(0);
        EXPECT_TRUE(reason.contains(QString::fromLatin1(row.named)))
            << QString::fromUtf16(row.text).toStdString() << ": " << typed.reason.toStdString();
    }
}

TEST(MoneyGrammar, LeavesWhatIsNoAmount)
{
    for (const char16_t *text : Unread)
        EXPECT_FALSE(read("en_US", "USD", text).isRead()) << QString::fromUtf16(text).toStdString();
}

TEST(MoneyGrammar, TellsItsPartsAndTheOtherReading)
{
    const TypedDecimal typed = read("en_US", "USD", u"-$1,234");
    EXPECT_EQ(typed.reading.form, u"common.money"_s);
    EXPECT_EQ(typed.reading.parts, (QList<KTReadingPart>{{{0, 1}, u"minusSign"_s, u"-"_s},
                                                         {{1, 1}, u"currency"_s, u"USD"_s},
                                                         {{2, 5}, u"integer"_s, u"1234"_s}}));
    EXPECT_EQ(typed.reading.alternative.value<NSDecimalNumber>().description(), u"-1.234"_s);
    EXPECT_EQ(read("en_US", "USD", u"5 USD").reading.form, u"iso4217"_s);
    EXPECT_EQ(read("en_US", "USD", u"(5 USD)").reading.parts.first(),
              (KTReadingPart{{0, 1}, u"minusSign"_s, u"-"_s}));
}

TEST(MoneyGrammar, RefusesOtherCurrenciesThatHaveAWordOfItsOwn)
{
    struct Other
    {
        const char *locale;
        const char *currency;
        const char16_t *text;
    };
    constexpr Other Others[] = {
        {"zh_CN", "BYN", u"5 \u4FC4\u7F57\u65AF\u5362\u5E03"},
        {"de_DE", "MWK", u"5 Kwacha"},
        {"en_US", "SSP", u"5 Sudanese pounds"},
        {"en_US", "CUC", u"5 Cuban pesos"},
        {"en_US", "XAF", u"50 cents"},
        {"es_ES", "XAF", u"50 cents"},
        {"en_US", "ZMW", u"5k"},
        {"en_US", "PGK", u"5 k"},
        {"en_US", "MMK", u"5K"},
    };
    for (const Other &row : Others)
        EXPECT_FALSE(read(row.locale, row.currency, row.text).isRead())
            << row.currency << ' ' << QString::fromUtf16(row.text).toStdString();
}
