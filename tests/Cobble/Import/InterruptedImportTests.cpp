#include "Import/InterruptedImport.h"

#include "Library/LibraryStore.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QDir>

using namespace Qt::StringLiterals;

using testing_support::writeFile;

namespace {
class InterruptedImportTests : public testing::Test
{
protected:
    InterruptedImportTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        list = InterruptedImport::mediaListPath(bundle);
        writeFile(bundle.mediaFolderPath() + u"/left.0.png", "left");
        writeFile(bundle.mediaFolderPath() + u"/other.0.png", "the user's");
        writeFile(bundle.mediaFolderPath() + u"/.cobble-12", "half");
    }

    QStringList mediaNames() const
    {
        return QDir(bundle.mediaFolderPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    QString list;
};

const QStringList All = {u".cobble-12"_s, u"left.0.png"_s, u"other.0.png"_s};
} // namespace

TEST_F(InterruptedImportTests, WithoutAListNothingIsOpened)
{
    EXPECT_TRUE(InterruptedImport::settle(bundle, true));
    EXPECT_EQ(mediaNames(), All);
    EXPECT_FALSE(QFile::exists(bundle.databaseFilePath()));
}

TEST_F(InterruptedImportTests, WhatIsListedGoesAndThenTheList)
{
    writeFile(list,
              "cobblemedia://left.0.png\ncobblemedia://none.0.png\ncobblemedia://other.0.png");
    EXPECT_TRUE(InterruptedImport::settle(bundle, true));
    EXPECT_EQ(mediaNames(), QStringList(u"other.0.png"_s));
    EXPECT_FALSE(QFile::exists(list));
}

TEST_F(InterruptedImportTests, WithoutALockUnfinishedCopiesStay)
{
    writeFile(list, "cobblemedia://left.0.png\n");
    EXPECT_TRUE(InterruptedImport::settle(bundle, false));
    EXPECT_EQ(mediaNames(), QStringList({u".cobble-12"_s, u"other.0.png"_s}));
}

TEST_F(InterruptedImportTests, TheListStaysWhileTheFilesDo)
{
    writeFile(list, "cobblemedia://left.0.png\n");
    writeFile(bundle.databaseFilePath(), QByteArray(4096, 'x'));
    EXPECT_EQ(InterruptedImport::settle(bundle, true).reason(), u"file is not a database"_s);
    EXPECT_EQ(mediaNames(), All);
    EXPECT_TRUE(QFile::exists(list));
}

TEST_F(InterruptedImportTests, WhatIsNoFileIsNoList)
{
    ASSERT_TRUE(QDir().mkdir(list));
    EXPECT_TRUE(InterruptedImport::settle(bundle, false));
    ASSERT_TRUE(QDir().rmdir(list));
    tree.add(u"mine"_s, "cobblemedia://left.0.png\n");
    ASSERT_TRUE(QFile::link(tree.path(u"mine"_s), list));
    EXPECT_TRUE(InterruptedImport::settle(bundle, false));
    EXPECT_EQ(mediaNames(), All);
    EXPECT_TRUE(QFile::exists(tree.path(u"mine"_s)));
}
