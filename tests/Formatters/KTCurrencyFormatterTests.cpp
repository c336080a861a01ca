#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>
#include <KTUtility/NSNumberFormatter_KTCurrency>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <QBrush>
#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QString reading(const KTCurrencyFormatter &formatter, const QString &text)
{
    QVariant value;
    if (!formatter.getObjectValue(&value, text))
        return u"NO"_s;
    return value.value<NSDecimalNumber>().description();
}

QString reading(const KTCurrencyFormatter &formatter, const char16_t *text)
{
    return reading(formatter, QString::fromUtf16(text));
}

/// What an amount looks like, with plain spaces for special ones.
QString shown(const KTCurrencyFormatter &formatter, const QVariant &value)
{
    return formatter.stringForObjectValue(value).replace(QChar(0xA0), u' ');
}

struct Typed
{
    const char16_t *text;
    const char *value;
};

QVariantMap optionsAfterAdjusting(KTCurrencyFormatter &formatter, const char16_t *text)
{
    QVariantMap options;
    const KTCurrencyFormatter *result =
        formatter.adjustForValue(QString::fromUtf16(text), &options);
    EXPECT_EQ(result != nullptr, !options.isEmpty());
    return options;
}

/// The steps by which the rows of the tables were made.
void takeStep(NSNumberFormatter &formatter, const QJsonArray &step)
{
    const QString name = step[0].toString();
    if (name == u"currencyCode")
        formatter.setCurrencyCode(step[1].toString());
    else if (name == u"currencySymbol")
        formatter.setCurrencySymbol(step[1].toString());
    else if (name == u"parensEdit")
        KTCurrency::setFormatNegativeUsingParens(formatter, step[1].toBool());
    else if (name == u"negPrefix")
        formatter.setNegativePrefix(step[1].toString());
    else if (name == u"negSuffix")
        formatter.setNegativeSuffix(step[1].toString());
}
} // namespace

TEST(KTCurrencyFormatter, StartsWithTheCurrencyOfTheUser)
{
    const KTCurrencyFormatter formatter;
    EXPECT_EQ(formatter.currencyType(), u"USD");
    EXPECT_EQ(formatter.stringForObjectValue(1234.5), u"$1,234.50");
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"-$2.00");
    EXPECT_EQ(formatter.stringForObjectValue(0.125), u"$0.12"); // ties to even
    EXPECT_EQ(formatter.decimalPlaces(), 2U);
    const QVariantMap expected{{kKTFieldOption_currencyType, u"USD"_s},
                               {kKTFieldOption_displayThousandsSeparator, true},
                               {kKTFieldOption_highlightNegative, true},
                               {kKTFieldOption_formatNegativeUsingParens, false}};
    EXPECT_EQ(formatter.options(), expected);
    const auto negative = formatter.attributedStringForObjectValue(-1);
    EXPECT_EQ(negative->attribute(NSForegroundColorAttributeName, 0).value<QBrush>().color(),
              QColor(Qt::red));
}

TEST(KTCurrencyFormatter, RunsItsExample)
{
    KTCurrencyFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(1234.5), u"$1,234.50");
    EXPECT_EQ(reading(formatter, u"($12.50)"), u"-12.5");
    formatter.setCurrencyType(u"JPY"_s);
    EXPECT_EQ(formatter.stringForObjectValue(1234.5), u"¥1,234");
}

TEST(KTCurrencyFormatter, OffersNeitherRupeesNorLei)
{
    for (const char *locale : {"en_IN", "hi_IN", "ro_RO", "en", "eo"}) {
        const UserLocale user(locale);
        const KTCurrencyFormatter formatter;
        EXPECT_EQ(formatter.currencyType(), u"USD") << locale;
        EXPECT_EQ(formatter.currencyLocale().currencyCode(), u"USD") << locale;
    }
    KTCurrencyFormatter formatter;
    formatter.setCurrencyType(u"RON"_s);
    EXPECT_EQ(formatter.currencyType(), u"USD");
    formatter.setCurrencyType(u"EUR"_s);
    formatter.setCurrencyType(u"INR"_s);
    EXPECT_EQ(formatter.currencyType(), u"USD");
    EXPECT_EQ(formatter.stringForObjectValue(5), u"$5.00");
}

