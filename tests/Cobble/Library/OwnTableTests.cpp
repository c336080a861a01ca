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
    runSQL(u"CREATE VIEW cobble_own AS SELECT 1"_s);
    EXPECT_EQ(state(), OwnTable::State::Foreign);
    EXPECT_FALSE(table.need(store->database()));
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
