#include "Commands/ComponentNames.h"

#include "support/TestSupport.h"

namespace {
const QStringList &components()
{
    static const QStringList names = {QStringLiteral("Drag & Drop"), QStringLiteral("Form -- Cell"),
                                      QStringLiteral("Import Dialog"), QStringLiteral("Import XML"),
                                      QStringLiteral("Undo")};
    return names;
}
} // namespace

TEST(ComponentNames, ExactAndCaseInsensitive)
{
    EXPECT_EQ(componentNamed(QStringLiteral("Import Dialog"), components()),
              QStringLiteral("Import Dialog"));
    EXPECT_EQ(componentNamed(QStringLiteral("import dialog"), components()),
              QStringLiteral("Import Dialog"));
    EXPECT_EQ(componentNamed(QStringLiteral("FORM -- CELL"), components()),
              QStringLiteral("Form -- Cell"));
}

TEST(ComponentNames, TheExactOneWins)
{
    const QStringList names = {QStringLiteral("UNDO"), QStringLiteral("Undo")};
    EXPECT_EQ(componentNamed(QStringLiteral("Undo"), names), QStringLiteral("Undo"));
}

TEST(ComponentNames, OthersAreNone)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_EQ(componentNamed(text, components()), QString());
    EXPECT_EQ(componentNamed(QStringLiteral("Import"), components()), QString());
}

TEST(ComponentNames, NearOnes)
{
    const QStringList imports = {QStringLiteral("Import Dialog"), QStringLiteral("Import XML")};
    EXPECT_EQ(componentsNear(QStringLiteral("import"), components()), imports);
    EXPECT_EQ(componentsNear(QStringLiteral("impot"), components()), imports);
    EXPECT_EQ(componentsNear(QStringLiteral("ImportDialog"), components()), imports.first(1));
    EXPECT_EQ(componentsNear(QStringLiteral("the undo part"), components()),
              QStringList(QStringLiteral("Undo")));
    EXPECT_EQ(componentsNear(QStringLiteral("cell"), components()),
              QStringList(QStringLiteral("Form -- Cell")));
}

TEST(ComponentNames, NothingIsNearStrangeTexts)
{
    EXPECT_TRUE(componentsNear(QStringLiteral("zebra"), components()).isEmpty());
    for (const QString &text : testing_support::hostileTexts()) {
        if (text.size() > 100) {
            EXPECT_TRUE(componentsNear(text, components()).isEmpty());
        }
    }
}

TEST(ComponentNames, TheMessageListsNearOnes)
{
    EXPECT_EQ(unknownComponentText(QStringLiteral("impot"), components()),
              QStringLiteral("unknown component 'impot'; near it: Import Dialog, Import XML"));
    EXPECT_EQ(unknownComponentText(QStringLiteral("zebra"), components()),
              QStringLiteral("unknown component 'zebra'; 'cobble log' lists them"));
}
