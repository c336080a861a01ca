// Bundles that somebody has prepared: whatever a command does with them, the user's files stay.

#include "../Library/InterruptedChange.h"
#include "CommandSupport.h"
#include "Library/DatabaseConnection.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <KTUtility/KTDatabaseBundle>

#include <QFile>
#include <QSqlQuery>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;
using testing_support::writeFile;

namespace {
using Prepare = std::function<void(const FileTree &tree, const KTDatabaseBundle &bundle)>;

/// Runs statements on the database of a bundle.
void change(const KTDatabaseBundle &bundle, const QStringList &statements)
{
    DatabaseConnection connection(bundle.databaseFilePath(), DatabaseConnection::Access::Write);
    ASSERT_TRUE(connection.open());
    QSqlQuery query(connection.database());
    for (const QString &statement : statements)
        EXPECT_TRUE(query.exec(statement)) << statement.toStdString();
}

/// Puts a link to the user's folder in the place of a folder of the bundle.
void leadToDocuments(const FileTree &tree, const QString &folder)
{
    const QString documents = tree.path(u"documents"_s);
    for (const QString &name : QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot))
        QFile::rename(folder + u'/' + name, documents + u'/' + name);
    QDir(folder).removeRecursively();
    QFile::link(documents, folder);
}

void leaveHotJournal(const KTDatabaseBundle &bundle)
{
    InterruptedChange::leaveIn(bundle, u"kt_people"_s, u"kt_name"_s);
}

/// A bundle, and what the commands say of it.
struct ForeignRow
{
    const char *name;
    Prepare prepare;
    /// What "show" says of it, and "show people"; nil if it shows it.
    QString listReason;
    QString reason;
    /// What an import says of it; nil if that is of no matter, as long as it touches nothing else.
    QString refusal;
};

void PrintTo(const ForeignRow &row, std::ostream *stream)
{
    *stream << row.name;
}

const QString IsLink = u"a folder of the bundle is a link, which leads out of it"_s;
const QString NoFile = u"the database is a link, or no file"_s;
const QString NoJournal = u"the journal of the database is a link, or no file"_s;
const QString NamesFile = u"the journal of the database names another file"_s;
const QString HasLog = u"there is a 'Database-wal', which Cobble does not use"_s;
const QString WantsLog = u"the database has a write-ahead log, which Cobble does not use"_s;
const QString Endless = u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) "
                        "SELECT i AS id, 'x' AS kt_name, 'x' AS kt_photo FROM n"_s;

using Tree = const FileTree &;
using Bundle = const KTDatabaseBundle &;

/// Those by which files outside of the bundle could be reached.
QList<ForeignRow> rowsThatLeadOut()
{
    const auto row = [](const char *name, const QString &reason, const Prepare &prepare) {
        return ForeignRow{name, prepare, reason, reason, reason};
    };
    return {
        row("JournalNamesAFile", NamesFile,
            [](Tree tree, Bundle b) {
                leaveHotJournal(b);
                InterruptedChange::nameInJournal(b, tree.path(u"documents/diary"_s));
            }),
        row("JournalIsALink", NoJournal,
            [](Tree tree, Bundle b) {
                QFile::link(tree.path(u"documents/diary"_s), b.databaseFilePath() + u"-journal");
            }),
        row("JournalIsAPipe", NoJournal,
            [](Tree, Bundle b) {
                ::mkfifo(QFile::encodeName(b.databaseFilePath() + u"-journal").constData(), 0600);
            }),
        row("LogIsALink", HasLog,
            [](Tree tree, Bundle b) {
                QFile::link(tree.path(u"documents/diary"_s), b.databaseFilePath() + u"-wal");
            }),
        row("HasALog", WantsLog,
            [](Tree, Bundle b) { change(b, {u"PRAGMA journal_mode = WAL"_s}); }),
        row("DatabaseIsALink", NoFile,
            [](Tree tree, Bundle b) {
                const QString path = tree.path(u"documents/Database"_s);
                QFile::rename(b.databaseFilePath(), path);
                QFile::link(path, b.databaseFilePath());
            }),
        row("ContentsIsALink", IsLink,
            [](Tree tree, Bundle b) { leadToDocuments(tree, b._contentsFolderPath()); }),
        row("ResourcesIsALink", IsLink,
            [](Tree tree, Bundle b) { leadToDocuments(tree, b._resourcesFolderPath()); }),
        row("MediaIsALink", IsLink,
            [](Tree tree, Bundle b) { leadToDocuments(tree, b.mediaFolderPath()); }),
    };
}

