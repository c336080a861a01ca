#include "CommandSupport.h"

#include "support/TestSupport.h"

#include <QDir>

namespace {
CommandResult log(const QStringList &arguments = {})
{
    return runInProcess(QStringList(QStringLiteral("log")) + arguments);
}

CommandResult setLevel(const QString &component, const QString &level)
{
    return log({component, level});
}

QString settingsPath(const QString &home)
{
    return QString(home + u"/.local/share/Cobble/Preferences/org.cobble.Cobble.ktlogger.plist");
}

int levelOf(const QString &component)
{
    return KTLogger().levelOfComponent(component);
}
} // namespace

TEST(LogCommand, ListsPlacesAndComponents)
{
    const QString home = testing_support::useFreshHome();
    const CommandResult result = log();
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.startsWith(
        QString(u"Output:    " + home + u"/.local/share/Cobble/Logs/cobble.log\nSettings:  " +
                settingsPath(home) + u"\n\nLevel  Component\n0      AppleScript\n")))
        << result.output.toStdString();
    EXPECT_EQ(result.output.count(u'\n'), 4 + KTLogger().allComponentsArray().size());
    EXPECT_TRUE(result.output.endsWith(QStringLiteral("\n0      Upgrade\n")));
}

TEST(LogCommand, ListingSavesNothing)
{
    const QString home = testing_support::useFreshHome();
    log();
    EXPECT_FALSE(QFile::exists(settingsPath(home)));
}

TEST(LogCommand, SetsAndSavesALevel)
{
    testing_support::useFreshHome();
    const CommandResult result = setLevel(QStringLiteral("Import Dialog"), QStringLiteral("4"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, QStringLiteral("Import Dialog: 4\n"));
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(levelOf(kLog_ImportDialog), 4);
    EXPECT_TRUE(log().output.contains(QStringLiteral("\n4      Import Dialog\n")));
}

TEST(LogCommand, ComponentsAreFoundWhateverTheCapitals)
{
    testing_support::useFreshHome();
    EXPECT_EQ(setLevel(QStringLiteral("DRAG & drop"), QStringLiteral("7")).output,
              QStringLiteral("Drag & Drop: 7\n"));
    EXPECT_EQ(levelOf(kLog_DragDrop), 7);
}

TEST(LogCommand, AWrongComponentChangesNothing)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(setLevel(QStringLiteral("invalid"), QStringLiteral("7")).exitCode, 2);
    EXPECT_FALSE(QFile::exists(settingsPath(home)));
}

TEST(LogCommand, OutputCanBeSetBeforeAnyLevel)
{
    testing_support::useFreshHome();
    EXPECT_EQ(log({QStringLiteral("--to"), QStringLiteral("console")}).output,
              QStringLiteral("Output: console\n"));
    EXPECT_FALSE(KTLogger().writeToFile());
    EXPECT_TRUE(log().output.startsWith(QStringLiteral("Output:    console\n")));
    EXPECT_EQ(log({QStringLiteral("--to"), QStringLiteral("file")}).exitCode, 0);
    EXPECT_TRUE(KTLogger().writeToFile());
}

TEST(LogCommand, FileAndLineIsSetNotToggled)
{
    testing_support::useFreshHome();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(log({QStringLiteral("--file-line"), QStringLiteral("on")}).exitCode, 0);
        EXPECT_TRUE(KTLogger().displayFileLine());
    }
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(log({QStringLiteral("--file-line=off")}).exitCode, 0);
        EXPECT_FALSE(KTLogger().displayFileLine());
    }
}

TEST(LogCommand, ConsoleWithFileAndLineInOneCall)
{
    testing_support::useFreshHome();
    EXPECT_EQ(log({QStringLiteral("--to=console"), QStringLiteral("--file-line=on")}).output,
              QStringLiteral("Output: console, with file and line\n"));
}

TEST(LogCommand, ClearSwitchesEverythingOff)
{
    testing_support::useFreshHome();
    setLevel(QStringLiteral("Undo"), QStringLiteral("7"));
    setLevel(QStringLiteral("Upgrade"), QStringLiteral("1"));
    EXPECT_EQ(log({QStringLiteral("--clear")}).output, QStringLiteral("All components: 0\n"));
    EXPECT_EQ(levelOf(kLog_Undo), 0);
    EXPECT_EQ(levelOf(kLog_Upgrade), 0);
}

TEST(LogCommand, ClearWorksBeforeAnyLevel)
{
    testing_support::useFreshHome();
    EXPECT_EQ(log({QStringLiteral("--clear")}).exitCode, 0);
}

TEST(LogCommand, ClearComesFirst)
{
    testing_support::useFreshHome();
    setLevel(QStringLiteral("Undo"), QStringLiteral("7"));
    const CommandResult result =
        log({QStringLiteral("Upgrade"), QStringLiteral("3"), QStringLiteral("--clear")});
    EXPECT_EQ(result.output, QStringLiteral("All components: 0\nUpgrade: 3\n"));
    EXPECT_EQ(levelOf(kLog_Undo), 0);
    EXPECT_EQ(levelOf(kLog_Upgrade), 3);
}

TEST(LogCommand, SettingsThatCannotBeSavedAreAFailure)
{
    const QString home = testing_support::useFreshHome();
    // A folder in the place of the file.
    ASSERT_TRUE(QDir().mkpath(settingsPath(home) + u"/in the way"));
    const QList<QStringList> changes = {
        {QStringLiteral("Undo"), QStringLiteral("4")},
        {QStringLiteral("--to"), QStringLiteral("console")},
        {QStringLiteral("--file-line"), QStringLiteral("on")},
        {QStringLiteral("--clear")},
    };
    for (const QStringList &change : changes) {
        const CommandResult result = log(change);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, QString());
        EXPECT_EQ(result.errors,
                  QString(u"cobble: " + settingsPath(home) + u": cannot be saved\n"));
    }
}

TEST(LogCommand, BrokenSettingsCountAsEmptyOnes)
{
    const QString home = testing_support::useFreshHome();
    testing_support::writeFile(settingsPath(home), "<plist><dict>\xff");
    EXPECT_EQ(log().exitCode, 0);
    EXPECT_EQ(setLevel(QStringLiteral("Undo"), QStringLiteral("4")).exitCode, 0);
    EXPECT_EQ(levelOf(kLog_Undo), 4);
}

TEST(LogCommand, WithoutAHomeThereAreNoSettings)
{
    testing_support::useFreshHome();
    qunsetenv("HOME");
    const CommandResult listed = log();
    const CommandResult changed = setLevel(QStringLiteral("Undo"), QStringLiteral("4"));
    testing_support::useFreshHome();
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_TRUE(
        listed.output.contains(QStringLiteral("\nSettings:  none, as there is no home folder\n")));
    EXPECT_EQ(changed.exitCode, 1);
    EXPECT_EQ(changed.errors, QStringLiteral("cobble: settings: cannot be saved\n"));
}
