#include "Importing/ImportPreview.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using testing_support::FileTree;

namespace {
class ImportPreviewTests : public testing::Test
{
protected:
    ImportPreviewTests()
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        request.path = tree.path(u"a.csv"_s);
        request.libraryName = u"A"_s;
        request.bundle = KTDatabaseBundle(tree.path(u"b.cobbledb"_s));
    }

    FileTree tree;
    ImportRequest request;
};
} // namespace

TEST_F(ImportPreviewTests, ShowsTheFirstRowsAndAllThatIsNotRead)
{
    QByteArray contents = "n\n";
    for (int row = 1; row <= 1000; ++row)
        contents += row % 100 == 0 ? QByteArray("cow\n") : QByteArray::number(row) + '\n';
    tree.add(u"a.csv"_s, contents);
    const Outcome<ImportPreview> preview = ImportPreview::of(request);
    ASSERT_TRUE(preview) << preview.reason().toStdString();
    EXPECT_EQ(preview->shown.rows.size(), ImportPreview::MostRows);
    EXPECT_EQ(preview->shown.rows.at(49), QStringList(u"50"_s));
    EXPECT_EQ(preview->values.unread.size(), 10);
    EXPECT_EQ(preview->file.rows->rowCount(), 1000);
    EXPECT_FALSE(QFileInfo::exists(request.bundle.bundlePath()));
}

TEST_F(ImportPreviewTests, CanBeGivenUp)
{
    tree.add(u"a.csv"_s, "n\n1\n");
    EXPECT_TRUE(ImportPreview::of(request, [] { return false; }).isCancelled());
    int asked = 0;
    EXPECT_TRUE(ImportPreview::of(request, [&asked] { return ++asked < 3; }).isCancelled());
}

TEST_F(ImportPreviewTests, TellsWhyThereIsNone)
{
    EXPECT_EQ(ImportPreview::of(request).reason(), u"No such file or directory"_s);
}