TEST(KTCurrencyFormatter, TakesDollarsWhereTheLocaleHasNoCurrency)
{
    const UserLocale user("en");
    KTCurrencyFormatter formatter;
    EXPECT_EQ(formatter.currencyLocale().localeIdentifier(), u"en@currency=USD");
    formatter.setCurrencyType(u"EUR"_s);
    formatter.setCurrencyType(QString());
    EXPECT_EQ(formatter.currencyType(), u"USD");
    formatter.setCurrencyType(u"XXX"_s); // a code like others, if it is asked for
    EXPECT_EQ(formatter.currencyType(), u"XXX");
}

TEST(KTCurrencyFormatter, KeepsTheLanguageOfALocaleWhoseCurrencyItRejects)
{
    const UserLocale user("hi_IN");
    const KTCurrencyFormatter formatter;
    EXPECT_EQ(formatter.currencyLocale().localeIdentifier(), u"hi_IN@currency=USD");
    EXPECT_EQ(formatter.stringForObjectValue(1234567), u"$12,34,567.00");
}

TEST(KTCurrencyFormatter, TakesTheCurrencyOfTheLocaleForNil)
{
    const UserLocale user("de_DE");
    KTCurrencyFormatter formatter;
    formatter.setCurrencyType(u"USD"_s);
    EXPECT_EQ(shown(formatter, 5), u"5,00 $");
    formatter.setCurrencyType(QString());
    EXPECT_EQ(formatter.currencyType(), u"EUR");
    EXPECT_EQ(shown(formatter, -5), u"-5,00 €");
}

TEST(KTCurrencyFormatter, WritesItsOwnMoneyShortAndOthersUnmistakably)
{
    const UserLocale user("en_CA");
    KTCurrencyFormatter formatter;
    formatter.setCurrencyType(u"CAD"_s);
    EXPECT_EQ(formatter.stringForObjectValue(5), u"$5.00");
    formatter.setCurrencyType(u"USD"_s);
    EXPECT_EQ(formatter.stringForObjectValue(5), u"US$5.00");
    formatter.setCurrencyType(u"KWD"_s);
    EXPECT_EQ(shown(formatter, 5), u"KWD 5.000");
    formatter.setCurrencyType(u"XYZ"_s);
    EXPECT_EQ(shown(formatter, 5), u"XYZ 5.00");
}

TEST(KTCurrencyFormatter, ReadsPlainNumbersAndMoney)
{
    const Typed typed[] = {{u"12.50", "12.5"},
                           {u"$12.50", "12.5"},
                           {u"($12.50)", "-12.5"},
                           {u"(12.50)", "-12.5"},
                           {u"-$12.50", "-12.5"},
                           {u"$-12.50", "-12.5"},
                           {u"$1,234.50", "1234.5"},
                           {u"12.50$", "12.5"},
                           {u"5 USD", "5"},
                           {u"USD5", "5"},
                           {u"$ 5", "5"},
                           {u"$5 ", "5"},
                           {u" $5", "5"},
                           {u"＄12.50", "12.5"},
                           {u"12 US dollars", "12"},
                           {u"($12.50", "NO"},
                           {u"$12.50)", "NO"},
                           {u"€5", "NO"},
                           {u"$5x", "NO"},
                           {u"$", "NO"},
                           {u"", "NO"},
                           {u"$NaN", "NO"}};
    const KTCurrencyFormatter formatter;
    for (const Typed &row : typed)
        EXPECT_EQ(reading(formatter, row.text), QString::fromLatin1(row.value))
            << qPrintable(QString::fromUtf16(row.text));
}

TEST(KTCurrencyFormatter, ReadsSignsBehindTheAmount)
{
    const UserLocale user("de_DE");
    const KTCurrencyFormatter formatter;
    EXPECT_EQ(reading(formatter, u"12,50 €"), u"12.5");
    EXPECT_EQ(reading(formatter, u"12,50\u00A0€"), u"12.5");
    EXPECT_EQ(reading(formatter, u"12,50€"), u"12.5");
    EXPECT_EQ(reading(formatter, u"-12,50 €"), u"-12.5");
    EXPECT_EQ(reading(formatter, u"1.234,50 €"), u"1234.5");
    EXPECT_EQ(reading(formatter, u"(12,50) €"), u"-12.5");
    EXPECT_EQ(reading(formatter, u"12,50 EUR"), u"12.5");
}

