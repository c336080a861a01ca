#include <KTUtility/NSFileManager>

#include "support/TestSupport.h"

#include <QFile>

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
    writeFile(home + QStringLiteral("/file"), "x");
    EXPECT_EQ(existenceOf(home), (Existence{true, true}));
    EXPECT_EQ(existenceOf(home + QStringLiteral("/file")), (Existence{true, false}));
    EXPECT_EQ(existenceOf(home + QStringLiteral("/none")), (Existence{false, false}));
    EXPECT_EQ(existenceOf(home + QStringLiteral("/file/none")), (Existence{false, false}));
    EXPECT_TRUE(NSFileManager::fileExistsAtPath(home));
}

TEST(NSFileManager, LinksAreFollowed)
{
    const QString home = useFreshHome();
    const QString toFolder = home + QStringLiteral("/folder");
    const QString toNothing = home + QStringLiteral("/nothing");
    const QString toItself = home + QStringLiteral("/loop");
    ASSERT_TRUE(QFile::link(home, toFolder));
    ASSERT_TRUE(QFile::link(home + QStringLiteral("/none"), toNothing));
    ASSERT_TRUE(QFile::link(toItself, toItself));
    EXPECT_EQ(existenceOf(toFolder), (Existence{true, true}));
    EXPECT_EQ(existenceOf(toNothing), (Existence{false, false}));
    EXPECT_EQ(existenceOf(toItself), (Existence{false, false}));
}

TEST(NSFileManager, HostilePathsDoNotExistAndAreNotMade)
{
    const QString home = useFreshHome();
    writeFile(home + QStringLiteral("/?"), "the name that a lone surrogate would be written as");
    const QList<QString> paths = {
        QString(),
        QStringLiteral(""),
        QString(home + QChar(0)),
        QString(home + QChar(0) + u'a'),
        QString(home + u'/' + QChar(0xD800)),
        QString(home + u'/' + megabyteOf(QStringLiteral("a"))),
    };
    for (const QString &path : paths) {
        EXPECT_EQ(existenceOf(path), (Existence{false, false}));
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(path, true));
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(path, false));
    }
}

TEST(NSFileManager, NamesOfAllScriptsWork)
{
    const QString path = useFreshHome() + QStringLiteral("/姓 名 😀 é");
    EXPECT_TRUE(NSFileManager::createDirectoryAtPath(path, false));
    EXPECT_EQ(existenceOf(path), (Existence{true, true}));
}

TEST(NSFileManager, IntermediateFoldersAreMadeIfAsked)
{
    const QString home = useFreshHome();
    const QString deep = home + QStringLiteral("/a/b/c");
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
    const QString file = useFreshHome() + QStringLiteral("/file");
    writeFile(file, "kept");
    for (const bool withIntermediate : {true, false}) {
        EXPECT_FALSE(NSFileManager::createDirectoryAtPath(file, withIntermediate));
        EXPECT_FALSE(
            NSFileManager::createDirectoryAtPath(file + QStringLiteral("/a"), withIntermediate));
    }
    EXPECT_EQ(contentsOf(file), QByteArray("kept"));
}

TEST(NSFileManager, PermissionsAreSet)
{
    const QString file = useFreshHome() + QStringLiteral("/file");
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
