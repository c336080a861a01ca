#include "Library/OwnTable.h"

#include "Cobble/Journal/StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
class OwnTableTests : public testing_support::StoreTest
{
protected:
    OwnTable::State state() { return *table.stateIn(store->database()); }

    const OwnTable table = {u"cobble_own"_s,
                            u"CREATE TABLE cobble_own (name TEXT PRIMARY KEY, number INTEGER)"_s};
};
} // namespace

TEST_F(OwnTableTests, KnowsWhatItHasMade)
{
    EXPECT_EQ(state(), OwnTable::State::Missing);
    ASSERT_TRUE(table.make(store->database()));
    EXPECT_EQ(state(), OwnTable::State::Ours);
    EXPECT_FALSE(table.make(store->database()));
    ASSERT_TRUE(table.drop(store->database()));
    EXPECT_TRUE(table.drop(store->database()));
    EXPECT_EQ(state(), OwnTable::State::Missing);
}

TEST_F(OwnTableTests, KnowsWhatSomebodyElseHasMade)
{
    for (const QString &statement :
         {u"CREATE TABLE cobble_own (name TEXT PRIMARY KEY, number)"_s,
          u"CREATE TABLE COBBLE_OWN (name TEXT PRIMARY KEY, number INTEGER)"_s}) {
        runSQL(statement);
        EXPECT_EQ(state(), OwnTable::State::Foreign) << statement.toStdString();
        ASSERT_TRUE(table.need(store->database()));
        EXPECT_EQ(state(), OwnTable::State::Ours);
        ASSERT_TRUE(table.drop(store->database()));
    }
}

TEST_F(OwnTableTests, LeavesWhatSomebodyElseKeepsUnderAnotherName)
{
    for (const QString &name : {u"cobble_own_foreign"_s, u"cobble_own_foreign2"_s}) {
        runSQL(u"CREATE TABLE Cobble_Own (phone)"_s);
        runSQL(u"INSERT INTO cobble_own VALUES ('precious')"_s);
        ASSERT_TRUE(table.need(store->database()));
        EXPECT_EQ(state(), OwnTable::State::Ours);
        EXPECT_EQ(countOf(name + u" WHERE phone = 'precious'"), 1);
        ASSERT_TRUE(table.drop(store->database()));
    }
}

TEST_F(OwnTableTests, NothingElseKeepsItsNameFromIt)
{
    for (const QString &statement : {u"CREATE VIEW cobble_own AS SELECT 1"_s,
                                     u"CREATE INDEX cobble_own ON kt_people (kt_name)"_s}) {
        runSQL(statement);
        EXPECT_EQ(state(), OwnTable::State::Foreign);
        EXPECT_EQ(table.need(store->database()).reason(), QString());
        EXPECT_EQ(state(), OwnTable::State::Ours);
        ASSERT_TRUE(table.drop(store->database()));
    }
}

TEST_F(OwnTableTests, TakesNoTableOfALibrary)
{
    const OwnTable other = {u"KT_people"_s, u"CREATE TABLE KT_people (name TEXT)"_s};
    EXPECT_EQ(other.need(store->database()).reason(),
              u"the library “People” has the table “KT_people”, which Cobble needs for itself"_s);
    EXPECT_EQ(content(), everything);
}

TEST_F(OwnTableTests, KeepsItsRowsAndNobodysIndices)
{
    ASSERT_TRUE(table.need(store->database()));
    runSQL(u"INSERT INTO cobble_own VALUES ('a', 1)"_s);
    runSQL(u"CREATE UNIQUE INDEX \"an \"\"odd\"\" one\" ON cobble_own (number)"_s);
    runSQL(u"CREATE INDEX elsewhere ON kt_people (kt_name)"_s);
    EXPECT_EQ(state(), OwnTable::State::Ours);
    ASSERT_TRUE(table.need(store->database()));
    runSQL(u"INSERT INTO cobble_own VALUES ('b', 1)"_s);
    EXPECT_EQ(countOf(u"cobble_own"_s), 2);
    EXPECT_EQ(countOf(u"sqlite_master WHERE name = 'elsewhere'"_s), 1);
}

TEST_F(OwnTableTests, AStaleViewKeepsNothingFromBeingPutAside)
{
    runSQL(u"CREATE TABLE gone (a)"_s);
    runSQL(u"CREATE VIEW stale AS SELECT a FROM gone"_s);
    runSQL(u"DROP TABLE gone"_s);
    runSQL(u"CREATE TABLE cobble_own (phone)"_s);
    EXPECT_EQ(table.need(store->database()).reason(), QString());
    EXPECT_EQ(countOf(u"cobble_own_foreign"_s), 0);
    EXPECT_EQ(countOf(u"pragma_legacy_alter_table WHERE legacy_alter_table = 0"_s), 1);
}
