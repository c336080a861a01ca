// Copying, moving and removing files and folders.

#include <KTUtility/NSFileManager>
#include <KTUtility/Platform/Disk/FileRename_p.h>

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using namespace KTPrivate;
using namespace NSFileManager;
using namespace Qt::StringLiterals;
using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
class FileOperationsTests : public testing::Test
{
protected:
    QString at(const char *name) const { return tree.path(QString::fromUtf8(name)); }
    bool copy(const char *from, const char *to) const { return copyItemAtPath(at(from), at(to)); }
    mode_t modeOf(const char *name) const
    {
        struct stat status = {};
        ::lstat(QFile::encodeName(at(name)).constData(), &status);
        return status.st_mode & 07777;
    }

    /// Makes folders in folders, each with a file, deeper than a path can be long.
    static void makeDeepFolder(const QString &path, int levels)
    {
        ::mkdir(QFile::encodeName(path).constData(), 0700);
        int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
        for (int level = 0; level < levels; ++level) {
            ::close(::openat(folder, "file", O_WRONLY | O_CREAT, 0600));
            ASSERT_EQ(::mkdirat(folder, "level", 0700), 0);
            const int inner = ::openat(folder, "level", O_RDONLY | O_DIRECTORY);
            ::close(folder);
            folder = inner;
        }
        ::close(folder);
    }
    /// How many levels with a file there are.
    static int depthOf(const QString &path)
    {
        int folder = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
        int depth = 0;
        for (; ::faccessat(folder, "file", F_OK, 0) == 0; ++depth) {
            const int inner = ::openat(folder, "level", O_RDONLY | O_DIRECTORY);
            ::close(folder);
            folder = inner;
        }
        ::close(folder);
        return depth;
    }

    const FileTree tree;
};

/// Leaves the process a few descriptors more than it has, as long as it lives.
class FewDescriptors
{
public:
    explicit FewDescriptors(int more)
    {
        ::getrlimit(RLIMIT_NOFILE, &_before);
        const int free = ::dup(0);
        ::close(free);
        const struct rlimit few = {rlim_t(free + more), _before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &few), 0);
    }
    ~FewDescriptors() { ::setrlimit(RLIMIT_NOFILE, &_before); }
    FewDescriptors(const FewDescriptors &) = delete;
    FewDescriptors &operator=(const FewDescriptors &) = delete;

private:
    struct rlimit _before = {};
};
} // namespace

