#include "CommandSupport.h"

#include "support/TestSupport.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {
CommandResult log(const QStringList &arguments = {})
{
    return runInProcess(QStringList(u"log"_s) + arguments);
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
    EXPECT_TRUE(result.output.endsWith(u"\n0      Upgrade\n"_s));
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
    const CommandResult result = setLevel(u"Import Dialog"_s, u"4"_s);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, u"Import Dialog: 4\n"_s);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(levelOf(kLog_ImportDialog), 4);
    EXPECT_TRUE(log().output.contains(u"\n4      Import Dialog\n"_s));
}

TEST(LogCommand, ComponentsAreFoundWhateverTheCapitals)
{
    testing_support::useFreshHome();
    EXPECT_EQ(setLevel(u"DRAG & drop"_s, u"7"_s).output, u"Drag & Drop: 7\n"_s);
    EXPECT_EQ(levelOf(kLog_DragDrop), 7);
}

TEST(LogCommand, AWrongComponentChangesNothing)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(setLevel(u"invalid"_s, u"7"_s).exitCode, 2);
    EXPECT_FALSE(QFile::exists(settingsPath(home)));
}

TEST(LogCommand, OutputCanBeSetBeforeAnyLevel)
{
    testing_support::useFreshHome();
    EXPECT_EQ(log({u"--to"_s, u"console"_s}).output, u"Output: console\n"_s);
    EXPECT_FALSE(KTLogger().writeToFile());
    EXPECT_TRUE(log().output.startsWith(u"Output:    console\n"_s));
    EXPECT_EQ(log({u"--to"_s, u"file"_s}).exitCode, 0);
    EXPECT_TRUE(KTLogger().writeToFile());
}

TEST(LogCommand, FileAndLineIsSetNotToggled)
{
    testing_support::useFreshHome();
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(log({u"--file-line"_s, u"on"_s}).exitCode, 0);
        EXPECT_TRUE(KTLogger().displayFileLine());
    }
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(log({u"--file-line=off"_s}).exitCode, 0);
        EXPECT_FALSE(KTLogger().displayFileLine());
    }
}

TEST(LogCommand, ConsoleWithFileAndLineInOneCall)
{
    testing_support::useFreshHome();
    EXPECT_EQ(log({u"--to=console"_s, u"--file-line=on"_s}).output,
              u"Output: console, with file and line\n"_s);
}

TEST(LogCommand, ClearSwitchesEverythingOff)
{
    testing_support::useFreshHome();
    setLevel(u"Undo"_s, u"7"_s);
    setLevel(u"Upgrade"_s, u"1"_s);
    EXPECT_EQ(log({u"--clear"_s}).output, u"All components: 0\n"_s);
    EXPECT_EQ(levelOf(kLog_Undo), 0);
    EXPECT_EQ(levelOf(kLog_Upgrade), 0);
}

TEST(LogCommand, ClearWorksBeforeAnyLevel)
{
    testing_support::useFreshHome();
    EXPECT_EQ(log({u"--clear"_s}).exitCode, 0);
}

TEST(LogCommand, ClearComesFirst)
{
    testing_support::useFreshHome();
    setLevel(u"Undo"_s, u"7"_s);
    const CommandResult result = log({u"Upgrade"_s, u"3"_s, u"--clear"_s});
    EXPECT_EQ(result.output, u"All components: 0\nUpgrade: 3\n"_s);
    EXPECT_EQ(levelOf(kLog_Undo), 0);
    EXPECT_EQ(levelOf(kLog_Upgrade), 3);
}

TEST(LogCommand, SettingsThatCannotBeSavedAreAFailure)
{
    const QString home = testing_support::useFreshHome();
    // A folder in the place of the file.
    ASSERT_TRUE(QDir().mkpath(settingsPath(home) + u"/in the way"));
    const QList<QStringList> changes = {
        {u"Undo"_s, u"4"_s},
        {u"--to"_s, u"console"_s},
        {u"--file-line"_s, u"on"_s},
        {u"--clear"_s},
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
    EXPECT_EQ(setLevel(u"Undo"_s, u"4"_s).exitCode, 0);
    EXPECT_EQ(levelOf(kLog_Undo), 4);
}

TEST(LogCommand, WithoutAHomeThereAreNoSettings)
{
    testing_support::useFreshHome();
    qunsetenv("HOME");
    const CommandResult listed = log();
    const CommandResult changed = setLevel(u"Undo"_s, u"4"_s);
    testing_support::useFreshHome();
    EXPECT_EQ(listed.exitCode, 0);
    EXPECT_TRUE(listed.output.contains(u"\nSettings:  none, as there is no home folder\n"_s));
    EXPECT_EQ(changed.exitCode, 1);
    EXPECT_EQ(changed.errors, u"cobble: settings: cannot be saved\n"_s);
}
