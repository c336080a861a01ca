#include "Library/IdsInTable.h"

#include "Cobble/Journal/StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
class IdsInTableTests : public testing_support::StoreTest
{
protected:
    RecordIds idsOf(const QString &table)
    {
        Library library = people;
        library.tableName = table;
        const Outcome<RecordIds> ids = store->recordIds(library);
        EXPECT_EQ(ids.reason(), QString());
        return ids.valueOr({});
    }
};
} // namespace

TEST_F(IdsInTableTests, AreThoseOfTheTable)
{
    EXPECT_EQ(idsOf(people.tableName), RecordIds({1, 2, 3}));
    runSQL(u"DELETE FROM kt_people WHERE id = 2"_s);
    EXPECT_EQ(idsOf(people.tableName), RecordIds({1, 3}));
}

TEST_F(IdsInTableTests, AreThoseOfTheRecordsWhereTheyAreAPartOfAKey)
{
    runSQL(u"CREATE TABLE kt_pairs (id INTEGER, x INTEGER, kt_name, kt_age, kt_photo, "
           "PRIMARY KEY (id, x)) WITHOUT ROWID"_s);
    runSQL(u"INSERT INTO kt_pairs (id, x) VALUES (1, 1), (1, 2), (3, 1)"_s);
    EXPECT_EQ(idsOf(u"kt_pairs"_s), RecordIds({1, 3}));
}