TEST(KTCurrencyFormatter, PutsNegativesInParenthesesAndKeepsTheSign)
{
    KTCurrencyFormatter formatter;
    formatter.setFormatNegativeUsingParens(true);
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"($2.00)");
    formatter.setCurrencyType(u"EUR"_s);
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"(€2.00)");
    formatter.setFormatNegativeUsingParens(false);
    EXPECT_EQ(formatter.stringForObjectValue(-2), u"-€2.00");
    const std::pair<const char *, QString> locales[] = {
        {"de_DE", u"(2,00) €"_s},
        {"sv_SE", u"(2,00) kr"_s}, // its minus sign is U+2212
        {"nl_NL", u"€ (2,00)"_s},
        {"ja_JP", u"(￥2)"_s}};
    for (const auto &[locale, expected] : locales) {
        const UserLocale user(locale);
        KTCurrencyFormatter local;
        const QString before = local.stringForObjectValue(-2);
        local.setFormatNegativeUsingParens(true);
        EXPECT_EQ(shown(local, -2), expected);
        local.setFormatNegativeUsingParens(false);
        EXPECT_EQ(local.stringForObjectValue(-2), before) << locale;
    }
}

TEST(KTCurrencyFormatter, FindsTheCurrencyOfATypedAmount)
{
    const std::pair<const char16_t *, const char *> typed[] = {
        {u"€5", "EUR"},    {u"(€5)", "EUR"}, {u"£1,234.50", "GBP"},
        {u"¥5", "JPY"},    {u"CA$5", "CAD"}, {u"R$ 5.00", "BRL"},
        {u"5 CHF", "CHF"}, {u"￡5", "GBP"},  {u"12 British pounds", "GBP"}};
    for (const auto &[text, code] : typed) {
        KTCurrencyFormatter formatter;
        EXPECT_EQ(optionsAfterAdjusting(formatter, text).value(kKTFieldOption_currencyType),
                  QString::fromLatin1(code))
            << qPrintable(QString::fromUtf16(text));
        EXPECT_EQ(formatter.currencyType(), QString::fromLatin1(code));
    }
}

TEST(KTCurrencyFormatter, AdjustsOnlyWhatItCannotRead)
{
    KTCurrencyFormatter formatter;
    for (const char16_t *text : {u"5", u"$5", u"5 kr", u"abc", u"", u"₹5", u"RON 5"}) {
        EXPECT_TRUE(optionsAfterAdjusting(formatter, text).isEmpty())
            << qPrintable(QString::fromUtf16(text));
        EXPECT_EQ(formatter.currencyType(), u"USD");
    }
    EXPECT_EQ(formatter.adjustForValue(u"€5"_s, nullptr), &formatter);
}

TEST(KTCurrencyFormatter, AdjustsAlsoAfterACurrencyWasSet)
{
    KTCurrencyFormatter formatter;
    formatter.setCurrencyType(u"EUR"_s);
    QVariantMap options;
    ASSERT_EQ(formatter.adjustForValue(u"$5"_s, &options), &formatter);
    EXPECT_EQ(options.value(kKTFieldOption_currencyType), u"USD"_s);
    EXPECT_EQ(formatter.stringForObjectValue(5), u"€5.00"); // the sign comes with the options
    formatter.setOptions(options);
    EXPECT_EQ(formatter.stringForObjectValue(5), u"$5.00");
}

TEST(KTCurrencyFormatter, LeavesTheLastCurrencyItTriedForReading)
{
    KTCurrencyFormatter formatter;
    EXPECT_EQ(formatter.adjustForValue(u"5 cows"_s, nullptr), nullptr);
    EXPECT_EQ(reading(formatter, u"ZMW 5"), u"5");
    EXPECT_EQ(reading(formatter, u"$5"), u"NO");
    EXPECT_EQ(formatter.currencyType(), u"USD");
}

