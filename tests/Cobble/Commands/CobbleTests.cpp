#include "CommandSupport.h"

#include "Commands/Usage.h"

#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

#include <fcntl.h>
#include <unistd.h>

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

class WrongUsage : public testing::TestWithParam<UsageCase>
{
};

TEST_P(WrongUsage, IsToldWithTheUsage)
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
    All, WrongUsage,
    testing::Values(
        UsageCase{"NoArguments", {}, QString()},
        UsageCase{"EmptyCommand", {QStringLiteral("")}, QStringLiteral("unknown command ''")},
        UsageCase{"UnknownCommand", words(u"publish x"),
                  QStringLiteral("unknown command 'publish'")},
        UsageCase{"CommandInCapitals", words(u"Import x"),
                  QStringLiteral("unknown command 'Import'")},
        UsageCase{"UnknownOption", words(u"--bogus"), QStringLiteral("unknown option '--bogus'")},
        UsageCase{"ImportWithoutFile", words(u"import"),
                  QStringLiteral("import needs the name of a file")},
        UsageCase{"ImportOfNoName",
                  {QStringLiteral("import"), QStringLiteral("")},
                  QStringLiteral("import needs the name of a file")},
        UsageCase{"ImportOfTwoFiles", words(u"import a.csv b.csv"),
                  QStringLiteral("import takes one file, not also 'b.csv'")},
        UsageCase{"ImportUnknownOption", words(u"import a.csv --bogus"),
                  QStringLiteral("unknown option 'bogus'")},
        UsageCase{"ImportLibraryWithoutName", words(u"import a.csv --library"),
                  QStringLiteral("missing value after '--library'")},
        UsageCase{"ImportBlankLibrary",
                  {QStringLiteral("import"), QStringLiteral("a.csv"), QStringLiteral("--library"),
                   QStringLiteral(" ")},
                  QStringLiteral("--library needs a name")},
        UsageCase{"ImportLongSeparator", words(u"import a.csv --separator ::"),
                  QStringLiteral("bad separator '::'")},
        UsageCase{"ImportEmptySeparator", words(u"import a.csv --separator="),
                  QStringLiteral("bad separator ''")},
        UsageCase{"ImportQuoteAsSeparator", words(u"import a.csv --separator \""),
                  QStringLiteral("bad separator '\"'")},
        UsageCase{"NamesWithoutText", words(u"names"), QStringLiteral("names needs a text")},
        UsageCase{"NamesUnknownOption", words(u"names --bogus"),
                  QStringLiteral("unknown option 'bogus'")},
        UsageCase{"LogComponentAlone", words(u"log Undo"),
                  QStringLiteral("log takes a component and a level")},
        UsageCase{"LogThreeTexts", words(u"log Import Dialog 4"),
                  QStringLiteral("log takes a component and a level")},
        UsageCase{"LogUnknownComponent", words(u"log Undoo 4"),
                  QStringLiteral("unknown component 'Undoo'; near it: Undo")},
        UsageCase{"LogLevelAboveSeven", words(u"log Undo 8"),
                  QStringLiteral("bad level '8': levels are 0 to 7")},
        UsageCase{"LogLevelNoNumber", words(u"log Undo high"),
                  QStringLiteral("bad level 'high': levels are 0 to 7")},
        UsageCase{"LogLevelTwoDigits", words(u"log Undo 04"),
                  QStringLiteral("bad level '04': levels are 0 to 7")},
        UsageCase{"LogToNowhere", words(u"log --to printer"),
                  QStringLiteral("--to takes file or console, not 'printer'")},
        UsageCase{"LogFileLine", words(u"log --file-line yes"),
                  QStringLiteral("--file-line takes on or off, not 'yes'")},
        UsageCase{"LogToWithoutValue", words(u"log --to"),
                  QStringLiteral("missing value after '--to'")},
        UsageCase{"LogUnknownOption", words(u"log --bogus"),
                  QStringLiteral("unknown option 'bogus'")}),
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

TEST(Cobble, Version)
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
        EXPECT_EQ(runInProcess({QStringLiteral("log"), text, text}).exitCode, 2);
        EXPECT_NE(runInProcess({QStringLiteral("import"), text}).exitCode, 0);
    }
}

TEST(Cobble, AProcessLogsItsStartAndExitCode)
{
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(nowhere, 0);
    KTLogCapture capture(kLog_Lifecycle, 4);
    EXPECT_EQ(runCobbleProcess(words(u"publish a\tb"), nowhere, nowhere), 2);
    EXPECT_EQ(capture.messages(), QStringList({QStringLiteral("start: cobble publish a\\tb"),
                                               QStringLiteral("exit code 2")}));
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
    EXPECT_EQ(capture.messages().last(), QStringLiteral("exit code 1"));
    ::close(full);
    ::close(errors);
}
