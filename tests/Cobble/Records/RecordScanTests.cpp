#include "Records/RecordScan.h"

#include "RecordsSupport.h"

#include "Library/SQL.h"

using namespace Qt::StringLiterals;

namespace {
class RecordScanTests : public testing_support::RecordsTest
{
protected:
    RecordIds visited(const RecordIds &ids)
    {
        RecordIds visited;
        RecordScan scan(*store, people);
        EXPECT_TRUE(scan.run(ids, [&](const RecordCursor &record) {
            visited.push_back(record.id());
            EXPECT_EQ(record.value(0).toString(), u"person n%1"_s.arg(record.id()));
        }));
        return visited;
    }
};
} // namespace

TEST_F(RecordScanTests, VisitsWhatIsThereInItsOrder)
{
    fillWith(2500);
    EXPECT_EQ(visited(between(1, 2500)), between(1, 2500));
    EXPECT_EQ(visited({1, 999, 1000, 1001, 2000, 2500, 2501}),
              RecordIds({1, 999, 1000, 1001, 2000, 2500}));
    EXPECT_EQ(visited({}), RecordIds());
    remove({2, 1000, 2500});
    EXPECT_EQ(visited({1, 2, 3, 1000, 1001, 2500}), RecordIds({1, 3, 1001}));
}

TEST_F(RecordScanTests, SeeksWhatLiesFarApart)
{
    fillWith(2500);
    EXPECT_EQ(visited({3, 1700}), RecordIds({3, 1700}));
    EXPECT_EQ(visited({std::numeric_limits<qint64>::min(), 5, std::numeric_limits<qint64>::max()}),
              RecordIds({5}));
}

TEST_F(RecordScanTests, ReadsOnlyTheFieldsThatAreWanted)
{
    fillWith(3);
    RecordScan scan(*store, people, QList<qsizetype>{1});
    QStringList visits;
    EXPECT_TRUE(scan.run(between(1, 3), [&](const RecordCursor &record) {
        EXPECT_FALSE(record.value(0).isValid());
        visits += record.value(1).toString();
    }));
    EXPECT_EQ(visits, QStringList({u"2"_s, u"1"_s, u"0"_s}));
}

TEST_F(RecordScanTests, EndsWhenItIsToldTo)
{
    fillWith(3500);
    RecordScan scan(*store, people);
    int count = 0;
    scan.setGoesOn([&count] { return count < 1500; });
    EXPECT_TRUE(scan.run(between(1, 3500), [&count](const RecordCursor &) { ++count; }));
    EXPECT_EQ(count, 2000);
}

TEST_F(RecordScanTests, SomebodyElseMayWriteInBetween)
{
    fillWith(2500);
    const auto reading = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    RecordScan scan(*reading, people);
    int count = 0;
    bool isWritten = false;
    scan.setGoesOn([&] {
        isWritten = isWritten || (count > 0 && store->update(people, 2500, 0, u"Eve"_s));
        return true;
    });
    QString last;
    EXPECT_TRUE(scan.run(between(1, 2500), [&](const RecordCursor &record) {
        ++count;
        last = record.value(0).toString();
    }));
    EXPECT_TRUE(isWritten);
    EXPECT_EQ(last, u"Eve"_s);
}

TEST_F(RecordScanTests, ADamagedTableHasAnEnd)
{
    fillWith(1);
    const QSqlDatabase database = store->database();
    for (const QString &statement :
         {u"DROP TABLE kt_people"_s, u"CREATE TABLE kt_people (id, kt_name, kt_visits, kt_born)"_s,
          u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
          "INSERT INTO kt_people (id) SELECT 'x' || i FROM n"_s})
        ASSERT_TRUE(SQL::run(database, statement));
    int count = 0;
    RecordScan scan(*store, people);
    EXPECT_TRUE(scan.run({0, 1, 2}, [&count](const RecordCursor &) { ++count; }));
    EXPECT_LE(count, 3);
}

TEST_F(RecordScanTests, SaysWhyItFails)
{
    fillWith(1);
    people.tableName = u"kt_nobody"_s;
    EXPECT_FALSE(RecordScan(*store, people).run({1}, [](const RecordCursor &) {}));
    EXPECT_FALSE(
        RecordScan(*store, people).run({1, 1000}, [](const RecordCursor &) {}).reason().isEmpty());
}
