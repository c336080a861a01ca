#include "CommandSupport.h"

#include "Commands/UserSettings.h"
#include "Filter/SmartLibraries.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

using testing_support::FileTree;

namespace {
class ShowCommandTests : public testing::Test
{
protected:
    ShowCommandTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
    }

    void import(const QString &name, const QByteArray &contents)
    {
        tree.add(name, contents);
        const CommandResult result = runInProcess(
            {u"import"_s, tree.path(name), u"--bundle"_s, bundle, u"--locale"_s, u"en_US"_s});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }
    CommandResult show(const QStringList &arguments)
    {
        return runInProcess(QStringList({u"show"_s}) + arguments +
                            QStringList({u"--bundle"_s, bundle}));
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

TEST_F(ShowCommandTests, PrintsWhatTheFieldsDisplay)
{
    import(u"People.csv"_s, people());
    const CommandResult result =
        show({u"People"_s, u"--limit"_s, u"1"_s, u"--locale"_s, u"en_US"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output, u"Name  Born      Owes       Talked  Visits  Phone\n"
                             "P1    3/1/2008  $1,234.50  1h 30m  1,000   (212) 555-0101\n"
                             "\n"
                             "1 of 11 records\n"_s);
}

TEST_F(ShowCommandTests, PrintsInAnotherLocale)
{
    import(u"People.csv"_s, people());
    const CommandResult result =
        show({u"people"_s, u"--limit"_s, u"1"_s, u"--locale"_s, u"de_DE"_s});
    for (const char16_t *text : {u"P1    01.03.2008  ", u"1.234,50", u"1.000"})
        EXPECT_TRUE(result.output.contains(QString::fromUtf16(text)));
}

TEST_F(ShowCommandTests, TypedTextsThatWereNotReadAreKept)
{
    import(u"People.csv"_s, people());
    const CommandResult result = show({u"People"_s});
    EXPECT_TRUE(result.output.contains(u"\nOdd   soon"));
    EXPECT_TRUE(result.output.contains(u"a cow"));
    EXPECT_TRUE(result.output.contains(u"many"));
    EXPECT_TRUE(result.output.endsWith(u"\n\n11 records\n"));
}

TEST_F(ShowCommandTests, WithoutANameListsTheLibraries)
{
    import(u"b.csv"_s, "Name\nAnn\nBob\n");
    import(u"A.csv"_s, "Name,Age\nAnn,3\n");
    const CommandResult result = show({});
    EXPECT_EQ(result.output, u"Library  Table  Fields  Records\n"
                             "A        kt_a   2       1\n"
                             "b        kt_b   1       2\n"_s);
}

TEST_F(ShowCommandTests, PrintsValuesAsTheyAreForScripts)
{
    import(u"People.csv"_s, people());
    const CommandResult result =
        show({u"people"_s, u"--json"_s, u"--limit"_s, u"2"_s, u"--locale"_s, u"de_DE"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    const QJsonObject object = QJsonDocument::fromJson(result.output.toUtf8()).object();
    EXPECT_EQ(object.value(u"library"_s).toString(), u"People"_s);
    EXPECT_EQ(object.value(u"fields"_s)[2][u"type"].toString(), u"currency"_s);
    const QJsonArray records = object.value(u"records"_s).toArray();
    ASSERT_EQ(records.size(), 2);
    EXPECT_EQ(records[1][u"id"].toInt(), 2);
    const QJsonValue values = records[1][u"values"];
    EXPECT_EQ(values[u"Name"].toString(), u"P2"_s);
    EXPECT_EQ(values[u"Owes"].toDouble(), 1234.5);
    EXPECT_EQ(values[u"Talked"].toDouble(), 5400);
    EXPECT_TRUE(values[u"Born"].toString().startsWith(u"2008-03-02T"_s));
}

TEST_F(ShowCommandTests, ListsTheLibrariesForScripts)
{
    import(u"A.csv"_s, "Name,Age\nAnn,3\n");
    const QJsonObject object =
        QJsonDocument::fromJson(show({u"--json"_s}).output.toUtf8()).object();
    const QJsonArray libraries = object.value(u"libraries"_s).toArray();
    ASSERT_EQ(libraries.size(), 1);
    EXPECT_EQ(libraries[0][u"library"].toString(), u"A"_s);
    EXPECT_EQ(libraries[0][u"records"].toInt(), 1);
    EXPECT_EQ(libraries[0][u"fields"].toArray().size(), 2);
}

TEST_F(ShowCommandTests, SaysWhatCannotBeShown)
{
    EXPECT_EQ(show({u"x"_s}).errors, u"cobble: " + bundle + u": there is no database\n");
    import(u"b.csv"_s, "Name\nAnn\n");
    const CommandResult none = show({u"x\ny"_s});
    EXPECT_EQ(none.exitCode, 1);
    EXPECT_EQ(none.errors, u"cobble: " + bundle + u": no library 'x\\ny'\n");
}

TEST_F(ShowCommandTests, ADamagedDatabaseIsNotAnEmptyOne)
{
    import(u"b.csv"_s, "Name\nAnn\n");
    const QString path = bundle + u"/Contents/Resources/Database";
    QByteArray bytes = testing_support::contentsOf(path);
    bytes.replace(4096, bytes.size() - 4096, QByteArray(bytes.size() - 4096, '\xAA'));
    testing_support::writeFile(path, bytes);
    for (const QStringList &arguments : {QStringList(), QStringList{u"b"_s}}) {
        const CommandResult result = show(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, u"cobble: " + bundle + u": database disk image is malformed\n");
    }
}

TEST_F(ShowCommandTests, RejectsWrongUsage)
{
    for (const QStringList &arguments :
         {QStringList{u"a"_s, u"b"_s}, QStringList{u"a"_s, u"--limit"_s, u"-1"_s},
          QStringList{u"a"_s, u"--limit"_s, u"x"_s}, QStringList{u"a"_s, u"--locale"_s, u"qq_QQ"_s},
          QStringList{u"a"_s, u"--bundle"_s, u""_s}, QStringList{u"a"_s, u"--where"_s, u" "_s},
          QStringList{u"a"_s, u"--sort"_s, u""_s}, QStringList{u"--where"_s, u"x = 1"_s}}) {
        const CommandResult result = runInProcess(QStringList({u"show"_s}) + arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.errors.contains(u"Usage: cobble"));
    }
    EXPECT_EQ(runInProcess({u"show"_s, u"--help"_s}).exitCode, 0);
}

TEST_F(ShowCommandTests, ShowsTheRecordsThatAreAskedFor)
{
    import(u"People.csv"_s, people());
    const struct
    {
        QStringList arguments;
        QString output;
    } rows[] = {
        {{u"--where"_s, u"visits >= 9000"_s, u"--columns"_s, u"Name,Visits"_s},
         u"Name  Visits\nP9    9,000\nP10   10,000\n\n2 of 11 records\n"_s},
        {{u"--where"_s, u"born > 8 March 2008"_s, u"--sort"_s, u"-name"_s, u"--columns"_s,
          u"name"_s},
         u"Name\nP10\nP9\n\n2 of 11 records\n"_s},
        {{u"--sort"_s, u"-Visits"_s, u"--limit"_s, u"2"_s, u"--columns"_s, u"visits"_s},
         u"Visits\nmany\n10,000\n\n2 of 11 records\n"_s},
        {{u"--where"_s, u"name = nobody"_s, u"--columns"_s, u"name"_s},
         u"Name\n\n0 of 11 records\n"_s},
        {{u"--where"_s, u"owes > $1,234.49 and visits < 2000"_s, u"--columns"_s, u"owes"_s},
         u"Owes\n$1,234.50\n\n1 of 11 records\n"_s},
    };
    for (const auto &row : rows) {
        const CommandResult result =
            show(QStringList({u"People"_s, u"--locale"_s, u"en_US"_s}) + row.arguments);
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
        EXPECT_EQ(result.output, row.output);
    }
}

TEST_F(ShowCommandTests, ReadsConditionsInTheLocale)
{
    import(u"People.csv"_s, people());
    const CommandResult result =
        show({u"People"_s, u"--locale"_s, u"de_DE"_s, u"--where"_s,
              u"visits > 9.999,5 AND born in März"_s, u"--columns"_s, u"Visits"_s});
    EXPECT_EQ(result.output, u"Visits\n10.000\n\n1 of 11 records\n"_s)
        << result.errors.toStdString();
}

TEST_F(ShowCommandTests, SaysWhatItCannotAskFor)
{
    import(u"People.csv"_s, people());
    const struct
    {
        QStringList arguments;
        QString errors;
    } rows[] = {
        {{u"--where"_s, u"vists > 3"_s},
         u"cobble: --where: “vists”: there is no field “vists”\n"_s},
        {{u"--sort"_s, u"name,x"_s}, u"cobble: --sort: there is no field “x”\n"_s},
        {{u"--columns"_s, u"name,Name"_s}, u"cobble: --columns: “Name” is there twice\n"_s},
        {{u"--where"_s, u"visits >"_s},
         u"cobble: --where: a value is missing here (behind “visits >”)\n"_s},
    };
    for (const auto &row : rows) {
        const CommandResult result = show(QStringList(u"People"_s) + row.arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, row.errors);
        EXPECT_EQ(result.output, QString());
    }
}

TEST_F(ShowCommandTests, ShowsSmartLibraries)
{
    import(u"People.csv"_s, people());
    {
        const LocaleScope scope(u"en_US"_s);
        const auto store =
            *LibraryStore::open(KTDatabaseBundle(bundle), LibraryStore::Mode::Existing);
        const Library library = *store->libraryNamed(u"People"_s);
        const auto fields = std::make_shared<FilterFields>(library);
        RecordQuery query;
        query.filter = RecordFilter::read(u"visits >= 9,000"_s, fields);
        query.order = {{4, false}};
        query.columns = {0, 4};
        ASSERT_TRUE(store->beginChange());
        for (const QString &name : {u"Lost"_s, u"Regulars"_s})
            ASSERT_TRUE(
                SmartLibraries::save(*store, SmartLibraries::make(name, library, query, *fields)));
        query.filter = RecordFilter::read(u"name MATCHES P.+"_s, fields);
        ASSERT_TRUE(
            SmartLibraries::save(*store, SmartLibraries::make(u"Slow"_s, library, query, *fields)));
        QSqlQuery change(store->database());
        ASSERT_TRUE(change.exec(
            u"UPDATE cobble_smart_library SET filter = 'kt_gone = 1' WHERE name = 'Lost'"_s));
        ASSERT_TRUE(store->commit());
    }
    EXPECT_EQ(show({u"regulars"_s, u"--locale"_s, u"de_DE"_s}).output,
              u"Name  Visits\nP10   10.000\nP9    9.000\n\n2 of 11 records\n"_s);
    EXPECT_EQ(show({u"Regulars"_s, u"--where"_s, u"name = p9"_s, u"--columns"_s, u"name"_s}).output,
              u"Name\nP9\n\n1 of 11 records\n"_s);
    const CommandResult all = show({});
    EXPECT_EQ(all.exitCode, 0) << all.errors.toStdString();
    EXPECT_TRUE(all.output.contains(u"\nRegulars  of People  2       2\n"))
        << all.output.toStdString();
    // Neither one that does not fit nor one that may take long is counted.
    EXPECT_TRUE(all.output.contains(u"\nLost      of People  –       –\n"));
    EXPECT_TRUE(all.output.contains(u"\nSlow      of People  2       –\n"));
    EXPECT_TRUE(show({u"Slow"_s}).output.endsWith(u"\n10 of 11 records\n"));
    const CommandResult lost = show({u"Lost"_s});
    EXPECT_EQ(lost.exitCode, 1);
    EXPECT_TRUE(lost.errors.contains(u"the filter of 'Lost' no longer fits: "))
        << lost.errors.toStdString();
    EXPECT_EQ(lost.output, QString());
}
