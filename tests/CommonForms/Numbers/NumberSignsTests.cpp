// The signs of numbers and of money.

#include <KTUtility/CommonForms/Numbers/NumberSigns_p.h>
#include <KTUtility/NSNumberFormatter>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(NumberSigns, AreThoseOfTheLocaleAsTheyAreFolded)
{
    struct Row
    {
        const char *locale;
        QStringView points;
        QStringView groups;
        int otherGroupSize;
    };
    const Row rows[] = {
        {"en_US", u".", u",", 3}, {"de_DE", u",", u".", 3}, {"fr_FR", u",", u" ", 3},
        {"de_CH", u".", u"'", 3}, {"hi_IN", u".", u",", 2}, {"ar_EG", u"\u066B", u"\u066C", 3},
    };
    for (const Row &row : rows) {
        const auto signs = NumberSigns::of(NSLocale(QString::fromLatin1(row.locale)));
        EXPECT_EQ(signs->points, row.points) << row.locale;
        EXPECT_EQ(signs->groups, row.groups) << row.locale;
        EXPECT_EQ(signs->groupSize, 3) << row.locale;
        EXPECT_EQ(signs->otherGroupSize, row.otherGroupSize) << row.locale;
    }
}

TEST(NumberSigns, OfMoneyMayBeOthers)
{
    const NSLocale locale(u"de_AT"_s);
    EXPECT_EQ(NumberSigns::of(locale)->groups, u" "_s);
    EXPECT_TRUE(NumberSigns::ofMoney(locale, u"EUR"_s)->isPoint(u','));
    const NSLocale portugal(u"pt_PT"_s);
    EXPECT_TRUE(NumberSigns::ofMoney(portugal, u"PTE"_s)->isPoint(u'$'));
    EXPECT_FALSE(NumberSigns::of(portugal)->isPoint(u'$'));
}

TEST(NumberSigns, AreFoundOutOnce)
{
    const NSLocale locale(u"sv_SE"_s);
    EXPECT_EQ(NumberSigns::of(locale), NumberSigns::of(locale));
}

TEST(NumberSigns, HaveTheGroupsOfPercentagesToo)
{
    for (const QString &identifier : NSLocale::availableLocaleIdentifiers()) {
        const NSLocale locale(identifier);
        NSNumberFormatter percent;
        percent.setLocale(locale);
        percent.setNumberStyle(NSNumberFormatterPercentStyle);
        const auto signs = NumberSigns::of(locale);
        // None in some.
        const QSet<int> sizes{0, 3, signs->groupSize, signs->otherGroupSize};
        EXPECT_TRUE(sizes.contains(percent.groupingSize())) << qPrintable(identifier);
    }
}
