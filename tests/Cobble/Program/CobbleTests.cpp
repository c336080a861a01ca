#include "Cobble/Commands/CommandSupport.h"

#include "Commands/Usage.h"

#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
struct UsageCase
{
    const char *name;
    QStringList arguments;
    QString message;
};

void PrintTo(const UsageCase &row, std::ostream *stream)
{
    *stream << row.name;
}

QStringList words(const char16_t *text)
{
    return QString::fromUtf16(text).split(u' ', Qt::SkipEmptyParts);
}
} // namespace

class CobbleUsageTests : public testing::TestWithParam<UsageCase>
{
};

TEST_P(CobbleUsageTests, IsToldWithTheUsage)
{
    testing_support::useFreshHome();
    const CommandResult result = runInProcess(GetParam().arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, QString());
    const QString message = GetParam().message;
    const QString line = message.isNull() ? QString() : QString(u"cobble: " + message + u'\n');
    EXPECT_EQ(result.errors, QString(line + usageText()));
}

INSTANTIATE_TEST_SUITE_P(
    All, CobbleUsageTests,
    testing::Values(
        UsageCase{"NoArguments", {}, QString()},
        UsageCase{"EmptyCommand", {u""_s}, u"unknown command ''"_s},
        UsageCase{"UnknownCommand", words(u"publish x"), u"unknown command 'publish'"_s},
        UsageCase{"CommandInCapitals", words(u"Import x"), u"unknown command 'Import'"_s},
        UsageCase{"UnknownOption", words(u"--bogus"), u"unknown option '--bogus'"_s},
        UsageCase{"ImportWithoutFile", words(u"import"), u"import needs the name of a file"_s},
        UsageCase{"ImportOfNoName", {u"import"_s, u""_s}, u"import needs the name of a file"_s},
        UsageCase{"ImportOfTwoFiles", words(u"import a.csv b.csv"),
                  u"import takes one file, not also 'b.csv'"_s},
        UsageCase{"ImportUnknownOption", words(u"import a.csv --bogus"),
                  u"unknown option 'bogus'"_s},
        UsageCase{"ImportLibraryWithoutName", words(u"import a.csv --library"),
                  u"missing value after '--library'"_s},
        UsageCase{"ImportBlankLibrary",
                  {u"import"_s, u"a.csv"_s, u"--library"_s, u" "_s},
                  u"--library needs a name"_s},
        UsageCase{"ImportLongSeparator", words(u"import a.csv --separator ::"),
                  u"bad separator '::'"_s},
        UsageCase{"ImportEmptySeparator", words(u"import a.csv --separator="),
                  u"bad separator ''"_s},
        UsageCase{"ImportQuoteAsSeparator", words(u"import a.csv --separator \""),
                  u"bad separator '\"'"_s},
        UsageCase{"NamesWithoutText", words(u"names"), u"names needs a text"_s},
        UsageCase{"NamesUnknownOption", words(u"names --bogus"), u"unknown option 'bogus'"_s},
        UsageCase{"LogComponentAlone", words(u"log Undo"), u"log takes a component and a level"_s},
        UsageCase{"LogThreeTexts", words(u"log Import Dialog 4"),
                  u"log takes a component and a level"_s},
        UsageCase{"LogUnknownComponent", words(u"log Undoo 4"),
                  u"unknown component 'Undoo'; near it: Undo"_s},
        UsageCase{"LogLevelAboveSeven", words(u"log Undo 8"),
                  u"bad level '8': levels are 0 to 7"_s},
        UsageCase{"LogLevelNoNumber", words(u"log Undo high"),
                  u"bad level 'high': levels are 0 to 7"_s},
        UsageCase{"LogLevelTwoDigits", words(u"log Undo 04"),
                  u"bad level '04': levels are 0 to 7"_s},
        UsageCase{"LogToNowhere", words(u"log --to printer"),
                  u"--to takes file or console, not 'printer'"_s},
        UsageCase{"LogFileLine", words(u"log --file-line yes"),
                  u"--file-line takes on or off, not 'yes'"_s},
        UsageCase{"LogToWithoutValue", words(u"log --to"), u"missing value after '--to'"_s},
        UsageCase{"LogUnknownOption", words(u"log --bogus"), u"unknown option 'bogus'"_s}),
    [](const auto &row) { return row.param.name; });

TEST(Cobble, HelpIsTheUsageOnTheOutput)
{
    testing_support::useFreshHome();
    for (const char16_t *line : {u"--help", u"help", u"-h", u"help import", u"import --help",
                                 u"names --help", u"log --help"}) {
        const CommandResult result = runInProcess(words(line));
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.output, usageText());
        EXPECT_EQ(result.errors, QString());
    }
}

TEST(Cobble, TheUsageFitsATerminalAndNamesEveryCommand)
{
    const QStringList lines = usageText().split(u'\n');
    for (const QString &line : lines)
        EXPECT_LE(line.size(), 80) << line.toStdString();
    for (const char16_t *command :
         {u"cobble import", u"cobble names", u"cobble log", u"cobble help", u"cobble --version"})
        EXPECT_TRUE(usageText().contains(QString::fromUtf16(command)));
}

TEST(Cobble, TellsItsVersion)
{
    testing_support::useFreshHome();
    const CommandResult result = runInProcess(words(u"--version"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, QStringLiteral("Cobble " COBBLE_VERSION "\n"));
}

TEST(Cobble, HostileArgumentsAreAnswered)
{
    testing_support::useFreshHome();
    for (const QString &text : testing_support::hostileTexts()) {
        EXPECT_EQ(runInProcess({text}).exitCode, 2);
        EXPECT_EQ(runInProcess({u"log"_s, text, text}).exitCode, 2);
        EXPECT_NE(runInProcess({u"import"_s, text}).exitCode, 0);
    }
}

TEST(Cobble, AProcessLogsItsStartAndExitCode)
{
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(nowhere, 0);
    KTLogCapture capture(kLog_Lifecycle, 4);
    EXPECT_EQ(runCobbleProcess(words(u"publish a\tb"), nowhere, nowhere), 2);
    EXPECT_EQ(capture.messages(),
              QStringList({u"start: cobble publish a\\tb"_s, u"exit code 2"_s}));
    ::close(nowhere);
}

TEST(Cobble, ResultsThatCannotBeWrittenAreAFailure)
{
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    const QString home = testing_support::useFreshHome();
    const QString errorPath = home + u"/errors";
    const int errors =
        ::open(errorPath.toLocal8Bit().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(errors, 0);
    KTLogCapture capture(kLog_Lifecycle, 4);
    EXPECT_EQ(runCobbleProcess(words(u"--version"), full, errors), 1);
    EXPECT_EQ(testing_support::contentsOf(errorPath),
              "cobble: standard output: No space left on device\n");
    EXPECT_EQ(capture.messages().last(), u"exit code 1"_s);
    ::close(full);
    ::close(errors);
}
