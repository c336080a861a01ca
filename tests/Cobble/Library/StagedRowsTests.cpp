#include "Library/StagedRows.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using testing_support::FileTree;

namespace {
class StagedRowsTests : public testing::Test
{
protected:
    StagedRowsTests()
    {
        testing_support::needApplication();
        database = open(u"StagedRowsTests"_s);
        run(u"PRAGMA main.cache_spill = 2147483647"_s);
        run(u"BEGIN IMMEDIATE"_s);
        run(u"CREATE TABLE \"odd \"\"name\" (id INTEGER PRIMARY KEY, a TEXT, b)"_s);
    }
    ~StagedRowsTests() override
    {
        database = QSqlDatabase();
        for (const QString &name : {u"StagedRowsTests"_s, u"StagedRowsTests2"_s})
            QSqlDatabase::removeDatabase(name);
    }

    QSqlDatabase open(const QString &name) const
    {
        QSqlDatabase opened = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        opened.setDatabaseName(tree.path(u"d.sqlite"_s));
        opened.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=0"_s);
        EXPECT_TRUE(opened.open());
        return opened;
    }
    bool run(const QString &statement) const
    {
        QSqlQuery query(database);
        return query.exec(statement);
    }
    /// What a statement gives, with commas between.
    static QString valuesOf(const QSqlDatabase &database, const QString &statement)
    {
        QStringList values;
        QSqlQuery query(database);
        for (query.exec(statement); query.next();)
            values += query.value(0).toString();
        return values.join(u',');
    }
    QString values(const QString &statement) const { return valuesOf(database, statement); }

    FileTree tree;
    QSqlDatabase database;
    const QString table = u"odd \"name"_s;
};
} // namespace

TEST_F(StagedRowsTests, ComeIntoTheTableInTheirOrder)
{
    const auto rows = StagedRows::begin(database, table);
    ASSERT_TRUE(rows) << rows.reason().toStdString();
    for (int row = 1; row <= 5; ++row)
        EXPECT_TRUE((*rows)->add({QString::number(row), row % 2 ? QVariant(row) : QVariant()}));
    EXPECT_EQ(values(u"SELECT count(*) FROM \"odd \"\"name\""_s), u"0"_s);
    EXPECT_TRUE((*rows)->finish());
    EXPECT_EQ(values(u"SELECT id || typeof(a) || a FROM \"odd \"\"name\" ORDER BY id"_s),
              u"1text1,2text2,3text3,4text4,5text5"_s);
    EXPECT_EQ(values(u"SELECT typeof(b) FROM \"odd \"\"name\" ORDER BY id"_s),
              u"integer,null,integer,null,integer"_s);
    EXPECT_TRUE(run(u"COMMIT"_s));
    EXPECT_EQ(values(u"SELECT count(*) FROM temp.sqlite_master"_s), u"0"_s);
}

TEST_F(StagedRowsTests, OthersCanReadUntilAllAreThere)
{
    const auto rows = StagedRows::begin(database, table);
    ASSERT_TRUE(rows);
    // Much more than what SQLite keeps in memory.
    for (int row = 0; row < 3000; ++row)
        EXPECT_TRUE((*rows)->add({QString(4000, u'x'), row}));
    QSqlDatabase other = open(u"StagedRowsTests2"_s);
    EXPECT_EQ(valuesOf(other, u"SELECT count(*) FROM sqlite_master"_s), u"0"_s);
    other.close();
    EXPECT_TRUE((*rows)->finish());
    EXPECT_TRUE(run(u"COMMIT"_s));
    EXPECT_EQ(values(u"SELECT count(*) FROM \"odd \"\"name\""_s), u"3000"_s);
}

TEST_F(StagedRowsTests, AreGoneWithTheTransaction)
{
    {
        const auto rows = StagedRows::begin(database, table);
        ASSERT_TRUE(rows);
        EXPECT_TRUE((*rows)->add({u"a"_s, 1}));
    }
    EXPECT_TRUE(run(u"ROLLBACK"_s));
    EXPECT_EQ(values(u"SELECT count(*) FROM temp.sqlite_master"_s), u"0"_s);
    EXPECT_EQ(StagedRows::begin(database, table).reason(), u"no such table: odd \"name"_s);
}
