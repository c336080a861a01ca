#include "Library/NumberTable.h"

#include "Cobble/Journal/StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
class NumberTableTests : public testing_support::StoreTest
{
protected:
    NumberTableTests() { runSQL(u"DROP TABLE cobble_number"_s); }
    std::optional<qint64> last(const QString &table)
    {
        return *NumberTable::lastOf(store->database(), table);
    }
    void keep(const QString &table, qint64 number)
    {
        EXPECT_TRUE(NumberTable::keep(store->database(), table, number));
    }
};
} // namespace

TEST_F(NumberTableTests, KeepsTheLastNumberOfEachTable)
{
    EXPECT_EQ(last(u"a"_s), std::nullopt);
    keep(u"a"_s, 5);
    keep(u"a"_s, 7);
    keep(u"b"_s, 1);
    EXPECT_EQ(last(u"a"_s), 7);
    EXPECT_EQ(last(u"b"_s), 1);
    EXPECT_TRUE(NumberTable::forget(store->database(), u"a"_s));
    EXPECT_EQ(last(u"a"_s), std::nullopt);
    EXPECT_EQ(last(u"b"_s), 1);
}

TEST_F(NumberTableTests, ForgetsWhereThereIsNothing)
{
    EXPECT_TRUE(NumberTable::forget(store->database(), u"a"_s));
    runSQL(u"CREATE TABLE cobble_number (x)"_s);
    EXPECT_TRUE(NumberTable::forget(store->database(), u"a"_s));
    EXPECT_EQ(countOf(u"pragma_table_info('cobble_number')"_s), 1);
}

TEST_F(NumberTableTests, BelievesNoStranger)
{
    runSQL(u"CREATE TABLE cobble_number (table_name TEXT, last INTEGER, CHECK (last < 3))"_s);
    EXPECT_EQ(last(u"a"_s), std::nullopt);
    keep(u"a"_s, 5);
    runSQL(u"CREATE UNIQUE INDEX same ON cobble_number (1)"_s);
    EXPECT_EQ(last(u"a"_s), 5);
    keep(u"b"_s, 6);
    EXPECT_EQ(last(u"a"_s), 5);
    runSQL(u"UPDATE cobble_number SET last = 'many'"_s);
    EXPECT_EQ(last(u"a"_s), std::nullopt);
}
