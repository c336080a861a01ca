#include <KTUtility/NSSearchPath>

#include "support/TestSupport.h"

#include <QDir>

using namespace testing_support;

namespace {
QStringList foldersFor(NSSearchPathDirectory directory, bool expandTilde = true)
{
    return NSSearchPathForDirectoriesInDomains(directory, NSUserDomainMask, expandTilde);
}
} // namespace

TEST(NSSearchPath, NumbersAreThePlatforms)
{
    EXPECT_EQ(int(NSLibraryDirectory), 5);
    EXPECT_EQ(int(NSApplicationSupportDirectory), 14);
    EXPECT_EQ(unsigned(NSUserDomainMask), 1u);
}

TEST(NSSearchPath, FoldersLieInTheHome)
{
    const QString home = useFreshHome();
    EXPECT_EQ(NSHomeDirectory(), home);
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory),
              QStringList(home + QStringLiteral("/.local/share")));
    EXPECT_EQ(foldersFor(NSLibraryDirectory),
              QStringList(home + QStringLiteral("/.local/share/Cobble")));
}

TEST(NSSearchPath, TheDataFolderOfTheEnvironmentWins)
{
    useFreshHome();
    qputenv("XDG_DATA_HOME", "/somewhere/data/");
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory),
              QStringList{QStringLiteral("/somewhere/data")});
    EXPECT_EQ(foldersFor(NSLibraryDirectory),
              QStringList{QStringLiteral("/somewhere/data/Cobble")});
    qunsetenv("HOME");
    EXPECT_EQ(foldersFor(NSLibraryDirectory),
              QStringList{QStringLiteral("/somewhere/data/Cobble")});
    useFreshHome();
}

TEST(NSSearchPath, RelativeOrEmptyDataFoldersAreIgnored)
{
    const QString home = useFreshHome();
    for (const QByteArray &folder : {QByteArray("data"), QByteArray(""), QByteArray("~/data")}) {
        qputenv("XDG_DATA_HOME", folder);
        EXPECT_EQ(foldersFor(NSApplicationSupportDirectory),
                  QStringList(home + QStringLiteral("/.local/share")));
    }
    useFreshHome();
}

TEST(NSSearchPath, WithoutHomeAndDataFolderThereIsNothing)
{
    useFreshHome();
    for (const QByteArray &home : {QByteArray(), QByteArray(""), QByteArray("ada")}) {
        home.isNull() ? qunsetenv("HOME") : qputenv("HOME", home);
        EXPECT_TRUE(NSHomeDirectory().isNull());
        EXPECT_TRUE(foldersFor(NSApplicationSupportDirectory).isEmpty());
        EXPECT_TRUE(foldersFor(NSLibraryDirectory).isEmpty());
        EXPECT_TRUE(foldersFor(NSLibraryDirectory, false).isEmpty());
    }
    useFreshHome();
}

TEST(NSSearchPath, ATildeStandsForTheHomeIfAsked)
{
    const QString home = useFreshHome();
    EXPECT_EQ(foldersFor(NSLibraryDirectory, false),
              QStringList{QStringLiteral("~/.local/share/Cobble")});
    qputenv("XDG_DATA_HOME", (home + QStringLiteral("-other")).toLocal8Bit());
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory, false),
              QStringList(home + QStringLiteral("-other")));
    useFreshHome();
}

TEST(NSSearchPath, TheRootCanBeAHome)
{
    useFreshHome();
    qputenv("HOME", "/");
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory),
              QStringList{QStringLiteral("/.local/share")});
    useFreshHome();
}

TEST(NSSearchPath, OtherDomainsAndUnknownFoldersGiveNothing)
{
    useFreshHome();
    EXPECT_TRUE(NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, 0, true).isEmpty());
    EXPECT_TRUE(NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, 2, true).isEmpty());
    EXPECT_EQ(NSSearchPathForDirectoriesInDomains(NSLibraryDirectory, 0xFFFF, true).size(), 1);
    EXPECT_TRUE(foldersFor(NSSearchPathDirectory(7)).isEmpty());
}

TEST(NSSearchPath, TemporaryFilesGoWhereTheSystemSays)
{
    EXPECT_EQ(NSTemporaryDirectory(), QDir::tempPath());
}