TEST_F(FileOperationsTests, CopiesKeepContentsModesAndTimes)
{
    const QByteArray large(qsizetype(3) << 20, 'x');
    tree.add(u"a"_s, large);
    ::chmod(QFile::encodeName(at("a")).constData(), 04640);
    QFile file(at("a"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    const QDateTime then = QDateTime::fromSecsSinceEpoch(1'000'000'000);
    ASSERT_TRUE(file.setFileTime(then, QFileDevice::FileModificationTime));
    file.close();
    EXPECT_TRUE(copy("a", "b"));
    EXPECT_TRUE(contentsOf(at("b")) == large);
    EXPECT_EQ(modeOf("b"), 0640U);
    EXPECT_EQ(QFileInfo(at("b")).lastModified(), then);
}

TEST_F(FileOperationsTests, NothingIsCopiedOverAnything)
{
    tree.add(u"a"_s, "new");
    tree.add(u"b"_s, "old");
    tree.add(u"folder/"_s);
    QFile::link(at("nowhere"), at("link"));
    EXPECT_FALSE(copy("a", "b"));
    EXPECT_FALSE(copy("a", "folder"));
    EXPECT_FALSE(copy("a", "link"));
    EXPECT_FALSE(copy("folder", "b"));
    EXPECT_FALSE(copy("a", "a"));
    EXPECT_EQ(contentsOf(at("b")), "old");
    EXPECT_EQ(contentsOf(at("a")), "new");
}

TEST_F(FileOperationsTests, FoldersAreCopiedWithAllTheyHold)
{
    tree.add(u"from/deep/er/a"_s, "a");
    tree.add(u"from/.hidden"_s, "h");
    tree.add(u"from/empty/"_s);
    ASSERT_EQ(::symlink("deep/er/a", QFile::encodeName(at("from/link")).constData()), 0);
    ::chmod(QFile::encodeName(at("from/deep")).constData(), 0750);
    EXPECT_TRUE(copy("from", "to"));
    EXPECT_EQ(contentsOf(at("to/deep/er/a")), "a");
    EXPECT_EQ(contentsOf(at("to/.hidden")), "h");
    EXPECT_TRUE(QFileInfo(at("to/empty")).isDir());
    EXPECT_EQ(QFileInfo(at("to/link")).symLinkTarget(), at("to/deep/er/a"));
    EXPECT_EQ(modeOf("to/deep"), 0750U);
}

TEST_F(FileOperationsTests, LinksAtTheTopAreFollowed)
{
    tree.add(u"a"_s, "a");
    QFile::link(at("a"), at("link"));
    EXPECT_TRUE(copy("link", "b"));
    EXPECT_FALSE(QFileInfo(at("b")).isSymLink());
    EXPECT_EQ(contentsOf(at("b")), "a");
}

TEST_F(FileOperationsTests, DeepFoldersNeedFewDescriptors)
{
    constexpr int Levels = 700;
    makeDeepFolder(at("deep"), Levels);
    {
        const FewDescriptors few(8);
        EXPECT_TRUE(copy("deep", "copy"));
        EXPECT_TRUE(removeItemAtPath(at("deep")));
    }
    EXPECT_FALSE(QFile::exists(at("deep")));
    EXPECT_EQ(depthOf(at("copy")), Levels);
    EXPECT_TRUE(removeItemAtPath(at("copy")));
    EXPECT_FALSE(QFile::exists(at("copy")));
}

TEST_F(FileOperationsTests, WhatIsExchangedForALinkMeanwhileIsNotFollowed)
{
    tree.add(u"secret"_s, "secret");
    tree.add(u"folder/a"_s, "mine");
    QFile::link(at("secret"), at("link"));
    const QByteArray file = QFile::encodeName(at("folder/a"));
    const QByteArray link = QFile::encodeName(at("link"));
    std::atomic<bool> isOver = false;
    std::thread exchanging([&] {
        while (!isOver)
            ::renameat2(AT_FDCWD, file.constData(), AT_FDCWD, link.constData(), RENAME_EXCHANGE);
    });
    int followed = 0;
    for (int round = 0; round < 300; ++round) {
        // A copy that noticed is a failure, and leaves nothing.
        if (!copy("folder", "copy"))
            EXPECT_FALSE(QFile::exists(at("copy")));
        else if (!QFileInfo(at("copy/a")).isSymLink() && contentsOf(at("copy/a")) != "mine")
            ++followed;
        removeItemAtPath(at("copy"));
    }
    isOver = true;
    exchanging.join();
    EXPECT_EQ(followed, 0);
}

TEST_F(FileOperationsTests, FoldersKeepModesAndTimes)
{
    tree.add(u"folder/inner/a"_s);
    ::chmod(QFile::encodeName(at("folder/inner")).constData(), 0550);
    ::chmod(QFile::encodeName(at("folder")).constData(), 0751);
    const struct timespec then[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    for (const char *name : {"folder/inner", "folder"})
        ::utimensat(AT_FDCWD, QFile::encodeName(at(name)).constData(), then, 0);
    EXPECT_TRUE(copy("folder", "copy"));
    EXPECT_EQ(modeOf("copy"), 0751U);
    EXPECT_EQ(modeOf("copy/inner"), 0550U);
    for (const char *name : {"copy/inner", "copy"})
        EXPECT_EQ(QFileInfo(at(name)).lastModified().toSecsSinceEpoch(), 1'000'000'000);
}

TEST_F(FileOperationsTests, FoldersAreNotCopiedIntoThemselves)
{
    tree.add(u"folder/sub/a"_s);
    const QJsonObject before = tree.contents();
    EXPECT_FALSE(copy("folder", "folder/sub/copy"));
    EXPECT_FALSE(copy("folder", "folder/copy"));
    EXPECT_EQ(tree.contents(), before);
    EXPECT_TRUE(copy("folder", "folder2"));
}

TEST_F(FileOperationsTests, PipesAndMissingFilesAreRejected)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(at("pipe")).constData(), 0600), 0);
    tree.add(u"folder/a"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(at("folder/pipe")).constData(), 0600), 0);
    EXPECT_FALSE(copy("pipe", "copy"));
    EXPECT_FALSE(copy("folder", "copy"));
    EXPECT_FALSE(copy("none", "copy"));
    EXPECT_FALSE(copy("folder/a", "none/copy"));
    EXPECT_FALSE(QFile::exists(at("copy")));
}

TEST_F(FileOperationsTests, AFullDiskLeavesNothing)
{
    // A limit on the size of files ends writing in the middle, as a full disk does.
    tree.add(u"a"_s, QByteArray(qsizetype(1) << 16, 'x'));
    struct rlimit limit = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit small = {1024, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_FALSE(copy("a", "b"));
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, before);
    EXPECT_FALSE(QFile::exists(at("b")));
}

TEST_F(FileOperationsTests, MovesNeverReplace)
{
    tree.add(u"a"_s, "a");
    tree.add(u"b"_s, "b");
    EXPECT_FALSE(moveItemAtPath(at("a"), at("b")));
    EXPECT_FALSE(moveItemAtPath(at("none"), at("c")));
    EXPECT_TRUE(moveItemAtPath(at("a"), at("c")));
    EXPECT_EQ(contentsOf(at("b")), "b");
    EXPECT_EQ(contentsOf(at("c")), "a");
    EXPECT_FALSE(QFile::exists(at("a")));
}

TEST_F(FileOperationsTests, RenamingOverAPlaceholderNeverReplaces)
{
    tree.add(u"a"_s, "a");
    tree.add(u"b"_s, "b");
    tree.add(u"folder/x"_s, "x");
    const auto rename = [this](const char *from, const char *to) {
        return renameOverPlaceholder(QFile::encodeName(at(from)), QFile::encodeName(at(to)));
    };
    EXPECT_EQ(rename("a", "b"), EEXIST);
    EXPECT_EQ(rename("folder", "b"), EEXIST);
    EXPECT_EQ(rename("none", "c"), ENOENT);
    EXPECT_EQ(rename("a", "none/c"), ENOENT);
    EXPECT_EQ(rename("a", "c"), 0);
    EXPECT_EQ(rename("folder", "moved"), 0);
    EXPECT_NE(rename("moved", "moved/inside"), 0);
    EXPECT_EQ(tree.contents().keys(), QStringList({u"b"_s, u"c"_s, u"moved"_s, u"moved/x"_s}));
}

TEST_F(FileOperationsTests, RemovesFoldersButNotWhatLinksLeadTo)
{
    tree.add(u"outside/kept"_s);
    tree.add(u"folder/deep/a"_s);
    QFile::link(at("outside"), at("folder/link"));
    EXPECT_TRUE(removeItemAtPath(at("folder")));
    EXPECT_FALSE(QFile::exists(at("folder")));
    EXPECT_TRUE(QFile::exists(at("outside/kept")));
    EXPECT_FALSE(removeItemAtPath(at("folder")));
    // A "/" at the end is not part of the name.
    QFile::link(at("outside"), at("link"));
    EXPECT_TRUE(removeItemAtPath(at("link//")));
    EXPECT_FALSE(QFileInfo(at("link")).isSymLink());
    EXPECT_TRUE(QFile::exists(at("outside/kept")));
}

TEST_F(FileOperationsTests, HostilePathsAreRejected)
{
    tree.add(u"a"_s);
    for (const QString &text : testing_support::hostileTexts()) {
        EXPECT_FALSE(copyItemAtPath(text, at("b")));
        EXPECT_FALSE(moveItemAtPath(text, at("b")));
        EXPECT_FALSE(removeItemAtPath(text));
        const QString missing = at("none/") + text;
        EXPECT_FALSE(copyItemAtPath(at("a"), missing));
        EXPECT_FALSE(moveItemAtPath(at("a"), missing));
    }
    EXPECT_EQ(tree.contents().size(), 1);
}