TEST(KTCurrencyFormatter, FindsTheSameCurrencyWhetherOrNotItLogs)
{
    const QStringList texts{u"€5"_s,      u"5 zł"_s,           u"kr 5"_s, u"A$5"_s,
                            u"usd 5 5"_s, u"5 Swiss francs"_s, u"₩500"_s, u"NT$5"_s,
                            u"xaf5"_s,    u"FCFA 5"_s};
    for (const char *locale : {"en_US", "de_DE", "fr_FR", "ja_JP", "sv_SE", "ar_EG"}) {
        const UserLocale user(locale);
        for (const QString &text : texts) {
            KTCurrencyFormatter quick;
            QVariantMap quickOptions;
            quick.adjustForValue(text, &quickOptions);
            KTCurrencyFormatter thorough;
            QVariantMap thoroughOptions;
            const KTLogCapture log(kLog_FormattersCurrency, 4);
            thorough.adjustForValue(text, &thoroughOptions);
            EXPECT_EQ(quickOptions, thoroughOptions) << locale << ' ' << qPrintable(text);
        }
    }
}

TEST(KTCurrencyFormatter, LogsTheWalk)
{
    useFreshHome();
    KTCurrencyFormatter formatter;
    const KTLogCapture log(kLog_FormattersCurrency, 4);
    formatter.adjustForValue(u"€5"_s, nullptr);
    const QStringList messages = log.messages();
    EXPECT_TRUE(messages.contains(u"currencyCode: AED"_s));
    EXPECT_FALSE(messages.contains(u"currencyCode: GBP"_s)); // behind the winner
    EXPECT_TRUE(messages.contains(u"KTCurrencyFormatter getObjectValue forString:€5 returns 1"_s));
    const qsizetype end = messages.size();
    EXPECT_EQ(messages[end - 4],
              u"KTCurrencyFormatter attributedStringForObjectValue returns:$5.00");
    EXPECT_EQ(messages[end - 3], u"attributed value: $5.00");
    EXPECT_EQ(messages[end - 2], u"KTCurrencyFormatter stringForObjectValue returns:$5.00");
    EXPECT_EQ(messages[end - 1], u"string value: $5.00");
    EXPECT_EQ(messages.filter(u"currencyCode: INR"_s).size(), 0);
}

TEST(KTCurrencyFormatter, LogsItsLocalesInFullDetail)
{
    useFreshHome();
    const KTLogCapture log(kLog_FormattersCurrency, 7);
    const KTCurrencyFormatter formatter;
    formatter.stringForObjectValue(5);
    const QStringList expected{u"filterCurrency _currencyLocale locale ID en_US"_s,
                               u"filterCurrency _currencyLocale currency code USD"_s,
                               u"filterCurrency _currencyLocale currency symbol $"_s,
                               u"filterCurrency filter _currencyLocale locale ID en_US"_s,
                               u"filterCurrency filter _currencyLocale currency code USD"_s,
                               u"filterCurrency filter _currencyLocale currency symbol $"_s,
                               u"_currencyFormatter locale ID en_US"_s,
                               u"_currencyFormatter currency code USD"_s,
                               u"_currencyFormatter currency symbol $"_s,
                               u""_s,
                               u"_currencyLocale locale ID en_US"_s,
                               u"_currencyLocale currency code USD"_s,
                               u"_currencyLocale currency symbol $"_s,
                               u""_s,
                               u"_locale (current) locale ID en_US"_s,
                               u"_locale (current) currency code USD"_s,
                               u"_locale (current) currency symbol $"_s,
                               u"KTCurrencyFormatter stringForObjectValue returns:$5.00"_s};
    EXPECT_EQ(log.messages(), expected);
}

TEST(KTCurrencyFormatter, LogsFailures)
{
    useFreshHome();
    const KTCurrencyFormatter formatter;
    const KTLogCapture log(kLog_FormattersCurrency, 4);
    QString error;
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"x"_s, &error));
    EXPECT_EQ(error, u"The text is not a number.");
    const QStringList once{
        u"KTCurrencyFormatter getObjectValue forString:x returns 0"_s,
        u"KTCurrencyFormatter getObjectValue error: The text is not a number."_s};
    EXPECT_EQ(log.messages(), once + once);
}

