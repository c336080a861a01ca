#include "Commands/UserSettings.h"

#include "support/TestSupport.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSLocale>

using namespace Qt::StringLiterals;

namespace {
Outcome<> checkLocale(const QStringList &arguments)
{
    QCommandLineParser parser;
    UserSettings::addLocaleOption(&parser);
    EXPECT_TRUE(parser.parse(QStringList(u"cobble"_s) + arguments));
    return UserSettings::checkLocale(parser);
}

QString mistakeIn(const QString &option)
{
    KTNumberFormatter formatter;
    return UserSettings::apply({option}, &formatter).reason();
}
} // namespace

TEST(UserSettings, LocalesWithALanguageThatThereIsWillDo)
{
    for (const QString &locale : {u"de_DE"_s, u"en"_s, u"fr_XX"_s})
        EXPECT_TRUE(checkLocale({u"--locale"_s, locale})) << locale.toStdString();
    EXPECT_TRUE(checkLocale({}));
    for (const QString &locale : {u"xx"_s, u"german"_s, u""_s})
        EXPECT_EQ(checkLocale({u"--locale"_s, locale}).reason(),
                  u"unknown locale '%1'"_s.arg(locale));
}

TEST(UserSettings, SetsTheOptionsOfAFormatter)
{
    KTCurrencyFormatter formatter;
    EXPECT_TRUE(UserSettings::apply({u"currencyType=GBP"_s, u"formatNegativeUsingParens=yes"_s},
                                    &formatter));
    EXPECT_EQ(formatter.currencyType(), u"GBP"_s);
    EXPECT_EQ(formatter.options().value(u"formatNegativeUsingParens"_s), QVariant(true));
    EXPECT_TRUE(UserSettings::apply({u"formatNegativeUsingParens=OFF"_s}, &formatter));
    EXPECT_EQ(formatter.options().value(u"formatNegativeUsingParens"_s), QVariant(false));
}

TEST(UserSettings, TellsOfOptionsThatThereAreNot)
{
    for (const QString &option : {u"colour=red"_s, u"decimalPlaces"_s, u"=2"_s, u""_s})
        EXPECT_TRUE(mistakeIn(option).startsWith(u"bad option '%1'; there are "_s.arg(option)))
            << mistakeIn(option).toStdString();
}

TEST(UserSettings, TellsOfDatesWithoutAnyStyle)
{
    const auto mistakeIn = [](NSFormatter &&formatter, const QStringList &options) {
        return UserSettings::apply(options, &formatter).reason();
    };
    const QString mistake = u"dateStyle and timeStyle cannot both be 0"_s;
    EXPECT_EQ(mistakeIn(KTDateTimeFormatter(), {u"dateStyle=0"_s}), mistake);
    EXPECT_EQ(mistakeIn(KTTimeFormatter(), {u"timeStyle=0"_s}), mistake);
    EXPECT_EQ(mistakeIn(KTDateTimeFormatter(), {u"timeStyle=2"_s, u"dateStyle=0"_s}), QString());
    EXPECT_EQ(mistakeIn(KTDateTimeFormatter(), {u"dateStyle=0"_s, u"timeStyle=1"_s}), QString());
    EXPECT_EQ(mistakeIn(KTDateTimeFormatter(), {}), QString());
}

TEST(UserSettings, TellsOfValuesThatAreNone)
{
    EXPECT_EQ(mistakeIn(u"decimalPlaces=two"_s), u"bad value 'two' for decimalPlaces"_s);
    EXPECT_EQ(mistakeIn(u"decimalPlaces="_s), u"bad value '' for decimalPlaces"_s);
    EXPECT_TRUE(mistakeIn(u"decimalPlaces=2"_s).isNull());
}

TEST(UserSettings, StopsAtTheFirstMistake)
{
    KTCurrencyFormatter formatter;
    EXPECT_FALSE(UserSettings::apply({u"none=1"_s, u"currencyType=GBP"_s}, &formatter));
    EXPECT_NE(formatter.currencyType(), u"GBP"_s);
}

TEST(UserSettings, AScopeIsTheUsersLocaleWhileItLasts)
{
    const QString before = NSLocale::currentLocale().localeIdentifier();
    {
        const LocaleScope scope(u"ja_JP"_s);
        EXPECT_EQ(NSLocale::currentLocale().languageCode(), u"ja"_s);
        const LocaleScope same{QString()};
        EXPECT_EQ(NSLocale::currentLocale().languageCode(), u"ja"_s);
    }
    EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), before);
}

TEST(UserSettings, CurrenciesHaveCodesOfThreeCapitals)
{
    KTCurrencyFormatter formatter;
    for (const QString &code : {u"inr"_s, u"EURO"_s, u"EU"_s, u""_s, u"E1R"_s, u"ÄÖÜ"_s}) {
        EXPECT_EQ(UserSettings::apply({QString(u"currencyType="_s + code)}, &formatter).reason(),
                  u"bad value '%1' for currencyType"_s.arg(code));
        EXPECT_EQ(formatter.currencyType(), u"USD"_s);
    }
    EXPECT_TRUE(UserSettings::apply({u"currencyType=EUR"_s}, &formatter));
}
