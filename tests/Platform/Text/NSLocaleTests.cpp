#include <KTUtility/NSLocale>

#include "support/TestSupport.h"

#include <QJsonObject>
#include <QLocale>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QVariant valueNamed(const NSLocale &locale, const QString &name)
{
    static const QHash<QString, QString> keys{{u"currencyCode"_s, NSLocaleCurrencyCode},
                                              {u"calendarIdentifier"_s, NSLocaleCalendar},
                                              {u"collatorIdentifier"_s, NSLocaleIdentifier}};
    return locale.objectForKey(keys.value(name, name));
}

NSLocale localeOfRow(const QJsonObject &row)
{
    const NSLocale locale(row[u"locale"].toString());
    if (row[u"op"].toString() == u"locale values")
        return locale;
    QVariantMap components = NSLocale::componentsFromLocaleIdentifier(locale.localeIdentifier());
    components[NSLocaleCurrencyCode] = u"USD"_s;
    return NSLocale(NSLocale::localeIdentifierFromComponents(components));
}

/// Back to the pinned locale, however a test ends.
struct CurrentLocaleGuard
{
    ~CurrentLocaleGuard() { NSLocale::resetCurrentLocale(); }
};
} // namespace

TEST(NSLocale, AnswersAsTheTableSays)
{
    const QList<QJsonObject> rows = rowsOf(u"platform/locales.jsonl"_s);
    ASSERT_GE(rows.size(), 11);
    for (const QJsonObject &row : rows) {
        const NSLocale locale = localeOfRow(row);
        const QJsonObject expected = row[u"expected"].toObject();
        for (auto it = expected.begin(); it != expected.end(); ++it)
            EXPECT_EQ(valueNamed(locale, it.key()).toString(), it.value().toString())
                << qPrintable(row[u"locale"].toString() + u' ' + it.key());
    }
}

TEST(NSLocale, RunsItsExample)
{
    const NSLocale germany(u"de_DE"_s);
    EXPECT_EQ(germany.currencyCode(), u"EUR");
    EXPECT_EQ(germany.decimalSeparator(), u",");
    EXPECT_EQ(germany.groupingSeparator(), u".");
    EXPECT_EQ(germany.displayNameForKey(NSLocaleCurrencySymbol, u"GBP"_s), u"£");
}

TEST(NSLocale, WritesMoneyOfOtherCountriesApartFromItsOwn)
{
    const NSLocale canada(u"en_CA"_s);
    EXPECT_EQ(canada.currencySymbol(), u"$");
    EXPECT_EQ(canada.displayNameForKey(NSLocaleCurrencySymbol, u"USD"_s), u"US$");
    EXPECT_EQ(canada.displayNameForKey(NSLocaleCurrencySymbol, u"QQQ"_s), u"QQQ");
    EXPECT_EQ(canada.displayNameForKey(NSLocaleCurrencySymbol, u"dollar"_s), QString());
    EXPECT_EQ(NSLocale(u"ja_JP"_s).currencySymbol(), u"￥");
}

TEST(NSLocale, NamesPartsInItsLanguage)
{
    const NSLocale france(u"fr_FR"_s);
    const auto name = [&](const QString &key, const char16_t *value) {
        return france.displayNameForKey(key, QString::fromUtf16(value));
    };
    EXPECT_EQ(name(NSLocaleLanguageCode, u"de"), u"allemand");
    EXPECT_EQ(name(NSLocaleCountryCode, u"DE"), u"Allemagne");
    EXPECT_EQ(name(NSLocaleScriptCode, u"Cyrl"), u"cyrillique");
    EXPECT_EQ(name(NSLocaleIdentifier, u"de_AT"), u"allemand (Autriche)");
    EXPECT_EQ(name(NSLocaleCurrencyCode, u"JPY"), u"yen japonais");
    EXPECT_EQ(name(NSLocaleCalendar, u"japanese"), u"calendrier japonais");
    EXPECT_EQ(name(u"shoeSize"_s, u"42"), QString());
}

