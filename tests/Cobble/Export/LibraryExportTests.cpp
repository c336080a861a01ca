#include "Export/LibraryExport.h"

#include "Library/LibraryStore.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
class LibraryExportTests : public testing::Test
{
protected:
    LibraryExportTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        LibraryField field;
        field.columnName = u"kt_name"_s;
        field.header = u"Name"_s;
        field.propertyName = u"name"_s;
        library.name = u"Names"_s;
        library.tableName = u"kt_names"_s;
        library.fields = {field};
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        EXPECT_TRUE(store->begin() && store->create(library));
        for (const QString &name : {u"Ann"_s, u"Bob, B."_s, u"Cay"_s})
            EXPECT_TRUE(store->insert({name}));
        EXPECT_TRUE(store->commit());
    }

    QByteArray contents(const QString &name) const
    {
        return testing_support::contentsOf(tree.path(name));
    }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    Library library;
    std::unique_ptr<LibraryStore> store;
};
} // namespace

TEST_F(LibraryExportTests, WritesAllRecordsAndCountsThem)
{
    const Outcome<qint64> count = LibraryExport::run(*store, library, tree.path(u"out.csv"_s));
    ASSERT_TRUE(count) << count.reason().toStdString();
    EXPECT_EQ(*count, 3);
    EXPECT_EQ(contents(u"out.csv"_s), "Name\r\nAnn\r\n\"Bob, B.\"\r\nCay\r\n");
}

TEST_F(LibraryExportTests, TellsHowFarItIs)
{
    QList<qint64> done;
    const auto progress = [&done](qint64 count, qint64 total) {
        done += count;
        EXPECT_EQ(total, 3);
        return true;
    };
    ASSERT_TRUE(LibraryExport::run(*store, library, tree.path(u"out.csv"_s), progress));
    EXPECT_EQ(done, QList<qint64>({0, 1, 2, 3}));
}

TEST_F(LibraryExportTests, OneThatIsCancelledLeavesTheFileAsItWas)
{
    tree.add(u"out.csv"_s, "old");
    const Outcome<qint64> count =
        LibraryExport::run(*store, library, tree.path(u"out.csv"_s),
                           [](qint64 written, qint64) { return written < 2; });
    EXPECT_FALSE(count);
    EXPECT_TRUE(count.isCancelled());
    EXPECT_EQ(contents(u"out.csv"_s), "old");
}

TEST_F(LibraryExportTests, FailuresBeginWithWhatTheyAreAbout)
{
    const QString nowhere = tree.path(u"none/out.csv"_s);
    EXPECT_EQ(LibraryExport::run(*store, library, nowhere).reason(),
              QString(nowhere + u": No such file or directory"));
    const QString unknown = tree.path(u"out.nothing"_s);
    EXPECT_EQ(LibraryExport::run(*store, library, unknown).reason(),
              QString(unknown + u": there is no exporter for 'nothing'; there are csv, json"));
    Library lost = library;
    lost.tableName = u"lost"_s;
    const Outcome<qint64> count = LibraryExport::run(*store, lost, tree.path(u"out.csv"_s));
    EXPECT_EQ(count.reason(), u"Names: no such table: lost"_s);
    EXPECT_FALSE(count.isCancelled());
    EXPECT_EQ(contents(u"out.csv"_s), "");
}
