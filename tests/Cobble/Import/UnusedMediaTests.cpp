#include "Import/UnusedMedia.h"

#include "Library/LibraryStore.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using testing_support::writeFile;

namespace {
/// A bundle with a record that refers to one of its files.
class UnusedMediaTests : public testing::Test
{
protected:
    UnusedMediaTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        Library library;
        library.name = u"one"_s;
        library.tableName = u"kt_one"_s;
        LibraryField field;
        field.columnName = u"kt_picture"_s;
        field.type = FieldType::Media;
        library.fields = {field};
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        EXPECT_TRUE(store->begin() && store->create(library));
        EXPECT_TRUE(store->insert({u"cobblemedia://used.0.png"_s}) && store->commit());
        for (const QString &name : {u"used.0.png"_s, u"other.0.png"_s})
            writeFile(bundle.mediaFolderPath() + u'/' + name, "x");
    }

    QStringList mediaNames() const
    {
        return QDir(bundle.mediaFolderPath())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    std::unique_ptr<LibraryStore> store;
};
} // namespace

TEST_F(UnusedMediaTests, RemovesWhatNoLibraryHas)
{
    EXPECT_TRUE(UnusedMedia::remove(bundle, *store,
                                    {u"cobblemedia://used.0.png"_s, u"cobblemedia://other.0.png"_s,
                                     u"cobblemedia://none.0.png"_s, u"a text"_s, u""_s})
                    .isEmpty());
    EXPECT_EQ(mediaNames(), QStringList(u"used.0.png"_s));
}

TEST_F(UnusedMediaTests, AFileThatIsInUseStaysHoweverItsURLIsWritten)
{
    for (const QString &url : {u"cobblemedia://%75sed.0.png"_s, u"cobblemedia://x/used.0.png"_s,
                               u"cobblemedia:///used.0.png"_s, u"cobblemedia://used.0.png/"_s})
        EXPECT_TRUE(UnusedMedia::remove(bundle, *store, {url}).isEmpty()) << url.toStdString();
    EXPECT_EQ(mediaNames(), QStringList({u"other.0.png"_s, u"used.0.png"_s}));
}

TEST_F(UnusedMediaTests, KnowsWhatWasNeverFinished)
{
    for (const QString &name : {u".cobble-1"_s, u".cobble-0123456789abcdef"_s})
        EXPECT_TRUE(UnusedMedia::isUnfinished(name)) << name.toStdString();
    for (const QString &name : {u".cobble-"_s, u".cobble-1.0"_s, u"x.cobble-1"_s, u".cobble-g"_s,
                                u".cobble-1\n"_s, u".cobble"_s, u""_s})
        EXPECT_FALSE(UnusedMedia::isUnfinished(name)) << name.toStdString();
}

TEST_F(UnusedMediaTests, RemovesWhatWasNeverFinished)
{
    const QString folder = bundle.mediaFolderPath();
    writeFile(folder + u"/.cobble-12ab", "half");
    writeFile(folder + u"/.cobble-12cd/inner/a", "half a folder");
    writeFile(folder + u"/.cobble-notes.0", "the user's");
    ASSERT_TRUE(QFile::link(tree.path(u"b.cobbledb"_s), folder + u"/.cobble-34"));
    EXPECT_TRUE(UnusedMedia::removeUnfinished(bundle));
    EXPECT_EQ(mediaNames(), QStringList({u".cobble-notes.0"_s, u"other.0.png"_s, u"used.0.png"_s}));
    EXPECT_TRUE(bundle.doesExist());
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_FALSE(UnusedMedia::removeUnfinished(bundle));
}
