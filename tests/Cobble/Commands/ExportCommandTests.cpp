#include "CommandSupport.h"

#include "Commands/UserSettings.h"
#include "Filter/SmartLibraries.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/KTPlugInManager>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
class ExportCommandTests : public testing::Test
{
protected:
    ExportCommandTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        import("Name,Paid,,Since\nAnn,$5.50,x,3/4/2008\n\"B\"\"o, b\",$1,,4/5/2008\n"
               "Cay,$2,,5/6/2008\n");
    }

    void import(const QByteArray &contents)
    {
        tree.add(u"Things.csv"_s, contents);
        const CommandResult result = run({u"import"_s, tree.path(u"Things.csv"_s)});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }
    CommandResult run(const QStringList &arguments)
    {
        return runInProcess(arguments +
                            QStringList({u"--locale"_s, u"en_US"_s, u"--bundle"_s, bundle}));
    }
    CommandResult exportTo(const QString &file, const QString &library = u"things"_s)
    {
        return run({u"export"_s, library, u"--to"_s, tree.path(file)});
    }

    FileTree tree;
    QString bundle;
};
} // namespace

TEST_F(ExportCommandTests, CSVIsWhatPeopleSee)
{
    const CommandResult result = exportTo(u"out.csv"_s);
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output,
              u"Exported 3 records of the library 'Things' to " + tree.path(u"out.csv\n"_s));
    EXPECT_EQ(contentsOf(tree.path(u"out.csv"_s)),
              "Name,Paid,,Since\r\nAnn,$5.50,x,3/4/2008\r\n\"B\"\"o, b\",$1.00,,4/5/2008\r\n"
              "Cay,$2.00,,5/6/2008\r\n");
}

TEST_F(ExportCommandTests, CSVComesBack)
{
    exportTo(u"Again.csv"_s);
    const CommandResult again = run({u"import"_s, tree.path(u"Again.csv"_s)});
    EXPECT_EQ(again.exitCode, 0);
    exportTo(u"1.csv"_s);
    exportTo(u"2.csv"_s, u"Again"_s);
    EXPECT_EQ(contentsOf(tree.path(u"1.csv"_s)), contentsOf(tree.path(u"2.csv"_s)));
}

TEST_F(ExportCommandTests, JSONHasTheValues)
{
    EXPECT_EQ(exportTo(u"out.JSON"_s).exitCode, 0);
    const QByteArray text = contentsOf(tree.path(u"out.JSON"_s));
    const QJsonArray rows = QJsonDocument::fromJson(text).array();
    ASSERT_EQ(rows.size(), 3) << text.toStdString();
    const QJsonObject first = rows[0].toObject();
    EXPECT_EQ(first.value(u"name"), u"Ann"_s);
    EXPECT_EQ(first.value(u"paid"), 5.5);
    EXPECT_TRUE(first.value(u"since").toString().startsWith(u"2008-03-04T"));
    EXPECT_EQ(first.value(u"field"), u"x"_s);
    EXPECT_TRUE(rows[1].toObject().value(u"field").isNull());
}

TEST_F(ExportCommandTests, AnEmptyLibraryIsExported)
{
    tree.add(u"Nobody.csv"_s, "Name\n");
    run({u"import"_s, tree.path(u"Nobody.csv"_s)});
    EXPECT_EQ(exportTo(u"n.json"_s, u"Nobody"_s).exitCode, 0);
    EXPECT_EQ(contentsOf(tree.path(u"n.json"_s)), "[]\n");
    exportTo(u"n.csv"_s, u"Nobody"_s);
    EXPECT_EQ(contentsOf(tree.path(u"n.csv"_s)), "Name\r\n");
}

TEST_F(ExportCommandTests, SaysWhatCannotBeExported)
{
    EXPECT_EQ(exportTo(u"out.xyz"_s).errors,
              u"cobble: " + tree.path(u"out.xyz"_s) +
                  u": there is no exporter for 'xyz'; there are csv, json\n");
    EXPECT_EQ(exportTo(u"out.csv"_s, u"none"_s).errors,
              u"cobble: " + bundle + u": no library 'none'\n");
    const CommandResult nowhere = exportTo(u"no/where.csv"_s);
    EXPECT_EQ(nowhere.exitCode, 1);
    EXPECT_TRUE(nowhere.errors.contains(u"no/where.csv: "));
    EXPECT_FALSE(QFile::exists(tree.path(u"out.xyz"_s)));
}

TEST_F(ExportCommandTests, AFileThatIsThereStaysIfItFails)
{
    QDir().mkdir(tree.path(u"folder.csv"_s));
    EXPECT_EQ(exportTo(u"folder.csv"_s).exitCode, 1);
    EXPECT_TRUE(QDir(tree.path(u"folder.csv"_s)).exists());
    tree.add(u"old.csv"_s, "old");
    EXPECT_EQ(exportTo(u"old.csv"_s, u"none"_s).exitCode, 1);
    EXPECT_EQ(contentsOf(tree.path(u"old.csv"_s)), "old");
}