TEST(KTCurrencyFormatter, LeavesDecimalPlacesToTheCurrency)
{
    KTCurrencyFormatter formatter;
    formatter.setOptions({{kKTFieldOption_decimalPlaces, 4}});
    formatter.setDecimalPlaces(4);
    EXPECT_EQ(formatter.decimalPlaces(), 2U);
    EXPECT_EQ(formatter.stringForObjectValue(1), u"$1.00");
    EXPECT_FALSE(formatter.options().contains(kKTFieldOption_decimalPlaces));
    formatter.setDisplayAllDecimalPlaces();
    EXPECT_EQ(formatter.stringForObjectValue(1.23456), u"$1.23456");
}

TEST(KTCurrencyFormatter, CanLeaveThousandsTogether)
{
    KTCurrencyFormatter formatter;
    QSignalSpy changes(&formatter, &KTNumberFormatter::displayThousandsSeparatorChanged);
    formatter.setDisplayThousandsSeparator(false);
    EXPECT_FALSE(formatter.displayThousandsSeparator());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(formatter.stringForObjectValue(1234), u"$1234.00");
    KTNumberFormatter &asNumber = formatter;
    asNumber.setHighlightNegative(false);
    EXPECT_FALSE(formatter.textAttributesForNegativeValues().has_value());
}

TEST(KTCurrencyFormatter, GivesItsFormattersTheLocaleOfNumbers)
{
    KTCurrencyFormatter formatter;
    formatter.setCurrencyLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(formatter.currencyLocale().localeIdentifier(), u"de_DE");
    EXPECT_EQ(formatter.stringForObjectValue(5), u"$5.00");
    formatter.setCurrencyLocale(NSLocale(u"en_IN"_s));
    EXPECT_EQ(formatter.currencyLocale().localeIdentifier(), u"en_IN@currency=USD");
}

TEST(KTCurrencyFormatter, ShowsNumbersOnly)
{
    const KTCurrencyFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(u"5"_s), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QVariant()), QString());
    EXPECT_FALSE(formatter.attributedStringForObjectValue(QVariant()).has_value());
}

TEST(KTCurrencyFormatter, SurvivesAnyText)
{
    KTCurrencyFormatter formatter;
    QList<QString> texts = hostileTexts();
    texts << megabyteOf(u"9"_s) << megabyteOf(u"$"_s) << megabyteOf(u"€5"_s) << megabyteOf(u" "_s);
    for (const QString &text : texts) {
        QVariant value;
        formatter.getObjectValue(&value, text);
        formatter.adjustForValue(text, nullptr);
    }
    EXPECT_EQ(reading(formatter, u"7"), u"7");
}

TEST(KTCurrencyFormatter, ParenthesesEditTheAffixesThatAreThere)
{
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterCurrencyStyle);
    EXPECT_EQ(formatter.negativePrefix(), u"-$");
    KTCurrency::setFormatNegativeUsingParens(formatter, true);
    EXPECT_EQ(formatter.negativePrefix(), u"($");
    EXPECT_EQ(formatter.negativeSuffix(), u")");
    KTCurrency::setFormatNegativeUsingParens(formatter, true);
    EXPECT_EQ(formatter.negativeSuffix(), u")");
    KTCurrency::setFormatNegativeUsingParens(formatter, false);
    EXPECT_EQ(formatter.negativePrefix(), u"-$");
    EXPECT_EQ(formatter.negativeSuffix(), u"");
    formatter.setNegativePrefix(u"minus "_s);
    KTCurrency::setFormatNegativeUsingParens(formatter, true);
    EXPECT_EQ(formatter.negativePrefix(), u"minus ");
    EXPECT_EQ(formatter.negativeSuffix(), u"");
}

