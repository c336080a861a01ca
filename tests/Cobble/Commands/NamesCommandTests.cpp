#include "CommandSupport.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
CommandResult names(const QStringList &texts)
{
    return runInProcess(QStringList(u"names"_s) + texts);
}
} // namespace

TEST(NamesCommand, ShowsEveryTransform)
{
    testing_support::useFreshHome();
    const CommandResult result = names({u"Date of birth"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(result.output, u"Date of birth\n"
                             "  propertyString             dateOfBirth\n"
                             "  entityString               DateOfBirth\n"
                             "  libraryEntityName          lib_date_of_birth\n"
                             "  lowerCaseName              date_of_birth\n"
                             "  tableName                  kt_date_of_birth\n"
                             "  tableColumn                kt_dateOfBirth\n"
                             "  label                      Date Of Birth\n"
                             "  bumpyCase (first small)    dateOfBirth\n"
                             "  bumpyCase (first capital)  DateOfBirth\n"
                             "  properNoun                 Date of birth\n"_s);
}

TEST(NamesCommand, EveryTextHasABlock)
{
    testing_support::useFreshHome();
    const QString output = names({u"a"_s, u"Über Straße"_s, u"公司"_s}).output;
    EXPECT_EQ(output.count(u"propertyString"_s), 3);
    EXPECT_EQ(output.count(u"\n\n"_s), 2);
    EXPECT_TRUE(output.contains(u"\nÜber Straße\n"_s));
    EXPECT_TRUE(output.contains(u" überStraße\n"_s));
    EXPECT_TRUE(output.contains(u" lib_library\n"_s));
}

TEST(NamesCommand, TextsThatBeginWithADashFollowTwo)
{
    testing_support::useFreshHome();
    const CommandResult result = names({u"--"_s, u"-5 units"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.startsWith(u"-5 units\n"_s));
}

TEST(NamesCommand, TheEmptyTextIsAText)
{
    testing_support::useFreshHome();
    const CommandResult result = names({u""_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.startsWith(u"\n  propertyString\n"_s));
}

TEST(NamesCommand, HostileTextsAreAnswered)
{
    testing_support::useFreshHome();
    for (const QString &text : testing_support::hostileTexts()) {
        const CommandResult result = names({u"--"_s, text});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output.count(u'\n'), 11);
    }
}
