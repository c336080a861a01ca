#include "Commands/ComponentNames.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
const QStringList &components()
{
    static const QStringList names = {u"Drag & Drop"_s, u"Form -- Cell"_s, u"Import Dialog"_s,
                                      u"Import XML"_s, u"Undo"_s};
    return names;
}
} // namespace

TEST(ComponentNames, AreFoundExactlyAndWhateverTheCase)
{
    EXPECT_EQ(componentNamed(u"Import Dialog"_s, components()), u"Import Dialog"_s);
    EXPECT_EQ(componentNamed(u"import dialog"_s, components()), u"Import Dialog"_s);
    EXPECT_EQ(componentNamed(u"FORM -- CELL"_s, components()), u"Form -- Cell"_s);
}

TEST(ComponentNames, TheExactOneWins)
{
    const QStringList names = {u"UNDO"_s, u"Undo"_s};
    EXPECT_EQ(componentNamed(u"Undo"_s, names), u"Undo"_s);
}

TEST(ComponentNames, OthersAreNone)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_EQ(componentNamed(text, components()), QString());
    EXPECT_EQ(componentNamed(u"Import"_s, components()), QString());
}

TEST(ComponentNames, NearOnesAreFound)
{
    const QStringList imports = {u"Import Dialog"_s, u"Import XML"_s};
    EXPECT_EQ(componentsNear(u"import"_s, components()), imports);
    EXPECT_EQ(componentsNear(u"impot"_s, components()), imports);
    EXPECT_EQ(componentsNear(u"ImportDialog"_s, components()), imports.first(1));
    EXPECT_EQ(componentsNear(u"the undo part"_s, components()), QStringList(u"Undo"_s));
    EXPECT_EQ(componentsNear(u"cell"_s, components()), QStringList(u"Form -- Cell"_s));
}

TEST(ComponentNames, NothingIsNearStrangeTexts)
{
    EXPECT_TRUE(componentsNear(u"zebra"_s, components()).isEmpty());
    for (const QString &text : testing_support::hostileTexts()) {
        if (text.size() > 100) {
            EXPECT_TRUE(componentsNear(text, components()).isEmpty());
        }
    }
}

TEST(ComponentNames, TheMessageListsNearOnes)
{
    EXPECT_EQ(unknownComponentText(u"impot"_s, components()),
              u"unknown component 'impot'; near it: Import Dialog, Import XML"_s);
    EXPECT_EQ(unknownComponentText(u"zebra"_s, components()),
              u"unknown component 'zebra'; 'cobble log' lists them"_s);
}
