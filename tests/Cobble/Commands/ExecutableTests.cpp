// The program itself, started as people start it.

#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>

#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
struct ProcessResult
{
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;
};

ProcessResult run(const QString &program, const QStringList &arguments)
{
    testing_support::needApplication();
    testing_support::useFreshHome();
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

ProcessResult runCobbleProgram(const QStringList &arguments)
{
    return run(QStringLiteral(COBBLE_EXECUTABLE), arguments);
}

/// Runs a line for the shell in which $COBBLE is the program and $SAMPLE the sample.
ProcessResult runShell(const QString &line)
{
    qputenv("COBBLE", COBBLE_EXECUTABLE);
    qputenv("SAMPLE", COBBLE_SAMPLES "/contacts.csv");
    return run(u"/bin/sh"_s, {u"-c"_s, line});
}
} // namespace

TEST(Executable, ImportsTheSample)
{
    const ProcessResult result =
        runCobbleProgram({u"import"_s, QStringLiteral(COBBLE_SAMPLES "/contacts.csv")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QByteArray());
    EXPECT_TRUE(result.output.contains("Rows read:       302\n"));
    EXPECT_TRUE(result.output.contains("kt_téléphone\n"));
}

TEST(Executable, ImportsTheGermanSampleInGerman)
{
    const ProcessResult result =
        runCobbleProgram({u"import"_s, QStringLiteral(COBBLE_SAMPLES "/contacts-de.csv"),
                          u"--locale"_s, u"de_DE"_s});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QByteArray());
    for (const char *line : {"kt_besuche         number          273   2         27\n",
                             "kt_spende          currency (EUR)  280   3         19\n",
                             "kt_mitgliedSeit    date            276   2         24\n",
                             "kt_stehtAuf        time            271   1         30\n",
                             "kt_mobil           phone           270   0         32\n"})
        EXPECT_TRUE(result.output.contains(line)) << line;
    // How much of the rest is read grows with what is read.
    for (const QString &line :
         {u"kt_zuletztGesehen +date\\+time +27[34] +[01] +28\n"_s,
          u"kt_gesprächszeit +duration +27[789] +[012] +23\n"_s, u"30 +kt_gesprächszeit +90 +"_s})
        EXPECT_TRUE(QString::fromUtf8(result.output).contains(QRegularExpression(line)))
            << line.toStdString();
}

TEST(Executable, SpeaksFrenchAndJapaneseOfDurations)
{
    const auto display = [](const char *locale) {
        return runCobbleProgram({u"format"_s, u"duration"_s, u"93784"_s, u"--locale"_s,
                                 QString::fromLatin1(locale), u"--option"_s,
                                 u"useAbbreviations=no"_s})
            .output;
    };
    EXPECT_TRUE(display("fr_FR").contains("1 jour 2 heures 3 minutes 4 secondes\n"));
    EXPECT_TRUE(display("ja_JP").contains("1 日間 2 時間 3 分間 4 秒間\n"));
    EXPECT_TRUE(display("sv_SE").contains("1 day 2 hours 3 minutes 4 seconds\n"));
}

TEST(Executable, TellsOfAMissingFile)
{
    const ProcessResult result = runCobbleProgram({u"import"_s, u"/no/such.csv"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, QByteArray());
    EXPECT_EQ(result.errors, QByteArray("cobble: /no/such.csv: No such file or directory\n"));
}

TEST(Executable, TellsOfAFolder)
{
    const ProcessResult result = runCobbleProgram({u"import"_s, u"/"_s});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, QByteArray("cobble: /: is a folder, not a file\n"));
}

TEST(Executable, ShowsTheUsageWithoutArguments)
{
    const ProcessResult result = runCobbleProgram({});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, QByteArray());
    EXPECT_TRUE(result.errors.startsWith("Usage: cobble "));
}

TEST(Executable, TellsOfAFullOutput)
{
    const ProcessResult result = runShell(u"\"$COBBLE\" import \"$SAMPLE\" >/dev/full"_s);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, QByteArray("cobble: standard output: No space left on device\n"));
}

TEST(Executable, TellsOfAClosedOutput)
{
    const ProcessResult result = runShell(u"\"$COBBLE\" import \"$SAMPLE\" >&-"_s);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, QByteArray("cobble: standard output: Bad file descriptor\n"));
}

TEST(Executable, EndsWithAllStreamsClosed)
{
    EXPECT_EQ(runShell(u"\"$COBBLE\" --version <&- >&- 2>&-"_s).exitCode, 1);
    EXPECT_EQ(runShell(u"\"$COBBLE\" bogus <&- >&- 2>&-"_s).exitCode, 2);
}

TEST(Executable, ReadsWhatIsPipedIn)
{
    const ProcessResult result =
        runShell(u"cat \"$SAMPLE\" | \"$COBBLE\" import /dev/stdin --library piped"_s);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.contains("Table:           kt_piped\n"));
    EXPECT_TRUE(result.output.contains("Rows read:       302\n"));
}

TEST(Executable, LogsToTheFileWhenAComponentIsOn)
{
    const ProcessResult result =
        runShell(u"\"$COBBLE\" log lifecycle 4 >/dev/null && \"$COBBLE\" --version >/dev/null "
                 "&& cat \"$HOME/.local/share/Cobble/Logs/cobble.log\""_s);
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.contains("[Lifecycle] start: cobble --version\n"))
        << result.output.toStdString();
    EXPECT_TRUE(result.output.endsWith("[Lifecycle] exit code 0\n"));
}

TEST(Executable, OnlyWorkEmptiesTheLog)
{
    const QString log = u"$HOME/.local/share/Cobble/Logs/cobble.log"_s;
    const QString line = u"mkdir -p ${LOG%/*} && echo before > $LOG && "
                         "$COBBLE %1 > /dev/null 2>&1; cat $LOG"_s;
    for (const QString &command : {u"log"_s, u"log --help"_s, u"--help"_s, u"--version"_s,
                                   u"help"_s, u"show"_s, u"names 'First Name'"_s, u"plugins list"_s,
                                   u"parse number 1"_s, u"nonsense"_s, u""_s, u"import --help"_s}) {
        const ProcessResult kept = runShell(u"LOG="_s + log + u"; "_s + line.arg(command));
        EXPECT_EQ(kept.output, "before\n") << command.toStdString();
    }
    const ProcessResult begun = runShell(u"LOG="_s + log + u"; "_s + line.arg(u"import $SAMPLE"_s));
    EXPECT_EQ(begun.output, "");
}

TEST(Executable, TheBundleDescribesItself)
{
    const auto description = NSDictionary::dictionaryWithContentsOfFile(
        QStringLiteral(COBBLE_BUNDLE_CONTENTS "/Info.plist"));
    ASSERT_TRUE(description);
    const QVariantMap expected = {
        {u"CFBundleIdentifier"_s, u"org.cobble.Cobble"_s},
        {u"CFBundleName"_s, u"Cobble"_s},
        {u"CFBundleExecutable"_s, u"cobble"_s},
        {u"CFBundleShortVersionString"_s, QStringLiteral(COBBLE_VERSION)},
        {u"CFBundlePackageType"_s, u"APPL"_s},
    };
    EXPECT_EQ(*description, expected);
}

TEST(Executable, TheBundleHoldsTheSample)
{
    EXPECT_EQ(testing_support::contentsOf(
                  QStringLiteral(COBBLE_BUNDLE_CONTENTS "/Resources/Samples/contacts.csv")),
              testing_support::contentsOf(QStringLiteral(COBBLE_SAMPLES "/contacts.csv")));
}
