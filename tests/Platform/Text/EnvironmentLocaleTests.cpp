#include <KTUtility/NSLocale>
#include <KTUtility/Platform/Text/EnvironmentLocale_p.h>

#include "support/DefaultLocale.h"
#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
constexpr std::array Variables{"LC_ALL", "LC_NUMERIC",  "LC_MONETARY", "LC_TIME",
                               "LANG",   "LC_MESSAGES", "LANGUAGE"};

/// What the environment names, and nothing else of it.
using Named = QMap<QByteArray, QByteArray>;

/// The identifiers of the four categories: numbers, money, dates, texts.
QStringList identifiersWith(const Named &named)
{
    std::vector<EnvironmentGuard> guards;
    guards.reserve(Variables.size());
    for (const char *const variable : Variables)
        guards.emplace_back(variable, named.value(variable));
    using Category = NSLocale::Category;
    QStringList identifiers;
    for (const Category category :
         {Category::Numbers, Category::Money, Category::Dates, Category::Texts})
        identifiers += NSLocale::currentLocale(category).localeIdentifier();
    return identifiers;
}
} // namespace

TEST(EnvironmentLocale, ReadsNamesOfTheSystem)
{
    struct Row
    {
        QByteArray name;
        QString identifier;
    };
    const Row rows[] = {
        {"C", u"en_US"_s},
        {"POSIX", u"en_US"_s},
        {"C.UTF-8", u"en_US"_s},
        {"C.utf8@anything", u"en_US"_s},
        {"de_DE", u"de_DE"_s},
        {"de_CH.UTF-8", u"de_CH"_s},
        {"de_AT.ISO-8859-15@euro", u"de_AT"_s},
        {"de_AT@euro", u"de_AT"_s},
        {"sr_RS@latin", u"sr_Latn_RS"_s},
        {"sr_RS.UTF-8@latin", u"sr_Latn_RS"_s},
        {"sr@latin", u"sr_Latn"_s},
        {"uz_UZ.UTF-8@cyrillic", u"uz_Cyrl_UZ"_s},
        {"ks_IN@devanagari", u"ks_Deva_IN"_s},
        {"tt_RU.UTF-8@iqtelif", u"tt_Latn_RU"_s},
        {"be_BY@latin", u"be_Latn_BY"_s},
        {"gez_ER@abegede", u"gez_ER"_s},
        {"aa_ER@saaho", u"ssy_ER"_s},
        {"ca_ES.UTF-8@valencia", u"ca_ES_VALENCIA"_s},
        {"ja_JP.UTF-8@calendar=japanese", u"ja_JP@calendar=japanese"_s},
        {"de_CH@currency=EUR", u"de_CH@currency=EUR"_s},
        {"eo", u"eo"_s},
    };
    for (const Row &row : rows)
        EXPECT_EQ(EnvironmentLocale::identifierOf(row.name), row.identifier) << row.name.data();
}

TEST(EnvironmentLocale, EachCategoryFollowsItsVariable)
{
    const DefaultLocale unchanged(QLocale::system());
    struct Row
    {
        Named named;
        QStringList identifiers;
    };
    const Row rows[] = {
        {{}, {u"en_US"_s, u"en_US"_s, u"en_US"_s, u"en_US"_s}},
        {{{"LANG", "de_DE.UTF-8"}}, {u"de_DE"_s, u"de_DE"_s, u"de_DE"_s, u"de_DE"_s}},
        // English texts in Germany.
        {{{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "en"}},
         {u"de_DE"_s, u"de_DE"_s, u"de_DE"_s, u"en"_s}},
        {{{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "fr_FR:en"}},
         {u"de_DE"_s, u"de_DE"_s, u"de_DE"_s, u"fr_FR"_s}},
        // What desktops set for "formats of another region".
        {{{"LANG", "en_US.UTF-8"},
          {"LC_NUMERIC", "de_CH.UTF-8"},
          {"LC_MONETARY", "fr_CH.UTF-8"},
          {"LC_TIME", "en_GB.UTF-8"}},
         {u"de_CH"_s, u"fr_CH"_s, u"en_GB"_s, u"en_US"_s}},
        {{{"LANG", "en_US.UTF-8"}, {"LC_MESSAGES", "ja_JP.UTF-8"}},
         {u"en_US"_s, u"en_US"_s, u"en_US"_s, u"ja_JP"_s}},
        {{{"LC_ALL", "fr_FR.UTF-8"}, {"LC_NUMERIC", "de_DE.UTF-8"}, {"LANG", "ja_JP.UTF-8"}},
         {u"fr_FR"_s, u"fr_FR"_s, u"fr_FR"_s, u"fr_FR"_s}},
        // Empty is as good as not set.
        {{{"LC_ALL", ""}, {"LC_NUMERIC", ""}, {"LANG", "fr_FR.UTF-8"}, {"LANGUAGE", ""}},
         {u"fr_FR"_s, u"fr_FR"_s, u"fr_FR"_s, u"fr_FR"_s}},
        // gettext(3): LANGUAGE means nothing in the "C" locale.
        {{{"LANG", "C.UTF-8"}, {"LANGUAGE", "de"}},
         {u"en_US"_s, u"en_US"_s, u"en_US"_s, u"en_US"_s}},
        {{{"LC_ALL", "C"}, {"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "de"}},
         {u"en_US"_s, u"en_US"_s, u"en_US"_s, u"en_US"_s}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(identifiersWith(row.named), row.identifiers);
}

TEST(EnvironmentLocale, WhatTheApplicationChoseComesFirst)
{
    const Named german{{"LC_ALL", "de_DE.UTF-8"}};
    const DefaultLocale unchanged(QLocale::system());
    EXPECT_EQ(identifiersWith(german), QStringList(4, u"de_DE"_s));
    {
        const DefaultLocale japanese(QLocale(u"ja_JP"_s));
        EXPECT_EQ(identifiersWith(german), QStringList(4, u"ja_JP"_s));
        NSLocale::setCurrentLocale(NSLocale(u"fr_CH"_s));
        EXPECT_EQ(identifiersWith(german), QStringList(4, u"fr_CH"_s));
        NSLocale::resetCurrentLocale();
    }
    EXPECT_EQ(identifiersWith(german), QStringList(4, u"de_DE"_s));
}
