#include "Library/LibraryTable.h"

#include "Cobble/Journal/StoreSupport.h"

using namespace Qt::StringLiterals;

namespace {
class LibraryTableTests : public testing_support::StoreTest
{
protected:
    LibraryTable table() { return *LibraryTable::open(store->database(), u"kt_people"_s); }
};
} // namespace

TEST_F(LibraryTableTests, ReadsAndWritesValuesAsTheyAre)
{
    LibraryTable records = table();
    EXPECT_EQ(records.columns(), QStringList({u"kt_name"_s, u"kt_age"_s, u"kt_photo"_s}));
    const QVariantList values = {u""_s, qint64(1) << 62, QByteArray("")};
    const auto id = records.insert(std::nullopt, records.columns(), values);
    ASSERT_TRUE(id);
    EXPECT_TRUE(LibraryTable::areEqual(**records.valuesOf(*id, records.columns()), values));
    ASSERT_TRUE(records.update(*id, {u"kt_age"_s}, {0.1}));
    EXPECT_TRUE(LibraryTable::areEqual(**records.valuesOf(*id, {u"kt_age"_s}), {0.1}));
    ASSERT_TRUE(records.remove(*id));
    EXPECT_EQ(*records.valuesOf(*id, records.columns()), std::nullopt);
    EXPECT_EQ(records.remove(*id).reason(), u"the record is no longer there"_s);
    EXPECT_EQ(records.update(*id, {u"kt_age"_s}, {1}).reason(), u"the record is no longer there"_s);
}

TEST_F(LibraryTableTests, TellsValuesOfDifferentKindsApart)
{
    const QVariantList values = {qint64(1), 1.0, u"1"_s, QByteArray("1"), QVariant()};
    for (qsizetype one = 0; one < values.size(); ++one) {
        for (qsizetype other = 0; other < values.size(); ++other)
            EXPECT_EQ(LibraryTable::areEqual({values[one]}, {values[other]}), one == other);
    }
    EXPECT_FALSE(LibraryTable::areEqual({1}, {1, 2}));
}

TEST_F(LibraryTableTests, NeedsATableWithNumbers)
{
    runSQL(u"CREATE TABLE other (a, b)"_s);
    runSQL(u"CREATE VIEW seen AS SELECT * FROM kt_people"_s);
    for (const QString &name : {u"other"_s, u"seen"_s, u"none"_s})
        EXPECT_FALSE(LibraryTable::open(store->database(), name)) << name.toStdString();
    EXPECT_FALSE(table().update(1, {u"kt_none"_s}, {1}));
}