TEST(KTCurrencyFormatter, AffixesAreWhatTheTableSays)
{
    int cells = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/currency_affixes.jsonl"_s)) {
        NSNumberFormatter formatter;
        formatter.setNumberStyle(NSNumberFormatterCurrencyStyle);
        formatter.setLocale(NSLocale(row[u"locale"].toString()));
        formatter.setUsesGroupingSeparator(true);
        formatter.setLenient(true);
        const QJsonArray steps = row[u"set"].toArray();
        for (const QJsonValue &step : steps)
            takeStep(formatter, step.toArray());
        const QString where = row[u"locale"].toString() + u' ' + row[u"what"].toString() + u' ' +
                              row[u"code"].toString();
        EXPECT_EQ(formatter.currencySymbol(), row[u"symbol"].toString()) << qPrintable(where);
        // Written affixes follow the currency here and keep the distance from letters.
        if (row[u"what"].toString().startsWith(u"off, "))
            continue;
        EXPECT_EQ(formatter.negativePrefix(), row[u"negPrefix"].toString()) << qPrintable(where);
        EXPECT_EQ(formatter.negativeSuffix(), row[u"negSuffix"].toString()) << qPrintable(where);
        EXPECT_EQ(formatter.minimumFractionDigits(), row[u"minFrac"].toInt());
        const QJsonObject texts = row[u"cells"].toObject();
        const bool isWritten = row[u"what"].toString().contains(u"parens");
        const QString symbol = row[u"symbol"].toString();
        const bool isBefore =
            symbol.back().isLetter() && formatter.negativePrefix().contains(symbol);
        for (auto it = texts.begin(); it != texts.end(); ++it, ++cells) {
            const QString number = it.key().mid(2);
            const QVariant value =
                it.key().startsWith(u'i') ? QVariant(number.toLongLong()) : number.toDouble();
            QString text = formatter.stringForObjectValue(value);
            if (isWritten && isBefore && value.toDouble() < 0)
                text.remove(QChar(0xA0)); // kept from a sign made of letters, "(CHF 5.00)"
            EXPECT_EQ(text, it.value().toString()) << qPrintable(where);
        }
    }
    EXPECT_GE(cells, 1500);
}

TEST(KTCurrencyFormatter, CodesAreThoseOfTheTable)
{
    const QList<QJsonObject> rows = rowsOf(u"formatters/currency_common_codes.jsonl"_s);
    const QStringList codes = rows.first()[u"codes"].toVariant().toStringList();
    EXPECT_EQ(NSLocale::commonISOCurrencyCodes(), codes);
}

TEST(KTCurrencyFormatter, SymbolsAreThoseOfTheTable)
{
    for (const QJsonObject &row : rowsOf(u"formatters/locales.jsonl"_s)) {
        const NSLocale locale(row[u"identifier"].toString());
        EXPECT_EQ(locale.currencyCode(), row[u"currencyCode"].toString());
        EXPECT_EQ(locale.currencySymbol(), row[u"currencySymbol"].toString());
        EXPECT_EQ(locale.calendarIdentifier(), row[u"calendar"].toString());
        EXPECT_EQ(locale.decimalSeparator(), row[u"decimal"].toString());
        const QJsonObject symbols = row[u"display"].toObject();
        for (auto it = symbols.begin(); it != symbols.end(); ++it)
            EXPECT_EQ(locale.displayNameForKey(NSLocaleCurrencySymbol, it.key()),
                      it.value().toString());
    }
}

TEST(KTCurrencyFormatter, ReadsSignsAndNamesAsPeopleWriteThem)
{
    const std::tuple<const char *, const char16_t *, const char *> typed[] = {
        {"ja_JP", u"¥500", "500"},
        {"ja_JP", u"￥500", "500"},
        {"ja_JP", u"-¥1,200", "-1200"},
        {"ja_JP", u"(¥500)", "-500"},
        {"ja_JP", u"500円", "500"},
        {"zh_CN", u"¥5", "5"},
        {"zh_CN", u"￥5", "5"},
        {"ar_EG", u"٥ ج.م.", "5"},
        {"ar_EG", u"٥ ج.م.\u200F", "5"},
        {"ar_AE", u"5 د.إ", "5"},
        {"ar_SA", u"5 ر.س.", "5"},
        {"da_DK", u"5 kr", "5"},
        {"da_DK", u"5 kr.", "5"},
        {"da_DK", u"-5,50 kr", "-5.5"},
        {"bg_BG", u"5 лв", "5"},
        {"de_DE", u"5 Euro", "5"},
        {"de_DE", u"1.234,50 Euro", "1234.5"},
        {"fr_FR", u"5 euros", "5"},
        {"es_ES", u"5 euros", "5"},
        {"en_IE", u"5 euros", "5"},
        {"en_IE", u"1 euro", "1"},
        {"en_US", u"5 US dollars", "5"},
        {"en_US", u"1 US dollar", "1"},
        {"en_GB", u"5 British pounds", "5"},
        {"en_GB", u"5 pounds", "5"},
        {"en_US", u"5 dollars", "5"},
        {"en_US", u"5 Canadian dollars", "NO"},
        {"en_US", u"(5 dollars)", "-5"},
        {"en_US", u"( 5 USD )", "-5"},
        {"en_US", u"(-5 dollars)", "NO"},
        {"en_US", u"((5 dollars))", "NO"},
        {"en_US", u"(($5))", "NO"},
        {"en_US", u"((USD 5))", "NO"},
        {"en_US", u"(--$5)", "NO"},
        {"en_US", u"()", "NO"},
        {"en_US", u"(dollars)", "NO"},
        {"de_DE", u"(5 €)", "-5"},
        {"de_DE", u"(1.234,5 Euro)", "-1234.5"},
        {"sv_SE", u"(5 kr)", "-5"},
        {"fr_CA", u"5 dollars", "5"},
        {"en_IE", u"5 eurocents", "NO"},
        {"ja_JP", u"$500", "NO"},
        {"ja_JP", u"¥", "NO"}};
    for (const auto &[locale, text, value] : typed) {
        const UserLocale user(locale);
        EXPECT_EQ(reading(KTCurrencyFormatter(), text), QString::fromLatin1(value))
            << locale << ' ' << qPrintable(QString::fromUtf16(text));
    }
}