TEST(NSLocale, SpellsIdentifiersInOneWay)
{
    EXPECT_EQ(NSLocale(u"en-us"_s).localeIdentifier(), u"en_US");
    EXPECT_EQ(NSLocale(u"en-us"_s), NSLocale(u"en_US"_s));
    EXPECT_EQ(NSLocale(u"root"_s), NSLocale());
    EXPECT_FALSE(NSLocale(u"en_US"_s) == NSLocale(u"en_GB"_s));
}

TEST(NSLocale, TakesKeywordsOverTheRegion)
{
    const NSLocale locale(u"ja_JP@calendar=japanese;currency=USD"_s);
    EXPECT_EQ(locale.calendarIdentifier(), NSJapaneseCalendar);
    EXPECT_EQ(locale.currencyCode(), u"USD");
    EXPECT_EQ(locale.countryCode(), u"JP");
    EXPECT_EQ(NSLocale(u"th_TH"_s).calendarIdentifier(), u"buddhist");
}

TEST(NSLocale, SplitsAndJoinsIdentifiers)
{
    const QStringList identifiers{u"en"_s, u"zh_Hant_TW"_s, u"de_DE"_s, u"en_US_POSIX"_s,
                                  u"ja_JP@calendar=japanese;currency=USD"_s};
    for (const QString &identifier : identifiers)
        EXPECT_EQ(NSLocale::localeIdentifierFromComponents(
                      NSLocale::componentsFromLocaleIdentifier(identifier)),
                  identifier);
    const QVariantMap parts = NSLocale::componentsFromLocaleIdentifier(u"zh_Hant_TW"_s);
    EXPECT_EQ(parts.value(NSLocaleScriptCode).toString(), u"Hant");
    EXPECT_EQ(parts.size(), 3);
}

TEST(NSLocale, ListsTheCurrenciesInUse)
{
    const QStringList &codes = NSLocale::commonISOCurrencyCodes();
    EXPECT_EQ(codes.size(), 157);
    EXPECT_EQ(codes.first(), u"AED");
    EXPECT_EQ(codes.indexOf(u"EUR"_s), 43);
    EXPECT_EQ(codes.indexOf(u"USD"_s), 142);
    EXPECT_TRUE(std::is_sorted(codes.begin(), codes.end()));
    for (const QString &code : codes)
        EXPECT_EQ(code.size(), 3) << code.toStdString();
    // Some systems know these, some do not.
    for (const QString &code : {u"XCG"_s, u"ZWG"_s})
        EXPECT_FALSE(codes.contains(code)) << code.toStdString();
}

TEST(NSLocale, ListsTheLocalesThatThereAre)
{
    const QStringList &identifiers = NSLocale::availableLocaleIdentifiers();
    EXPECT_GT(identifiers.size(), 500);
    EXPECT_TRUE(identifiers.contains(u"de_DE"_s));
    EXPECT_FALSE(identifiers.contains(u"xx_YY"_s));
    EXPECT_TRUE(std::is_sorted(identifiers.begin(), identifiers.end()));
}

TEST(NSLocale, FollowsTheApplicationThenQt)
{
    const CurrentLocaleGuard guard;
    EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), u"en_US");
    NSLocale::setCurrentLocale(NSLocale(u"ja_JP@calendar=japanese"_s));
    EXPECT_EQ(NSLocale::currentLocale().calendarIdentifier(), NSJapaneseCalendar);
    NSLocale::resetCurrentLocale();
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Serbian, QLocale::LatinScript, QLocale::Serbia));
    EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), u"sr_Latn_RS");
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), u"en_US");
    QLocale::setDefault(before);
}

TEST(NSLocale, SurvivesIdentifiersThatAreNone)
{
    for (const QString &text : hostileTexts()) {
        const NSLocale locale(text);
        EXPECT_FALSE(locale.decimalSeparator().isEmpty());
        EXPECT_EQ(locale.currencyCode().size(), 3);
        EXPECT_FALSE(locale.calendarIdentifier().isEmpty());
        NSLocale::componentsFromLocaleIdentifier(text);
    }
    EXPECT_EQ(NSLocale(u"xx_YY"_s).decimalSeparator(), u".");
}
