#include <KTUtility/Platform/Disk/FileOperations_p.h>
#include <KTUtility/Platform/Disk/FolderPlace_p.h>

#include "support/FileTree.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QFile>

#include <algorithm>
#include <sys/stat.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using testing_support::FileTree;

namespace {
int openFolder(const QString &path)
{
    return openFile(QFile::encodeName(path), O_RDONLY | O_DIRECTORY);
}

QList<QByteArray> sortedNames(const FolderPlace &place)
{
    QList<QByteArray> names = place.names().value_or(QList<QByteArray>{"?"});
    std::sort(names.begin(), names.end());
    return names;
}

/// Goes into a folder that may be listed and not searched, as a user who is not root.
/// \return 0 if the way back was found.
int visitUnsearchableFolder(const QByteArray &root)
{
    constexpr uid_t Nobody = 65534;
    if (::geteuid() == 0 &&
        (::chown(root.constData(), Nobody, Nobody) != 0 || ::seteuid(Nobody) != 0))
        return 1;
    if (::mkdir(QByteArray(root + "/closed").constData(), 0400) != 0)
        return 2;
    FolderPlace place(openFile(root, O_RDONLY | O_DIRECTORY));
    if (!place.enter("closed") || !place.names() || !place.names()->isEmpty())
        return 3;
    return place.leave() && place.isRoot() && sortedNames(place) == QList<QByteArray>{"closed"} ? 0
                                                                                                : 4;
}
} // namespace

TEST(FolderPlace, GoesDownAndUp)
{
    const FileTree tree;
    tree.add(u"a/b/file"_s);
    tree.add(u".hidden"_s);
    FolderPlace place(openFolder(tree.root()));
    EXPECT_TRUE(place.isRoot());
    EXPECT_EQ(sortedNames(place), QList<QByteArray>({".hidden", "a"}));
    ASSERT_TRUE(place.enter("a"));
    ASSERT_TRUE(place.enter("b"));
    EXPECT_FALSE(place.isRoot());
    EXPECT_EQ(sortedNames(place), QList<QByteArray>{"file"});
    // Once more: names() begins anew.
    EXPECT_EQ(sortedNames(place), QList<QByteArray>{"file"});
    struct stat left = {};
    const auto note = [&left](int folder) { return ::fstat(folder, &left) == 0; };
    ASSERT_TRUE(place.leave(note));
    EXPECT_TRUE(S_ISDIR(left.st_mode));
    EXPECT_EQ(sortedNames(place), QList<QByteArray>{"b"});
    EXPECT_FALSE(place.leave([](int) { return false; }));
    EXPECT_TRUE(place.isRoot());
}

TEST(FolderPlace, FollowsNoLinks)
{
    const FileTree tree;
    tree.add(u"outside/secret"_s);
    tree.add(u"root/file"_s);
    QFile::link(tree.path(u"outside"_s), tree.path(u"root/link"_s));
    FolderPlace place(openFolder(tree.path(u"root"_s)));
    for (const char *name : {"link", "file", "none"})
        EXPECT_FALSE(place.enter(name)) << name;
    EXPECT_TRUE(place.isRoot());
    EXPECT_EQ(sortedNames(place), QList<QByteArray>({"file", "link"}));
}

TEST(FolderPlace, DoesNotGoUpToAnotherFolder)
{
    const FileTree tree;
    tree.add(u"root/inner/file"_s);
    tree.add(u"outside/secret"_s);
    FolderPlace place(openFolder(tree.path(u"root"_s)));
    ASSERT_TRUE(place.enter("inner"));
    ASSERT_TRUE(QFile::rename(tree.path(u"root/inner"_s), tree.path(u"outside/inner"_s)));
    EXPECT_FALSE(place.leave());
    EXPECT_EQ(sortedNames(place), QList<QByteArray>{"file"});
}

TEST(FolderPlace, ComesBackFromAFolderThatMayNotBeSearched)
{
    const FileTree tree;
    const QByteArray root = QFile::encodeName(tree.root());
    const testing_support::OtherProcess visitor([&root] { return visitUnsearchableFolder(root); });
    EXPECT_EQ(visitor.exitCode(), 0);
}

TEST(FolderPlace, WhatIsNotThereHasNothingInIt)
{
    const FileTree tree;
    FolderPlace place(openFolder(tree.path(u"none"_s)));
    EXPECT_LT(place.descriptor(), 0);
    EXPECT_FALSE(place.names().has_value());
    EXPECT_FALSE(place.enter("a"));
}
