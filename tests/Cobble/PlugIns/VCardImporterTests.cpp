#include "Cobble/Commands/CommandSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
QString card(const QString &lines)
{
    return u"BEGIN:VCARD\r\nVERSION:3.0\r\n" + lines + u"END:VCARD\r\n";
}
} // namespace

TEST(VCardImporter, ImportsThroughThePlugIn)
{
    testing_support::needApplication();
    testing_support::useFreshHome();
    const FileTree tree;
    const QString bundle = tree.path(u"b.cobbledb"_s);
    tree.add(u"People.VCF"_s, card(u"FN:Ann, \"the\" one\r\nTEL:030 1234567\r\n"
                                   "ADR:;;;;;01067;\r\nPHOTO;ENCODING=b:UE5H\r\n"_s)
                                  .toUtf8());
    const CommandResult result =
        runInProcess({u"import"_s, tree.path(u"People.VCF"_s), u"--bundle"_s, bundle});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    const CommandResult shown =
        runInProcess({u"show"_s, u"People"_s, u"--bundle"_s, bundle, u"--locale"_s, u"de_DE"_s});
    EXPECT_TRUE(shown.output.contains(u"Ann, \"the\" one")) << shown.output.toStdString();
    EXPECT_TRUE(shown.output.contains(u"01067"));
    EXPECT_TRUE(shown.output.contains(u"cobblemedia://Photo%201.0.jpg"));
    EXPECT_EQ(contentsOf(bundle + u"/Contents/Resources/Media/Photo 1.0.jpg"), "PNG");
}

TEST(VCardImporter, RejectsFilesWithoutCards)
{
    testing_support::useFreshHome();
    const FileTree tree;
    tree.add(u"x.vcf"_s, "Name,Age\nAnn,3\n");
    const CommandResult result = runInProcess({u"import"_s, tree.path(u"x.vcf"_s)});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.endsWith(u"x.vcf: there is no vCard in it\n"));
}