TEST(KTCurrencyFormatter, FindsCurrenciesByWhatPeopleWrite)
{
    const std::tuple<const char *, const char16_t *, const char *> typed[] = {
        {"en_US", u"¥500", "JPY"}, {"da_DK", u"5 kr", nullptr}, {"en_US", u"5 euros", "EUR"},
        {"de_DE", u"¥500", "JPY"}, {"ja_JP", u"¥500", nullptr}, {"fr_FR", u"5 euros", nullptr}};
    for (const auto &[locale, text, code] : typed) {
        const UserLocale user(locale);
        KTCurrencyFormatter formatter;
        EXPECT_EQ(optionsAfterAdjusting(formatter, text).value(kKTFieldOption_currencyType),
                  code ? QVariant(QString::fromLatin1(code)) : QVariant())
            << locale << ' ' << qPrintable(QString::fromUtf16(text));
    }
}

TEST(KTCurrencyFormatter, AnnouncesEveryChangeOfTheCurrency)
{
    KTCurrencyFormatter formatter;
    QSignalSpy types(&formatter, &KTCurrencyFormatter::currencyTypeChanged);
    QSignalSpy places(&formatter, &KTNumberFormatter::decimalPlacesChanged);
    formatter.setCurrencyType(u"KWD"_s);
    EXPECT_EQ(types.count(), 1);
    EXPECT_EQ(places.count(), 1);
    ASSERT_EQ(formatter.adjustForValue(u"€5"_s, nullptr), &formatter);
    EXPECT_EQ(formatter.currencyType(), u"EUR");
    EXPECT_EQ(types.count(), 2);
    EXPECT_EQ(places.count(), 2);
    formatter.setCurrencyType(u"USD"_s);
    EXPECT_EQ(types.count(), 3);
    EXPECT_EQ(places.count(), 2); // two as before
}

TEST(KTCurrencyFormatter, AnnouncesTheCurrencyThatComesWithALocale)
{
    KTCurrencyFormatter formatter;
    formatter.setLocale(NSLocale(u"ja_JP"_s));
    QSignalSpy types(&formatter, &KTCurrencyFormatter::currencyTypeChanged);
    QSignalSpy places(&formatter, &KTNumberFormatter::decimalPlacesChanged);
    formatter.setCurrencyLocale(NSLocale(u"fr_FR"_s));
    EXPECT_EQ(formatter.currencyType(), u"JPY");
    EXPECT_EQ(types.count(), 1);
    EXPECT_EQ(places.count(), 1);
    formatter.setCurrencyLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(types.count(), 1);
    EXPECT_EQ(places.count(), 1);
}

