#include "InterruptedChange.h"
#include "Library/DatabaseConnection.h"
#include "Library/DatabaseCopy.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;
using testing_support::FileTree;

namespace {
class DatabaseCopyTests : public testing::Test
{
protected:
    DatabaseCopyTests()
    {
        testing_support::needApplication();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        DatabaseConnection connection(path, DatabaseConnection::Access::Write);
        EXPECT_TRUE(connection.open());
        QSqlQuery query(connection.database());
        EXPECT_TRUE(query.exec(u"CREATE TABLE t (name TEXT)"_s));
        EXPECT_TRUE(query.exec(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
                               "LIMIT 5000) INSERT INTO t SELECT 'name ' || i FROM n"_s));
    }

    static int halfNames(DatabaseConnection &connection)
    {
        QSqlQuery query(connection.database());
        query.exec(u"SELECT count(*) FROM t WHERE name LIKE 'half%'"_s);
        return query.next() ? query.value(0).toInt() : -1;
    }

    FileTree tree;
    KTDatabaseBundle bundle{tree.path(u"b.cobbledb"_s)};
    QString path = bundle.databaseFilePath();
};
} // namespace

TEST_F(DatabaseCopyTests, TakesAnInterruptedChangeBackInACopy)
{
    InterruptedChange::leaveIn(bundle, u"t"_s, u"name"_s);
    ::chmod(QFile::encodeName(path).constData(), 0400);
    const QJsonObject before = tree.contents();
    {
        DatabaseConnection original(path, DatabaseConnection::Access::Read);
        ASSERT_TRUE(original.open());
        EXPECT_TRUE(original.needsPlayback());
    }
    QString copyPath;
    {
        const auto copy = DatabaseCopy::make(bundle);
        ASSERT_TRUE(copy) << copy.reason().toStdString();
        copyPath = (*copy)->path();
        DatabaseConnection connection(copyPath, DatabaseConnection::Access::Write);
        ASSERT_TRUE(connection.open());
        EXPECT_EQ(halfNames(connection), 0);
        EXPECT_FALSE(connection.needsPlayback());
    }
    EXPECT_FALSE(QFile::exists(copyPath));
    EXPECT_EQ(tree.contents(), before);
}

TEST_F(DatabaseCopyTests, AJournalThatNamesAnotherFileIsNotPlayedBack)
{
    tree.add(u"diary"_s, "dear diary");
    InterruptedChange::leaveIn(bundle, u"t"_s, u"name"_s);
    InterruptedChange::nameInJournal(bundle, tree.path(u"diary"_s));
    EXPECT_EQ(DatabaseCopy::make(bundle).reason(),
              u"the journal of the database names another file"_s);
    EXPECT_EQ(contentsOf(tree.path(u"diary"_s)), "dear diary");
}

TEST_F(DatabaseCopyTests, WithoutAJournalThereIsNothingToTakeBack)
{
    DatabaseConnection connection(path, DatabaseConnection::Access::Read);
    ASSERT_TRUE(connection.open());
    EXPECT_FALSE(connection.needsPlayback());
    EXPECT_FALSE(DatabaseCopy::make(bundle));
}

TEST_F(DatabaseCopyTests, ConnectionsForReadingChangeNothing)
{
    const QJsonObject before = tree.contents();
    const int count = DatabaseConnection::count();
    {
        DatabaseConnection connection(path, DatabaseConnection::Access::Read);
        ASSERT_TRUE(connection.open());
        EXPECT_EQ(DatabaseConnection::count(), count + 1);
        QSqlQuery query(connection.database());
        EXPECT_FALSE(query.exec(u"DELETE FROM t"_s));
        EXPECT_EQ(DatabaseConnection::reasonOf(query.lastError()),
                  u"attempt to write a readonly database"_s);
    }
    EXPECT_EQ(DatabaseConnection::count(), count);
    DatabaseConnection none(tree.path(u"none"_s), DatabaseConnection::Access::Read);
    EXPECT_EQ(none.open().reason(), u"unable to open database file"_s);
    EXPECT_EQ(tree.contents(), before);
}
