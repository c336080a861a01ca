#include "CommandSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
class ExportCommand : public testing::Test
{
protected:
    ExportCommand() : bundle(tree.path(QStringLiteral("b.cobbledb")))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        import("Name,Paid,,Since\nAnn,$5.50,x,3/4/2008\n\"B\"\"o, b\",$1,,4/5/2008\n"
               "Cay,$2,,5/6/2008\n");
    }

    void import(const QByteArray &contents)
    {
        tree.add(QStringLiteral("Things.csv"), contents);
        const CommandResult result =
            run({QStringLiteral("import"), tree.path(QStringLiteral("Things.csv"))});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }
    CommandResult run(const QStringList &arguments)
    {
        return runInProcess(arguments +
                            QStringList({QStringLiteral("--locale"), QStringLiteral("en_US"),
                                         QStringLiteral("--bundle"), bundle}));
    }
    CommandResult exportTo(const QString &file, const QString &library = QStringLiteral("things"))
    {
        return run({QStringLiteral("export"), library, QStringLiteral("--to"), tree.path(file)});
    }

    FileTree tree;
    QString bundle;
};
} // namespace

TEST_F(ExportCommand, CSVIsWhatPeopleSee)
{
    const CommandResult result = exportTo(QStringLiteral("out.csv"));
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output, u"Exported 3 records of the library 'Things' to " +
                                 tree.path(QStringLiteral("out.csv\n")));
    EXPECT_EQ(contentsOf(tree.path(QStringLiteral("out.csv"))),
              "Name,Paid,,Since\r\nAnn,$5.50,x,3/4/2008\r\n\"B\"\"o, b\",$1.00,,4/5/2008\r\n"
              "Cay,$2.00,,5/6/2008\r\n");
}

TEST_F(ExportCommand, CSVComesBack)
{
    exportTo(QStringLiteral("Again.csv"));
    const CommandResult again =
        run({QStringLiteral("import"), tree.path(QStringLiteral("Again.csv"))});
    EXPECT_EQ(again.exitCode, 0);
    exportTo(QStringLiteral("1.csv"));
    exportTo(QStringLiteral("2.csv"), QStringLiteral("Again"));
    EXPECT_EQ(contentsOf(tree.path(QStringLiteral("1.csv"))),
              contentsOf(tree.path(QStringLiteral("2.csv"))));
}

TEST_F(ExportCommand, JSONHasTheValues)
{
    EXPECT_EQ(exportTo(QStringLiteral("out.JSON")).exitCode, 0);
    const QByteArray text = contentsOf(tree.path(QStringLiteral("out.JSON")));
    const QJsonArray rows = QJsonDocument::fromJson(text).array();
    ASSERT_EQ(rows.size(), 3) << text.toStdString();
    const QJsonObject first = rows[0].toObject();
    EXPECT_EQ(first.value(u"name"), QStringLiteral("Ann"));
    EXPECT_EQ(first.value(u"paid"), 5.5);
    EXPECT_TRUE(first.value(u"since").toString().startsWith(u"2008-03-04T"));
    EXPECT_EQ(first.value(u"field"), QStringLiteral("x"));
    EXPECT_TRUE(rows[1].toObject().value(u"field").isNull());
}

TEST_F(ExportCommand, AnEmptyLibrary)
{
    tree.add(QStringLiteral("Nobody.csv"), "Name\n");
    run({QStringLiteral("import"), tree.path(QStringLiteral("Nobody.csv"))});
    EXPECT_EQ(exportTo(QStringLiteral("n.json"), QStringLiteral("Nobody")).exitCode, 0);
    EXPECT_EQ(contentsOf(tree.path(QStringLiteral("n.json"))), "[]\n");
    exportTo(QStringLiteral("n.csv"), QStringLiteral("Nobody"));
    EXPECT_EQ(contentsOf(tree.path(QStringLiteral("n.csv"))), "Name\r\n");
}

TEST_F(ExportCommand, WhatCannotBeExported)
{
    EXPECT_EQ(exportTo(QStringLiteral("out.xyz")).errors,
              u"cobble: " + tree.path(QStringLiteral("out.xyz")) +
                  u": there is no exporter for 'xyz'; there are csv, json\n");
    EXPECT_EQ(exportTo(QStringLiteral("out.csv"), QStringLiteral("none")).errors,
              u"cobble: " + bundle + u": no library 'none'\n");
    const CommandResult nowhere = exportTo(QStringLiteral("no/where.csv"));
    EXPECT_EQ(nowhere.exitCode, 1);
    EXPECT_TRUE(nowhere.errors.contains(u"no/where.csv: "));
    EXPECT_FALSE(QFile::exists(tree.path(QStringLiteral("out.xyz"))));
}

TEST_F(ExportCommand, AFileThatIsThereStaysIfItFails)
{
    QDir().mkdir(tree.path(QStringLiteral("folder.csv")));
    EXPECT_EQ(exportTo(QStringLiteral("folder.csv")).exitCode, 1);
    EXPECT_TRUE(QDir(tree.path(QStringLiteral("folder.csv"))).exists());
    tree.add(QStringLiteral("old.csv"), "old");
    EXPECT_EQ(exportTo(QStringLiteral("old.csv"), QStringLiteral("none")).exitCode, 1);
    EXPECT_EQ(contentsOf(tree.path(QStringLiteral("old.csv"))), "old");
}

TEST_F(ExportCommand, WrongUsage)
{
    EXPECT_EQ(run({QStringLiteral("export")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("export"), QStringLiteral("things")}).exitCode, 2);
    EXPECT_EQ(run({QStringLiteral("export"), QStringLiteral("things"), QStringLiteral("x"),
                   QStringLiteral("--to"), QStringLiteral("a.csv")})
                  .exitCode,
              2);
    EXPECT_EQ(run({QStringLiteral("export"), QStringLiteral("--help")}).exitCode, 0);
}