/// Those whose databases hold something else than they say.
QList<ForeignRow> rowsThatLie()
{
    const auto row = [](const char *name, const QString &listReason, const QString &reason,
                        const Prepare &prepare) {
        return ForeignRow{name, prepare, listReason, reason, {}};
    };
    return {
        row("EndlessView", u"'kt_people' is no table"_s, u"'kt_people' is no table"_s,
            [](Tree, Bundle b) {
                change(b, {u"DROP TABLE kt_people"_s, u"CREATE VIEW kt_people AS " + Endless});
            }),
        row("EndlessCatalogue", u"'cobble_library' is no table"_s,
            u"'cobble_library' is no table"_s,
            [](Tree, Bundle b) {
                change(b, {u"DROP TABLE cobble_library"_s,
                           u"CREATE VIEW cobble_library AS " + Endless});
            }),
        row("EndlessFields", u"'cobble_field' is no table"_s, u"'cobble_field' is no table"_s,
            [](Tree, Bundle b) {
                change(b,
                       {u"DROP TABLE cobble_field"_s, u"CREATE VIEW cobble_field AS " + Endless});
            }),
        row("TableOfAModule", u"'kt_people' is no table"_s, u"'kt_people' is no table"_s,
            [](Tree, Bundle b) {
                change(b, {u"DROP TABLE kt_people"_s,
                           u"CREATE VIRTUAL TABLE kt_people USING rtree(id, kt_name, kt_photo)"_s});
            }),
        row("NoTable", u"no such table: kt_people"_s, u"no such table: kt_people"_s,
            [](Tree, Bundle b) { change(b, {u"DROP TABLE kt_people"_s}); }),
        row("NoColumn", {}, u"a field has the column 'kt_lost', which the table has not"_s,
            [](Tree, Bundle b) {
                change(b,
                       {u"UPDATE cobble_field SET column_name = 'kt_lost' WHERE position = 0"_s});
            }),
        row("NumberAsField", {}, u"a field has the column 'Id', which is the records' number"_s,
            [](Tree, Bundle b) {
                change(b, {u"UPDATE cobble_field SET column_name = 'Id' WHERE position = 0"_s});
            }),
        row("ColumnOfTwoFields", {}, u"two fields have the column 'kt_photo'"_s,
            [](Tree, Bundle b) {
                change(b, {u"UPDATE cobble_field SET column_name = 'kt_photo'"_s});
            }),
        row("NoNumber", {}, u"no such column: kt_people.id"_s,
            [](Tree, Bundle b) {
                change(b, {u"DROP TABLE kt_people"_s,
                           u"CREATE TABLE kt_people (kt_name, kt_photo)"_s});
            }),
        row("ComputedColumn", u"'kt_people' has a computed column"_s,
            u"'kt_people' has a computed column"_s,
            [](Tree, Bundle b) {
                change(b, {u"DROP TABLE kt_people"_s,
                           u"CREATE TABLE kt_people (id INTEGER PRIMARY KEY, kt_photo, kt_name "
                           "TEXT AS (printf('%.*c', 2000000, 'x')))"_s,
                           u"INSERT INTO kt_people (kt_photo) VALUES ('x')"_s});
            }),
        row("ComputedCatalogue", u"'cobble_library' has a computed column"_s,
            u"'cobble_library' has a computed column"_s,
            [](Tree, Bundle b) {
                change(b, {u"ALTER TABLE cobble_library RENAME TO other"_s,
                           u"CREATE TABLE cobble_library (name, library_entity, entity TEXT AS "
                           "(printf('%.*c', 2000000, 'x')) STORED, table_name)"_s,
                           u"INSERT INTO cobble_library SELECT name, library_entity, table_name "
                           "FROM other"_s});
            }),
        row("NoFields", {}, u"the library has no fields"_s,
            [](Tree, Bundle b) { change(b, {u"DELETE FROM cobble_field"_s}); }),
    };
}