TEST_F(ExportCommandTests, RejectsWrongUsage)
{
    EXPECT_EQ(run({u"export"_s}).exitCode, 2);
    EXPECT_EQ(run({u"export"_s, u"things"_s}).exitCode, 2);
    EXPECT_EQ(run({u"export"_s, u"things"_s, u"x"_s, u"--to"_s, u"a.csv"_s}).exitCode, 2);
    EXPECT_EQ(run({u"export"_s, u"--help"_s}).exitCode, 0);
}

TEST_F(ExportCommandTests, CSVHasNoFormulasUnlessTheUserWantsThem)
{
    const QByteArray typed = "=Head,Note\r\n=1+1,a\r\n\"@SUM(A1,B1)\",''=2\r\n-5 kg,b\r\n";
    tree.add(u"Sums.csv"_s, typed);
    ASSERT_EQ(run({u"import"_s, tree.path(u"Sums.csv"_s)}).exitCode, 0);
    ASSERT_EQ(exportTo(u"marked.csv"_s, u"Sums"_s).exitCode, 0);
    const QByteArray marked = contentsOf(tree.path(u"marked.csv"_s));
    EXPECT_EQ(marked, "'=Head,Note\r\n'=1+1,a\r\n\"'@SUM(A1,B1)\",''=2\r\n'-5 kg,b\r\n");

    // It comes back as it was.
    tree.add(u"Again.csv"_s, marked);
    ASSERT_EQ(run({u"import"_s, tree.path(u"Again.csv"_s)}).exitCode, 0);
    ASSERT_EQ(exportTo(u"again.csv"_s, u"Again"_s).exitCode, 0);
    EXPECT_EQ(contentsOf(tree.path(u"again.csv"_s)), marked);
    KTPlugInManager().pluginDefaultsSetObject(true,
                                              u"org.cobble.Cobble.TextExporter.keepsFormulas"_s);
    ASSERT_EQ(exportTo(u"typed.csv"_s, u"Again"_s).exitCode, 0);
    EXPECT_EQ(contentsOf(tree.path(u"typed.csv"_s)), QByteArray(typed).replace("''", "'"));
}

TEST_F(ExportCommandTests, WritesTheRecordsThatAreAskedFor)
{
    const CommandResult result =
        run({u"export"_s, u"things"_s, u"--to"_s, tree.path(u"out.csv"_s), u"--where"_s,
             u"paid < 3"_s, u"--sort"_s, u"-since"_s, u"--columns"_s, u"Since,Name"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_TRUE(result.output.startsWith(u"Exported 2 records of the library 'Things'"));
    EXPECT_EQ(contentsOf(tree.path(u"out.csv"_s)),
              "Since,Name\r\n5/6/2008,Cay\r\n4/5/2008,\"B\"\"o, b\"\r\n");
    const CommandResult wrong = run({u"export"_s, u"things"_s, u"--to"_s, tree.path(u"no.csv"_s),
                                     u"--where"_s, u"paid < a cow"_s});
    EXPECT_EQ(wrong.exitCode, 1);
    EXPECT_TRUE(wrong.errors.startsWith(u"cobble: --where: “a cow”: "))
        << wrong.errors.toStdString();
    EXPECT_FALSE(QFile::exists(tree.path(u"no.csv"_s)));
}

TEST_F(ExportCommandTests, ASmartLibraryThatNoLongerFitsIsNotExported)
{
    {
        const LocaleScope scope(u"en_US"_s);
        const auto store =
            *LibraryStore::open(KTDatabaseBundle(bundle), LibraryStore::Mode::Existing);
        const Library library = *store->libraryNamed(u"Things"_s);
        const auto fields = std::make_shared<FilterFields>(library);
        RecordQuery query;
        query.filter = RecordFilter::read(u"paid > 5"_s, fields);
        query.columns = {0};
        ASSERT_TRUE(store->beginChange());
        ASSERT_TRUE(
            SmartLibraries::save(*store, SmartLibraries::make(u"Few"_s, library, query, *fields)));
        ASSERT_TRUE(store->commit());
    }
    ASSERT_EQ(exportTo(u"few.csv"_s, u"Few"_s).exitCode, 0);
    EXPECT_EQ(contentsOf(tree.path(u"few.csv"_s)), "Name\r\nAnn\r\n");
    ASSERT_EQ(runInProcess({u"field"_s, u"remove"_s, u"Things"_s, u"Paid"_s, u"--bundle"_s, bundle})
                  .exitCode,
              0);
    const CommandResult result = exportTo(u"all.csv"_s, u"Few"_s);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.contains(u"the filter of 'Few' no longer fits: "))
        << result.errors.toStdString();
    EXPECT_FALSE(QFile::exists(tree.path(u"all.csv"_s)));
}