TEST(KTCurrencyFormatter, LeavesTheMinusOfPersianAsItIs)
{
    for (const char *locale : {"fa_IR", "fa_AF", "sv_SE", "en_US", "ar_EG", "he_IL"}) {
        NSNumberFormatter formatter;
        formatter.setLocale(NSLocale(QString::fromLatin1(locale)));
        formatter.setNumberStyle(NSNumberFormatterCurrencyStyle);
        const QString prefix = formatter.negativePrefix();
        const QString suffix = formatter.negativeSuffix();
        KTCurrency::setFormatNegativeUsingParens(formatter, false);
        EXPECT_EQ(formatter.negativePrefix(), prefix) << locale;
        KTCurrency::setFormatNegativeUsingParens(formatter, true);
        EXPECT_TRUE(formatter.negativePrefix().contains(u'(')) << locale;
        EXPECT_FALSE(formatter.negativePrefix().contains(QChar(0x2212))) << locale;
        KTCurrency::setFormatNegativeUsingParens(formatter, false);
        EXPECT_EQ(formatter.negativePrefix(), prefix) << locale;
        EXPECT_EQ(formatter.negativeSuffix(), suffix) << locale;
    }
    const UserLocale user("fa_IR");
    EXPECT_TRUE(KTCurrencyFormatter().stringForObjectValue(-5).contains(QChar(0x2212)));
}

TEST(KTCurrencyFormatter, RejectsUnevenGroupsIfAsked)
{
    const std::tuple<const char *, const char16_t *, const char *, const char *> typed[] = {
        {"de_DE", u"5.00 €", "500", "NO"},
        {"de_DE", u"5,00 €", "5", "5"},
        {"de_DE", u"1.234,50 €", "1234.5", "1234.5"},
        {"de_DE", u"5.00 Euro", "500", "NO"},
        {"en_IE", u"€1,23", "123", "NO"},
        {"en_IE", u"(€1,23)", "-123", "NO"},
        {"en_IE", u"€1,230.5", "1230.5", "1230.5"},
        {"en_ZA", u"R5.50", "550", "NO"},
        {"de_CH", u"1,50", "150", "NO"},
        {"de_CH", u"CHF 1.50", "1.5", "1.5"},
        {"de_CH", u"CHF 1,50", "150", "NO"},
        {"ja_JP", u"¥1,23", "123", "NO"},
        {"ja_JP", u"¥1,234", "1234", "1234"}};
    for (const auto &[locale, text, lenient, strict] : typed) {
        const UserLocale user(locale);
        KTCurrencyFormatter formatter;
        EXPECT_EQ(reading(formatter, text), QString::fromLatin1(lenient))
            << locale << ' ' << qPrintable(QString::fromUtf16(text));
        formatter.setRejectsUnevenGroups(true);
        EXPECT_EQ(reading(formatter, text), QString::fromLatin1(strict))
            << locale << ' ' << qPrintable(QString::fromUtf16(text));
    }
}

TEST(KTCurrencyFormatter, TellsThatGroupsAreUneven)
{
    KTCurrencyFormatter formatter;
    formatter.setRejectsUnevenGroups(true);
    for (const QString &text : {u"1,23"_s, u"$1,23"_s, u"($1,23)"_s, u"1,23 US dollars"_s}) {
        QString error;
        EXPECT_FALSE(formatter.getObjectValue(nullptr, text, &error));
        EXPECT_EQ(error, KTNumberFormatter::unevenGroupsDescription()) << qPrintable(text);
        EXPECT_FALSE(formatter.getObjectValue(nullptr, text)) << qPrintable(text);
    }
    EXPECT_EQ(formatter.adjustForValue(u"1,23"_s, nullptr), nullptr);
}

TEST(KTCurrencyFormatter, ReadsWhatItShowsInEveryLocaleAlsoWithEvenGroupsOnly)
{
    for (const QString &locale : NSLocale::availableLocaleIdentifiers()) {
        const UserLocale user(locale);
        KTCurrencyFormatter formatter;
        formatter.setRejectsUnevenGroups(true);
        for (const QString &code : {formatter.currencyType(), u"EUR"_s, u"KWD"_s, u"CNY"_s}) {
            formatter.setCurrencyType(code);
            for (const int amount : {0, 5, -1234, 1234567}) {
                formatter.setFormatNegativeUsingParens(amount == -1234);
                const QString text = formatter.stringForObjectValue(amount);
                EXPECT_EQ(reading(formatter, text), QString::number(amount))
                    << qPrintable(locale + u' ' + text);
            }
        }
    }
}
