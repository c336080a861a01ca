// Reading parts of a library.

#include "Library/RecordPart.h"

#include "../Records/RecordsSupport.h"

#include "Library/SQL.h"

using namespace Qt::StringLiterals;

namespace {
class RecordPartTests : public testing_support::RecordsTest
{
protected:
    RecordIds idsOf(const RecordPart &part)
    {
        RecordIds ids;
        RecordCursor cursor = store->records(people, part);
        while (cursor.next())
            ids.push_back(cursor.id());
        EXPECT_TRUE(cursor.outcome());
        return ids;
    }
};
} // namespace

TEST_F(RecordPartTests, EverythingIsReadUnlessSomethingIsSet)
{
    fillWith(5);
    EXPECT_EQ(idsOf({}), between(1, 5));
}

TEST_F(RecordPartTests, RecordsAreChosenByTheirNumbers)
{
    fillWith(9);
    RecordPart part;
    part.ids = RecordIds{7, 2, 4, 100};
    EXPECT_EQ(idsOf(part), RecordIds({2, 4, 7}));
    part.after = 2;
    EXPECT_EQ(idsOf(part), RecordIds({4, 7}));
    part.limit = 1;
    EXPECT_EQ(idsOf(part), RecordIds({4}));
    part.ids = RecordIds();
    EXPECT_EQ(idsOf(part), RecordIds());
}

TEST_F(RecordPartTests, FieldsThatAreNotWantedAreNil)
{
    fillWith(2);
    RecordPart part;
    part.fields = QList<qsizetype>{1};
    RecordCursor cursor = store->records(people, part);
    ASSERT_TRUE(cursor.next());
    EXPECT_FALSE(cursor.value(0).isValid());
    EXPECT_EQ(cursor.value(1).toString(), u"1"_s);
    EXPECT_EQ(cursor.stored(1), QVariant(1));
    EXPECT_FALSE(cursor.value(2).isValid());
}

TEST_F(RecordPartTests, OddNamesAreNames)
{
    people.tableName = u"kt \"odd\"; --"_s;
    people.fields[0].columnName = u"a\" b"_s;
    fillWith(3);
    RecordPart part;
    part.ids = RecordIds{3};
    EXPECT_EQ(idsOf(part), RecordIds({3}));
    EXPECT_EQ(ids(), between(1, 3));
}

TEST_F(RecordPartTests, NumbersWithGapsAreAllKnown)
{
    fillWith(6);
    EXPECT_EQ(ids(), between(1, 6));
    remove({1, 4});
    EXPECT_EQ(ids(), RecordIds({2, 3, 5, 6}));
    remove({2, 3, 5, 6});
    EXPECT_EQ(ids(), RecordIds());
}

TEST_F(RecordPartTests, ADamagedTableHasEachNumberOnce)
{
    fillWith(1);
    const QSqlDatabase database = store->database();
    for (const QString &statement :
         {u"DROP TABLE kt_people"_s, u"CREATE TABLE kt_people (id, kt_name, kt_visits, kt_born)"_s,
          u"INSERT INTO kt_people (id) VALUES (1), (3), (3), ('x'), (NULL)"_s})
        ASSERT_TRUE(SQL::run(database, statement));
    EXPECT_EQ(ids(), RecordIds({0, 1, 3}));
}

TEST_F(RecordPartTests, ATableThatIsNotThereIsAFailure)
{
    fillWith(1);
    people.tableName = u"kt_nobody"_s;
    EXPECT_FALSE(store->recordIds(people));
    RecordCursor cursor = store->records(people, RecordPart());
    EXPECT_FALSE(cursor.next());
    EXPECT_FALSE(cursor.outcome());
}
