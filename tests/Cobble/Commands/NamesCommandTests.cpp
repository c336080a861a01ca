#include "CommandSupport.h"

#include "support/TestSupport.h"

namespace {
CommandResult names(const QStringList &texts)
{
    return runInProcess(QStringList(QStringLiteral("names")) + texts);
}
} // namespace

TEST(NamesCommand, ShowsEveryTransform)
{
    testing_support::useFreshHome();
    const CommandResult result = names({QStringLiteral("Date of birth")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(result.output, QStringLiteral("Date of birth\n"
                                            "  propertyString             dateOfBirth\n"
                                            "  entityString               DateOfBirth\n"
                                            "  libraryEntityName          lib_date_of_birth\n"
                                            "  lowerCaseName              date_of_birth\n"
                                            "  tableName                  kt_date_of_birth\n"
                                            "  tableColumn                kt_dateOfBirth\n"
                                            "  label                      Date Of Birth\n"
                                            "  bumpyCase (first small)    dateOfBirth\n"
                                            "  bumpyCase (first capital)  DateOfBirth\n"
                                            "  properNoun                 Date of birth\n"));
}

TEST(NamesCommand, EveryTextHasABlock)
{
    testing_support::useFreshHome();
    const QString output =
        names({QStringLiteral("a"), QStringLiteral("Über Straße"), QStringLiteral("公司")}).output;
    EXPECT_EQ(output.count(QStringLiteral("propertyString")), 3);
    EXPECT_EQ(output.count(QStringLiteral("\n\n")), 2);
    EXPECT_TRUE(output.contains(QStringLiteral("\nÜber Straße\n")));
    EXPECT_TRUE(output.contains(QStringLiteral(" überStraße\n")));
    EXPECT_TRUE(output.contains(QStringLiteral(" lib_library\n")));
}

TEST(NamesCommand, TextsThatBeginWithADashFollowTwo)
{
    testing_support::useFreshHome();
    const CommandResult result = names({QStringLiteral("--"), QStringLiteral("-5 units")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.startsWith(QStringLiteral("-5 units\n")));
}

TEST(NamesCommand, TheEmptyTextIsAText)
{
    testing_support::useFreshHome();
    const CommandResult result = names({QStringLiteral("")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.startsWith(QStringLiteral("\n  propertyString\n")));
}

TEST(NamesCommand, HostileTextsAreAnswered)
{
    testing_support::useFreshHome();
    for (const QString &text : testing_support::hostileTexts()) {
        const CommandResult result = names({QStringLiteral("--"), text});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output.count(u'\n'), 11);
    }
}
