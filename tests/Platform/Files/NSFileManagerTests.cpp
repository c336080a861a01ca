#include <KTUtility/NSFileManager>

#include "support/TestSupport.h"

#include <QFile>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
struct Existence
{
    bool exists;
    bool isDirectory;
    bool operator==(const Existence &) const = default;
};

Existence existenceOf(const QString &path)
{
    bool isDirectory = true;
    const bool exists = NSFileManager::fileExistsAtPath(path, &isDirectory);
    return {exists, isDirectory};
}
} // namespace

TEST(NSFileManager, FilesAndFoldersExist)
{
    const QString home = useFreshHome();
    writeFile(home + u"/file"_s, "x");
    EXPECT_EQ(existenceOf(home), (Existence{true, true}));
    EXPECT_EQ(existenceOf(home + u"/file"_s), (Existence{true, false}));
    EXPECT_EQ(existenceOf(home + u"/none"_s), (Existence{false, false}));
    EXPECT_EQ(existenceOf(home + u"/file/none"_s), (Existence{false, false}));
    EXPECT_TRUE(NSFileManager::fileExistsAtPath(home));
}

TEST(NSFileManager, LinksAreFollowed)
{
    const QString home = useFreshHome();
    const QString toFolder = home + u"/folder"_s;
    const QString toNothing = home + u"/nothing"_s;
    const QString toItself = home + u"/loop"_s;
    ASSERT_TRUE(QFile::link(home, toFolder));
    ASSERT_TRUE(QFile::link(home + u"/none"_s, toNothing));
    ASSERT_TRUE(QFile::link(toItself, toItself));
    EXPECT_EQ(existenceOf(toFolder), (Existence{true, true}));
    EXPECT_EQ(existenceOf(toNothing), (Existence{false, false}));
    EXPECT_EQ(existenceOf(toItself), (Existence{false, false}));
}

TEST(NSFileManager, HostilePathsDoNotExistAndAreNotMade)
{
    const QString home = useFreshHome();
    writeFile(home + u"/?"_s, "the name that a lone surrogate would be written as");
    const QList<QString> paths = {
        QString(),
        u""_s,
        QString(home + QChar(0)),
        QString(home + QChar(0) + u'a'),
        QString(home + u'/' + QChar(0xD800)),
        QString(home + u'/' + megabyteOf(u"a"_s)),
    };
    for (const QString &path : paths) {
        EXPECT_EQ(existenceOf(path), (Existence{false, false}));
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(path, true));
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(path, false));
    }
}

TEST(NSFileManager, NamesOfAllScriptsWork)
{
    const QString path = useFreshHome() + u"/姓 名 😀 é"_s;
    EXPECT_TRUE(NSFileManager::createDirectoryAtPath(path, false));
    EXPECT_EQ(existenceOf(path), (Existence{true, true}));
}

TEST(NSFileManager, IntermediateFoldersAreMadeIfAsked)
{
    const QString home = useFreshHome();
    const QString deep = home + u"/a/b/c"_s;
    EXPECT_FALSE(NSFileManager::createDirectoryAtPath(deep, false));
    EXPECT_TRUE(NSFileManager::createDirectoryAtPath(deep, true));
    EXPECT_EQ(existenceOf(deep), (Existence{true, true}));
}

TEST(NSFileManager, AnExistingFolderIsASuccessOnlyWithIntermediateOnes)
{
    const QString home = useFreshHome();
    EXPECT_TRUE(NSFileManager::createDirectoryAtPath(home, true));
    EXPECT_FALSE(NSFileManager::createDirectoryAtPath(home, false));
}

TEST(NSFileManager, AFileInTheWayIsAFailure)
{
    const QString file = useFreshHome() + u"/file"_s;
    writeFile(file, "kept");
    for (const bool withIntermediate : {true, false}) {
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(file, withIntermediate));
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(file + u"/a"_s, withIntermediate));
    }
    EXPECT_EQ(contentsOf(file), QByteArray("kept"));
}

TEST(NSFileManager, PermissionsAreSet)
{
    const QString file = useFreshHome() + u"/file"_s;
    EXPECT_FALSE(NSFileManager::setPosixPermissions(file, 0600));
    EXPECT_FALSE(NSFileManager::setPosixPermissions(QString(), 0600));
    writeFile(file, "kept");
    for (const unsigned permissions : {0600U, 0400U, 0755U}) {
        EXPECT_TRUE(NSFileManager::setPosixPermissions(file, permissions));
        const QFile::Permissions found = QFile::permissions(file);
        EXPECT_EQ(found.testFlag(QFile::WriteOwner), (permissions & 0200) != 0);
        EXPECT_EQ(found.testFlag(QFile::ExeOther), (permissions & 0001) != 0);
    }
}