/// Those that do something by themselves when they are changed.
QList<ForeignRow> rowsThatAct()
{
    const QString refusal = u"the database has a trigger, which Cobble does not use"_s;
    const QString trigger = u"CREATE TRIGGER act AFTER INSERT ON cobble_library BEGIN "
                            "DELETE FROM cobble_field; END"_s;
    return {
        {"Trigger", [trigger](Tree, Bundle b) { change(b, {trigger}); }, {}, {}, refusal},
        {"TriggerSpeltOtherwise",
         [trigger](Tree, Bundle b) {
             change(b, {trigger, u"PRAGMA writable_schema = ON"_s,
                        u"UPDATE sqlite_master SET type = 'TRIGGER', sql = replace(sql, 'CREATE ', "
                        "'CREATE/**/') WHERE type = 'trigger'"_s});
         },
         {},
         {},
         refusal},
    };
}

class ForeignBundleTests : public testing::TestWithParam<ForeignRow>
{
protected:
    ForeignBundleTests()
    {
        testing_support::useFreshHome();
        QByteArray people = "Name,Photo\n";
        for (int number = 0; number < 3000; ++number)
            people += "somebody " + QByteArray::number(number) + ",cobblemedia://precious\n";
        tree.add(u"people.csv"_s, people);
        tree.add(u"documents/diary"_s, "dear diary");
        tree.add(u"documents/precious"_s, "precious");
        const CommandResult result =
            run({u"import"_s, tree.path(u"people.csv"_s), u"--media"_s, u"Photo"_s});
        EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    }

    CommandResult run(const QStringList &arguments) const
    {
        return runInProcess(arguments + QStringList{u"--bundle"_s, bundle.bundlePath()});
    }
    /// Expects a command to fail with one line, or to do it.
    void expectReason(const QStringList &arguments, const QString &reason) const
    {
        const CommandResult result = run(arguments);
        const std::string command = arguments.join(u' ').toStdString();
        EXPECT_EQ(result.exitCode, reason.isNull() ? 0 : 1) << command;
        EXPECT_EQ(result.errors.count(u'\n'), reason.isNull() ? 0 : 1) << command;
        EXPECT_TRUE(result.errors.endsWith(reason.isNull() ? QString() : u": " + reason + u'\n'))
            << result.errors.toStdString();
    }
    void expectDocumentsAreThere() const
    {
        EXPECT_EQ(contentsOf(tree.path(u"documents/diary"_s)), "dear diary");
        EXPECT_EQ(contentsOf(tree.path(u"documents/precious"_s)), "precious");
    }

    FileTree tree;
    KTDatabaseBundle bundle{tree.path(u"b.cobbledb"_s)};
    QString exported = tree.path(u"out.csv"_s);
};
} // namespace

TEST_P(ForeignBundleTests, LookingAtItChangesNothing)
{
    const ForeignRow &row = GetParam();
    row.prepare(tree, bundle);
    const QJsonObject before = tree.contents();
    expectReason({u"show"_s}, row.listReason);
    expectReason({u"show"_s, u"people"_s, u"--limit"_s, u"1"_s}, row.reason);
    expectReason({u"export"_s, u"people"_s, u"--to"_s, exported}, row.reason);
    EXPECT_EQ(QFile::exists(exported), row.reason.isNull());
    QFile::remove(exported);
    EXPECT_EQ(tree.contents(), before);
}

