#include <KTUtility/Formatters/CurrencyCandidates_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QStringList candidates(const QString &locale, const QString &text)
{
    return CurrencyCandidates::of(NSLocale(locale), text);
}

const QStringList locales{u"en_US"_s, u"en_GB"_s, u"de_DE"_s, u"fr_FR"_s, u"ja_JP"_s,
                          u"ar_EG"_s, u"hi_IN"_s, u"xx_YY"_s, QString()};
} // namespace

TEST(CurrencyCandidates, SomeCurrenciesAreNotOffered)
{
    for (const QString &code : {QString(), u"INR"_s, u"RON"_s})
        EXPECT_TRUE(CurrencyCandidates::isRejected(code)) << code.toStdString();
    for (const QString &code : {u"USD"_s, u"EUR"_s, u"JPY"_s, u"inr"_s, u"INRX"_s, u""_s})
        EXPECT_FALSE(CurrencyCandidates::isRejected(code)) << code.toStdString();
}

TEST(CurrencyCandidates, AreNamedInTheText)
{
    struct Row
    {
        const char16_t *locale;
        const char16_t *text;
        const char16_t *code;
    };
    const Row rows[] = {
        {u"en_US", u"5 EUR", u"EUR"},
        {u"en_US", u"EUR5", u"EUR"},
        {u"en_US", u"€5", u"EUR"},
        {u"en_US", u"$5", u"USD"},
        {u"en_US", u"5 US dollars", u"USD"},
        {u"en_US", u"1 euro", u"EUR"},
        {u"en_GB", u"£5", u"GBP"},
        {u"de_DE", u"5 €", u"EUR"},
        {u"de_DE", u"5 US-Dollar", u"USD"},
        {u"fr_FR", u"5 euros", u"EUR"},
        {u"fr_FR", u"5 $US", u"USD"},
        {u"ja_JP", u"5 ユーロ", u"EUR"},
        // In any case, in compatibility characters, and with signs that look alike.
        {u"en_US", u"5 eur", u"EUR"},
        {u"de_DE", u"5 us-dollar", u"USD"},
        {u"en_US", u"５ ＥＵＲ", u"EUR"},
        {u"en_US", u"＄5", u"USD"},
        {u"en_US", u"₤5", u"GBP"},
    };
    for (const Row &row : rows) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_TRUE(
            candidates(QString::fromUtf16(row.locale), text).contains(QStringView(row.code)))
            << text.toStdString();
    }
}

TEST(CurrencyCandidates, AreNoneWithoutAName)
{
    for (const QString &text : {QString(), u""_s, u"5"_s, u"-1,234.50"_s, u" "_s, u"( )"_s})
        EXPECT_TRUE(candidates(u"en_US"_s, text).isEmpty()) << text.toStdString();
    EXPECT_TRUE(candidates(u"en_US"_s, u"5 INR"_s).isEmpty());
    EXPECT_TRUE(candidates(u"en_US"_s, u"5 RON"_s).isEmpty());
    EXPECT_TRUE(candidates(u"en_US"_s, u"5 ユーロ"_s).isEmpty());
}

TEST(CurrencyCandidates, StandInTheOrderOfTheCommonOnes)
{
    const QStringList all = NSLocale::commonISOCurrencyCodes();
    for (const QString &locale : locales) {
        const QStringList found = candidates(locale, all.join(u' '));
        QStringList expected = all;
        expected.removeIf(CurrencyCandidates::isRejected);
        EXPECT_EQ(found, expected) << locale.toStdString();
    }
    EXPECT_EQ(candidates(u"en_US"_s, u"USD or EUR"_s), candidates(u"en_US"_s, u"EUR or USD"_s));
}

TEST(CurrencyCandidates, EachIsFoundByItsCodeAlone)
{
    for (const QString &locale : locales) {
        for (const QString &code : NSLocale::commonISOCurrencyCodes())
            EXPECT_EQ(candidates(locale, u"5 " + code).contains(code),
                      !CurrencyCandidates::isRejected(code))
                << locale.toStdString() << ' ' << code.toStdString();
    }
}

TEST(CurrencyCandidates, OnlyTheBeginningOfATextIsLookedAt)
{
    EXPECT_EQ(candidates(u"en_US"_s, QString(1021, u'1') + u"EUR"), QStringList(u"EUR"_s));
    EXPECT_TRUE(candidates(u"en_US"_s, QString(1022, u'1') + u"EUR").isEmpty());
    EXPECT_TRUE(candidates(u"en_US"_s, megabyteOf(u"1"_s) + u"EUR").isEmpty());
    EXPECT_EQ(candidates(u"en_US"_s, u"EUR" + megabyteOf(u"1"_s)), QStringList(u"EUR"_s));
}

TEST(CurrencyCandidates, AreNamedInHostileTextsToo)
{
    for (const QString &text : hostileTexts())
        EXPECT_TRUE(candidates(u"en_US"_s, u"EUR 5" + text).contains(u"EUR"_s));
}
