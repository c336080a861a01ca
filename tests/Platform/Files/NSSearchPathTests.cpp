#include <KTUtility/NSSearchPath>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;
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
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory), QStringList(home + u"/.local/share"_s));
    EXPECT_EQ(foldersFor(NSLibraryDirectory), QStringList(home + u"/.local/share/Cobble"_s));
}

TEST(NSSearchPath, TheDataFolderOfTheEnvironmentWins)
{
    useFreshHome();
    qputenv("XDG_DATA_HOME", "/somewhere/data/");
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory), QStringList{u"/somewhere/data"_s});
    EXPECT_EQ(foldersFor(NSLibraryDirectory), QStringList{u"/somewhere/data/Cobble"_s});
    qunsetenv("HOME");
    EXPECT_EQ(foldersFor(NSLibraryDirectory), QStringList{u"/somewhere/data/Cobble"_s});
    useFreshHome();
}

TEST(NSSearchPath, RelativeOrEmptyDataFoldersAreIgnored)
{
    const QString home = useFreshHome();
    for (const QByteArray &folder : {QByteArray("data"), QByteArray(""), QByteArray("~/data")}) {
        qputenv("XDG_DATA_HOME", folder);
        EXPECT_EQ(foldersFor(NSApplicationSupportDirectory),
                  QStringList(home + u"/.local/share"_s));
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
    EXPECT_EQ(foldersFor(NSLibraryDirectory, false), QStringList{u"~/.local/share/Cobble"_s});
    qputenv("XDG_DATA_HOME", QString(home + u"-other"_s).toLocal8Bit());
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory, false), QStringList(home + u"-other"_s));
    useFreshHome();
}

TEST(NSSearchPath, TheRootCanBeAHome)
{
    useFreshHome();
    qputenv("HOME", "/");
    EXPECT_EQ(foldersFor(NSApplicationSupportDirectory), QStringList{u"/.local/share"_s});
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

TEST(NSSearchPath, TemporaryFilesGoIntoAFolderOfTheUsersOwn)
{
    const QTemporaryDir shared;
    const EnvironmentGuard guard("TMPDIR", QFile::encodeName(shared.path()));
    // One that is the user's alone is used as it is.
    ASSERT_EQ(::chmod(QFile::encodeName(shared.path()).constData(), 0700), 0);
    EXPECT_EQ(NSTemporaryDirectory(), shared.path());

    ASSERT_EQ(::chmod(QFile::encodeName(shared.path()).constData(), 01777), 0);
    const QString folder = NSTemporaryDirectory();
    EXPECT_EQ(QFileInfo(folder).path(), shared.path());
    EXPECT_EQ(QFileInfo(folder).permissions() & ~QFile::Permissions(0x7700), QFile::Permissions());
    EXPECT_EQ(NSTemporaryDirectory(), folder);

    // All processes of the user have the same one, and none is left over.
    EXPECT_EQ(QFileInfo(folder).fileName(), u"Cobble-%1"_s.arg(::geteuid()));
    EXPECT_EQ(QDir(shared.path()).entryList(QDir::AllDirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST(NSSearchPath, TemporaryFilesGoIntoNothingOfSomebodyElse)
{
    const QTemporaryDir shared;
    const EnvironmentGuard guard("TMPDIR", QFile::encodeName(shared.path()));
    ASSERT_EQ(::chmod(QFile::encodeName(shared.path()).constData(), 01777), 0);
    const QString usual = shared.filePath(u"Cobble-%1"_s.arg(::geteuid()));
    const auto expectAnother = [&usual] {
        const QString other = NSTemporaryDirectory();
        EXPECT_NE(other, usual);
        EXPECT_TRUE(QFileInfo(other).isDir());
        EXPECT_FALSE(QFileInfo(other).isSymLink());
        EXPECT_EQ(NSTemporaryDirectory(), other);
    };
    // A link in its place is not followed.
    ASSERT_TRUE(QFile::link(u"/tmp"_s, usual));
    expectAnother();
    ASSERT_TRUE(QFile::remove(usual));
    ASSERT_TRUE(QDir().mkdir(usual));
    ASSERT_EQ(::chmod(QFile::encodeName(usual).constData(), 0777), 0);
    expectAnother();
    ASSERT_EQ(::chmod(QFile::encodeName(usual).constData(), 0700), 0);
    EXPECT_EQ(NSTemporaryDirectory(), usual);
}

TEST(NSSearchPath, AFolderOfOneProcessIsRemovedAtItsEnd)
{
    const QTemporaryDir shared;
    const EnvironmentGuard guard("TMPDIR", QFile::encodeName(shared.path()));
    ASSERT_EQ(::chmod(QFile::encodeName(shared.path()).constData(), 01777), 0);
    ASSERT_TRUE(QFile::link(u"/tmp"_s, shared.filePath(u"Cobble-%1"_s.arg(::geteuid()))));
    EXPECT_EXIT(std::exit(NSTemporaryDirectory().startsWith(shared.path()) ? 0 : 1),
                testing::ExitedWithCode(0), "");
    EXPECT_EQ(QDir(shared.path()).entryList(QDir::AllDirs | QDir::NoDotAndDotDot).size(), 1);
}

TEST(NSSearchPath, TemporaryFilesGoWhereTheSystemHasThemWithoutTheirFolder)
{
    const EnvironmentGuard guard("TMPDIR", "/nowhere/at/all");
    const QString folder = NSTemporaryDirectory();
    EXPECT_EQ(QFileInfo(folder).path(), u"/tmp"_s);
    QDir().rmdir(folder);
}