TEST_P(ForeignBundleTests, WritingToItTouchesNothingElse)
{
    const ForeignRow &row = GetParam();
    row.prepare(tree, bundle);
    const QStringList replacing{u"import"_s, tree.path(u"people.csv"_s), u"--replace"_s};
    if (!row.refusal.isNull())
        expectReason(replacing, row.refusal);
    else
        (void)run(replacing);
    expectDocumentsAreThere();
    (void)run({u"media"_s, u"delete"_s, u"precious"_s, u"diary"_s});
    (void)run({u"media"_s, u"add"_s, tree.path(u"people.csv"_s)});
    expectDocumentsAreThere();
    EXPECT_EQ(QDir(tree.path(u"documents"_s)).entryList(QStringList(u"people*"_s)), QStringList());
}

INSTANTIATE_TEST_SUITE_P(LeadOut, ForeignBundleTests, testing::ValuesIn(rowsThatLeadOut()),
                         [](const testing::TestParamInfo<ForeignRow> &row) {
                             return row.param.name;
                         });
INSTANTIATE_TEST_SUITE_P(Act, ForeignBundleTests, testing::ValuesIn(rowsThatAct()),
                         [](const testing::TestParamInfo<ForeignRow> &row) {
                             return row.param.name;
                         });
INSTANTIATE_TEST_SUITE_P(Lie, ForeignBundleTests, testing::ValuesIn(rowsThatLie()),
                         [](const testing::TestParamInfo<ForeignRow> &row) {
                             return row.param.name;
                         });

namespace {
class InterruptedBundleTests : public ForeignBundleTests
{
};

/// One whose change was interrupted, as a power failure leaves it.
QList<ForeignRow> interruptedRow()
{
    return {{"Interrupted", [](Tree, Bundle b) { leaveHotJournal(b); }, {}, {}, {}}};
}
} // namespace

TEST_P(InterruptedBundleTests, ShowsWhatWasThereBefore)
{
    GetParam().prepare(tree, bundle);
    const QJsonObject before = tree.contents();
    const CommandResult result = run({u"show"_s, u"people"_s});
    EXPECT_EQ(result.exitCode, 0) << result.errors.toStdString();
    EXPECT_FALSE(result.output.contains(u"half"));
    EXPECT_TRUE(result.output.endsWith(u"\n3000 records\n"));
    EXPECT_EQ(tree.contents(), before);
}

TEST_P(InterruptedBundleTests, WhoWritesTakesTheChangeBack)
{
    GetParam().prepare(tree, bundle);
    tree.add(u"more.csv"_s, "Name\nAnn\n");
    expectReason({u"import"_s, tree.path(u"more.csv"_s)}, {});
    EXPECT_FALSE(QFile::exists(bundle.databaseFilePath() + u"-journal"));
    const CommandResult result = run({u"show"_s, u"people"_s});
    EXPECT_FALSE(result.output.contains(u"half"));
    EXPECT_TRUE(result.output.endsWith(u"\n3000 records\n"));
}

TEST_P(InterruptedBundleTests, ACopyBeforeAnUpgradeIsWhole)
{
    GetParam().prepare(tree, bundle);
    expectReason({u"upgrade-copy"_s}, {});
    const QString copy = tree.path(u"b_PreUpgrade.cobbledb"_s);
    EXPECT_FALSE(QFile::exists(copy + u"/Contents/Resources/Database-journal"));
    const CommandResult result = runInProcess({u"show"_s, u"people"_s, u"--bundle"_s, copy});
    EXPECT_FALSE(result.output.contains(u"half"));
    EXPECT_TRUE(result.output.endsWith(u"\n3000 records\n"));
}

INSTANTIATE_TEST_SUITE_P(Row, InterruptedBundleTests, testing::ValuesIn(interruptedRow()),
                         [](const testing::TestParamInfo<ForeignRow> &row) {
                             return row.param.name;
                         });
