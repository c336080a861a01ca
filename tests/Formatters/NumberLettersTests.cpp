#include <KTUtility/Formatters/CurrencyNames_p.h>
#include <KTUtility/Formatters/NumberLetters_p.h>

#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSNumberFormatter>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
bool mayBeAmount(const QString &text, const QString &locale, const QString &code)
{
    return NumberLetters::mayBeAmount(text, NSLocale(locale), code, u"$"_s);
}

/// As fields for money read.
std::unique_ptr<NSNumberFormatter> moneyFormatter(const NSLocale &locale, const QString &code)
{
    auto formatter = std::make_unique<NSNumberFormatter>();
    formatter->setNumberStyle(NSNumberFormatterCurrencyStyle);
    formatter->setGeneratesDecimalNumbers(true);
    formatter->setLocale(locale);
    formatter->setLenient(true);
    formatter->setCurrencyCode(code);
    return formatter;
}
} // namespace

TEST(NumberLetters, AreThoseOfNumbers)
{
    const NSLocale american(u"en_US"_s);
    for (const QString &text : {u""_s, u"5"_s, u"1.5e3"_s, u"NaN"_s, u"\uFF15 \u30C9"_s})
        EXPECT_TRUE(NumberLetters::mayBeNumber(text, american)) << qPrintable(text);
    for (const QString &text : {u"5 cows"_s, u"x"_s, u"5m"_s})
        EXPECT_FALSE(NumberLetters::mayBeNumber(text, american)) << qPrintable(text);
}

TEST(NumberLetters, FieldsRefuseTheSameWithAndWithoutAReason)
{
    const KTNumberFormatter formatter;
    for (const QString &text : {u"5"_s, u"5 cows"_s, u"1e3"_s, u"NaN"_s, u"5e"_s, u"an 5"_s,
                                u"\uFF15x"_s, u"x"_s, u"(5)"_s, u"(5 x)"_s}) {
        QVariant value = 7;
        QVariant explained = 7;
        QString reason;
        EXPECT_EQ(formatter.getObjectValue(&value, text),
                  formatter.getObjectValue(&explained, text, &reason))
            << qPrintable(text);
        EXPECT_EQ(value, explained) << qPrintable(text);
    }
}

TEST(NumberLetters, AreThoseOfTheCurrency)
{
    EXPECT_TRUE(mayBeAmount(u"5"_s, u"en_US"_s, u"USD"_s));
    EXPECT_TRUE(mayBeAmount(u"5 US dollars"_s, u"en_US"_s, u"USD"_s));
    EXPECT_TRUE(mayBeAmount(u"usd 5E3"_s, u"en_US"_s, u"USD"_s));
    EXPECT_TRUE(mayBeAmount(u"5 \u30C9\u30EB"_s, u"en_US"_s, u"USD"_s));
    EXPECT_FALSE(mayBeAmount(u"5 cows"_s, u"en_US"_s, u"USD"_s));
    EXPECT_FALSE(mayBeAmount(u"5 EUR and more"_s, u"de_DE"_s, u"EUR"_s));
    EXPECT_TRUE(mayBeAmount(u"CHF 5"_s, u"de_CH"_s, u"CHF"_s));
}

TEST(NumberLetters, WhatTheyRefuseNoFormatterReads)
{
    const QStringList words{u"usd"_s, u"EUR"_s, u"kr"_s,    u"Fr."_s,  u"Ft"_s,   u"z\u0142"_s,
                            u"R$"_s,  u"e"_s,   u"NaN"_s,   u"CAD"_s,  u"cows"_s, u"yen"_s,
                            u"lei"_s, u"K"_s,   u"euros"_s, u"pesos"_s};
    int refused = 0;
    for (const char *identifier : {"en_US", "de_CH", "sv_SE", "fr_CA", "pl_PL", "ro_RO", "pt_BR"}) {
        const NSLocale locale(QString::fromLatin1(identifier));
        for (const QString &code : {u"USD"_s, u"EUR"_s, u"SEK"_s, u"CHF"_s, u"PLN"_s, u"BRL"_s}) {
            const auto formatter = moneyFormatter(locale, code);
            for (const QString &word : words + CurrencyNames::of(locale, code)) {
                for (const QString &text :
                     {u"5 %1"_s.arg(word), QString(word + u'5'), u"-%1 5"_s.arg(word)}) {
                    QVariant amount;
                    const bool mayBe =
                        NumberLetters::mayBeAmount(text, locale, code, formatter->currencySymbol());
                    refused += !mayBe;
                    EXPECT_FALSE(!mayBe && formatter->getObjectValue(&amount, text))
                        << identifier << ' ' << qPrintable(code + u": " + text);
                }
            }
        }
    }
    EXPECT_GT(refused, 500);
}
