#include <KTUtility/NSLocale>

#include "support/TestSupport.h"

#include <QJsonObject>
#include <QLocale>

using namespace testing_support;

namespace {
QVariant valueNamed(const NSLocale &locale, const QString &name)
{
    static const QHash<QString, QString> keys{
        {QStringLiteral("currencyCode"), NSLocaleCurrencyCode},
        {QStringLiteral("calendarIdentifier"), NSLocaleCalendar},
        {QStringLiteral("collatorIdentifier"), NSLocaleIdentifier}};
    return locale.objectForKey(keys.value(name, name));
}

NSLocale localeOfRow(const QJsonObject &row)
{
    const NSLocale locale(row[u"locale"].toString());
    if (row[u"op"].toString() == u"locale values")
        return locale;
    QVariantMap components = NSLocale::componentsFromLocaleIdentifier(locale.localeIdentifier());
    components[NSLocaleCurrencyCode] = QStringLiteral("USD");
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
    const QList<QJsonObject> rows = rowsOf(QStringLiteral("platform/locales.jsonl"));
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
    const NSLocale germany(QStringLiteral("de_DE"));
    EXPECT_EQ(germany.currencyCode(), u"EUR");
    EXPECT_EQ(germany.decimalSeparator(), u",");
    EXPECT_EQ(germany.groupingSeparator(), u".");
    EXPECT_EQ(germany.displayNameForKey(NSLocaleCurrencySymbol, QStringLiteral("GBP")), u"£");
}

TEST(NSLocale, WritesMoneyOfOtherCountriesApartFromItsOwn)
{
    const NSLocale canada(QStringLiteral("en_CA"));
    EXPECT_EQ(canada.currencySymbol(), u"$");
    EXPECT_EQ(canada.displayNameForKey(NSLocaleCurrencySymbol, QStringLiteral("USD")), u"US$");
    EXPECT_EQ(canada.displayNameForKey(NSLocaleCurrencySymbol, QStringLiteral("QQQ")), u"QQQ");
    EXPECT_EQ(canada.displayNameForKey(NSLocaleCurrencySymbol, QStringLiteral("dollar")),
              QString());
    EXPECT_EQ(NSLocale(QStringLiteral("ja_JP")).currencySymbol(), u"￥");
}

TEST(NSLocale, NamesPartsInItsLanguage)
{
    const NSLocale france(QStringLiteral("fr_FR"));
    const auto name = [&](const QString &key, const char16_t *value) {
        return france.displayNameForKey(key, QString::fromUtf16(value));
    };
    EXPECT_EQ(name(NSLocaleLanguageCode, u"de"), u"allemand");
    EXPECT_EQ(name(NSLocaleCountryCode, u"DE"), u"Allemagne");
    EXPECT_EQ(name(NSLocaleScriptCode, u"Cyrl"), u"cyrillique");
    EXPECT_EQ(name(NSLocaleIdentifier, u"de_AT"), u"allemand (Autriche)");
    EXPECT_EQ(name(NSLocaleCurrencyCode, u"JPY"), u"yen japonais");
    EXPECT_EQ(name(NSLocaleCalendar, u"japanese"), u"calendrier japonais");
    EXPECT_EQ(name(QStringLiteral("shoeSize"), u"42"), QString());
}

TEST(NSLocale, SpellsIdentifiersInOneWay)
{
    EXPECT_EQ(NSLocale(QStringLiteral("en-us")).localeIdentifier(), u"en_US");
    EXPECT_EQ(NSLocale(QStringLiteral("en-us")), NSLocale(QStringLiteral("en_US")));
    EXPECT_EQ(NSLocale(QStringLiteral("root")), NSLocale());
    EXPECT_FALSE(NSLocale(QStringLiteral("en_US")) == NSLocale(QStringLiteral("en_GB")));
}

TEST(NSLocale, TakesKeywordsOverTheRegion)
{
    const NSLocale locale(QStringLiteral("ja_JP@calendar=japanese;currency=USD"));
    EXPECT_EQ(locale.calendarIdentifier(), NSJapaneseCalendar);
    EXPECT_EQ(locale.currencyCode(), u"USD");
    EXPECT_EQ(locale.countryCode(), u"JP");
    EXPECT_EQ(NSLocale(QStringLiteral("th_TH")).calendarIdentifier(), u"buddhist");
}

TEST(NSLocale, SplitsAndJoinsIdentifiers)
{
    const QStringList identifiers{QStringLiteral("en"), QStringLiteral("zh_Hant_TW"),
                                  QStringLiteral("de_DE"), QStringLiteral("en_US_POSIX"),
                                  QStringLiteral("ja_JP@calendar=japanese;currency=USD")};
    for (const QString &identifier : identifiers)
        EXPECT_EQ(NSLocale::localeIdentifierFromComponents(
                      NSLocale::componentsFromLocaleIdentifier(identifier)),
                  identifier);
    const QVariantMap parts =
        NSLocale::componentsFromLocaleIdentifier(QStringLiteral("zh_Hant_TW"));
    EXPECT_EQ(parts.value(NSLocaleScriptCode).toString(), u"Hant");
    EXPECT_EQ(parts.size(), 3);
}

TEST(NSLocale, ListsTheCurrenciesInUse)
{
    const QStringList &codes = NSLocale::commonISOCurrencyCodes();
    EXPECT_EQ(codes.size(), 157);
    EXPECT_EQ(codes.first(), u"AED");
    EXPECT_EQ(codes.indexOf(QStringLiteral("EUR")), 43);
    EXPECT_EQ(codes.indexOf(QStringLiteral("USD")), 142);
    EXPECT_TRUE(std::is_sorted(codes.begin(), codes.end()));
}

TEST(NSLocale, ListsTheLocalesThatThereAre)
{
    const QStringList &identifiers = NSLocale::availableLocaleIdentifiers();
    EXPECT_GT(identifiers.size(), 500);
    EXPECT_TRUE(identifiers.contains(QStringLiteral("de_DE")));
    EXPECT_FALSE(identifiers.contains(QStringLiteral("xx_YY")));
    EXPECT_TRUE(std::is_sorted(identifiers.begin(), identifiers.end()));
}

TEST(NSLocale, FollowsTheApplicationThenQt)
{
    const CurrentLocaleGuard guard;
    EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), u"en_US");
    NSLocale::setCurrentLocale(NSLocale(QStringLiteral("ja_JP@calendar=japanese")));
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
    EXPECT_EQ(NSLocale(QStringLiteral("xx_YY")).decimalSeparator(), u".");
}
