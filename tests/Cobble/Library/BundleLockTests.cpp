#include "Library/BundleLock.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QFile>

#include <array>
#include <functional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {
class BundleLockTests : public testing::Test
{
protected:
    BundleLockTests() { testing_support::needApplication(); }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle{tree.path(u"b.cobbledb"_s)};
};
} // namespace

TEST_F(BundleLockTests, IsAFileBesideTheBundleThatGoesWithIt)
{
    const QString file = bundle.bundlePath() + u".lock";
    {
        BundleLock lock(bundle);
        EXPECT_FALSE(lock.isLocked());
        EXPECT_TRUE(lock.lock(0));
        EXPECT_TRUE(lock.isLocked());
        EXPECT_TRUE(QFile::exists(file));
    }
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(BundleLockTests, KeepsOthersOutWhileItIsThere)
{
    BundleLock second(bundle);
    {
        BundleLock first(bundle);
        ASSERT_TRUE(first.lock(0));
        EXPECT_EQ(second.lock(1).reason(), u"another program is changing the bundle"_s);
        EXPECT_FALSE(second.isLocked());
    }
    EXPECT_TRUE(second.lock(0));
}

TEST_F(BundleLockTests, BundlesBesideEachOtherHaveLocksOfTheirOwn)
{
    BundleLock first(bundle);
    BundleLock second(KTDatabaseBundle(tree.path(u"c.cobbledb"_s)));
    EXPECT_TRUE(first.lock(0));
    EXPECT_TRUE(second.lock(0));
}

TEST_F(BundleLockTests, NeedsAFolder)
{
    BundleLock lock(KTDatabaseBundle(tree.path(u"none/b.cobbledb"_s)));
    EXPECT_EQ(lock.lock(0).reason(), u"there is no folder for the database bundle"_s);
    EXPECT_FALSE(lock.isLocked());
}

TEST_F(BundleLockTests, WhatIsNoLockKeepsNobodyWaiting)
{
    const QString file = bundle.bundlePath() + u".lock";
    const std::array<std::function<void()>, 5> things = {
        [&] { testing_support::writeFile(file, ""); },
        [&] { testing_support::writeFile(file, "\xff noise"); },
        [&] { QFile::link(tree.path(u"none"_s), file); },
        [&] { ::mkfifo(QFile::encodeName(file).constData(), 0600); },
        [&] { QDir().mkdir(file); },
    };
    for (const auto &make : things) {
        make();
        BundleLock lock(bundle);
        EXPECT_TRUE(lock.lock(0));
        EXPECT_TRUE(lock.isLocked());
    }
}

TEST_F(BundleLockTests, SaysWhatIsInTheWay)
{
    const QString file = bundle.bundlePath() + u".lock";
    testing_support::writeFile(file + u"/letter", "mine");
    BundleLock lock(bundle);
    EXPECT_EQ(lock.lock(0).reason(), u"'%1' is in the way; please remove it"_s.arg(file));
    EXPECT_FALSE(lock.isLocked());
}

TEST_F(BundleLockTests, OneThatIsNotTakenLeavesThatOfAnother)
{
    BundleLock first(bundle);
    ASSERT_TRUE(first.lock(0));
    {
        BundleLock second(bundle);
        EXPECT_FALSE(second.lock(0));
    }
    EXPECT_TRUE(QFile::exists(bundle.bundlePath() + u".lock"));
}
