#include "CommandSupport.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using testing_support::FileTree;

namespace {
class ShowCommand : public testing::Test
{
protected:
    ShowCommand() : bundle(tree.path(QStringLiteral("b.cobbledb")))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
    }

    void import(const QString &name, const QByteArray &contents)
    {
        tree.add(name, contents);
        const CommandResult result =
            runInProcess({QStringLiteral("import"), tree.path(name), QStringLiteral("--bundle"),
                          bundle, QStringLiteral("--locale"), QStringLiteral("en_US")});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }
    CommandResult show(const QStringList &arguments)
    {
        return runInProcess(QStringList({QStringLiteral("show")}) + arguments +
                            QStringList({QStringLiteral("--bundle"), bundle}));
    }

    FileTree tree;
    QString bundle;
};

QByteArray people()
{
    QByteArray rows = "Name,Born,Owes,Talked,Visits,Phone\n";
    for (int row = 1; row <= 10; ++row)
        rows += "P" + QByteArray::number(row) + ",3/" + QByteArray::number(row) +
                "/2008,\"$1,234.50\",1h 30m," + QByteArray::number(1000 * row) + ",212-555-010" +
                QByteArray::number(row % 10) + "\n";
    return rows + "Odd,soon,a cow,,many,\n";
}
} // namespace

TEST_F(ShowCommand, PrintsWhatTheFieldsDisplay)
{
    import(QStringLiteral("People.csv"), people());
    const CommandResult result =
        show({QStringLiteral("People"), QStringLiteral("--limit"), QStringLiteral("1"),
              QStringLiteral("--locale"), QStringLiteral("en_US")});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output,
              QStringLiteral("Name  Born      Owes       Talked  Visits  Phone\n"
                             "P1    3/1/2008  $1,234.50  1h 30m  1,000   (212) 555-0101\n"
                             "\n"
                             "1 of 11 records\n"));
}

TEST_F(ShowCommand, InAnotherLocale)
{
    import(QStringLiteral("People.csv"), people());
    const CommandResult result =
        show({QStringLiteral("people"), QStringLiteral("--limit"), QStringLiteral("1"),
              QStringLiteral("--locale"), QStringLiteral("de_DE")});
    for (const char16_t *text : {u"P1    01.03.2008  ", u"1.234,50", u"1.000"})
        EXPECT_TRUE(result.output.contains(QString::fromUtf16(text)));
}

TEST_F(ShowCommand, TypedTextsThatWereNotReadAreKept)
{
    import(QStringLiteral("People.csv"), people());
    const CommandResult result = show({QStringLiteral("People")});
    EXPECT_TRUE(result.output.contains(u"\nOdd   soon"));
    EXPECT_TRUE(result.output.contains(u"a cow"));
    EXPECT_TRUE(result.output.contains(u"many"));
    EXPECT_TRUE(result.output.endsWith(u"\n\n11 records\n"));
}

TEST_F(ShowCommand, WithoutANameTheLibraries)
{
    import(QStringLiteral("b.csv"), "Name\nAnn\nBob\n");
    import(QStringLiteral("A.csv"), "Name,Age\nAnn,3\n");
    const CommandResult result = show({});
    EXPECT_EQ(result.output, QStringLiteral("Library  Table  Fields  Records\n"
                                            "A        kt_a   2       1\n"
                                            "b        kt_b   1       2\n"));
}

TEST_F(ShowCommand, WhatCannotBeShown)
{
    EXPECT_EQ(show({QStringLiteral("x")}).errors,
              u"cobble: " + bundle + u": there is no database\n");
    import(QStringLiteral("b.csv"), "Name\nAnn\n");
    const CommandResult none = show({QStringLiteral("x\ny")});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_EQ(none.errors, u"cobble: " + bundle + u": no library 'x\\ny'\n");
}

TEST_F(ShowCommand, ADamagedDatabaseIsNotAnEmptyOne)
{
    import(QStringLiteral("b.csv"), "Name\nAnn\n");
    const QString path = bundle + u"/Contents/Resources/Database";
    QByteArray bytes = testing_support::contentsOf(path);
    bytes.replace(4096, bytes.size() - 4096, QByteArray(bytes.size() - 4096, '\xAA'));
    testing_support::writeFile(path, bytes);
    for (const QStringList &arguments : {QStringList(), QStringList{QStringLiteral("b")}}) {
        const CommandResult result = show(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, u"cobble: " + bundle + u": database disk image is malformed\n");
    }
}

TEST_F(ShowCommand, WrongUsage)
{
    for (const QStringList &arguments :
         {QStringList{QStringLiteral("a"), QStringLiteral("b")},
          QStringList{QStringLiteral("a"), QStringLiteral("--limit"), QStringLiteral("-1")},
          QStringList{QStringLiteral("a"), QStringLiteral("--limit"), QStringLiteral("x")},
          QStringList{QStringLiteral("a"), QStringLiteral("--locale"), QStringLiteral("qq_QQ")},
          QStringList{QStringLiteral("a"), QStringLiteral("--bundle"), QStringLiteral("")}}) {
        const CommandResult result =
            runInProcess(QStringList({QStringLiteral("show")}) + arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.errors.contains(u"Usage: cobble"));
    }
    EXPECT_EQ(runInProcess({QStringLiteral("show"), QStringLiteral("--help")}).exitCode, 0);
}
