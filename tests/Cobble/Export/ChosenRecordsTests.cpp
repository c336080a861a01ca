#include "Export/ChosenRecords.h"

#include "Library/LibraryStore.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
class ChosenRecordsTests : public testing::Test
{
protected:
    static constexpr qint64 Count = 700;

    ChosenRecordsTests() : bundle(tree.path(u"b.cobbledb"_s))
    {
        testing_support::needApplication();
        testing_support::useFreshHome();
        EXPECT_TRUE(bundle.buildDatabaseBundleOnDisk());
        LibraryField field;
        field.columnName = field.propertyName = u"kt_name"_s;
        field.header = u"Name"_s;
        library.name = u"Names"_s;
        library.tableName = u"kt_names"_s;
        library.fields = {field};
        store = *LibraryStore::open(bundle, LibraryStore::Mode::Create);
        EXPECT_TRUE(store->begin() && store->create(library));
        for (qint64 number = 1; number <= Count; ++number)
            EXPECT_TRUE(store->insert({u"no. %1"_s.arg(number)}));
        EXPECT_TRUE(store->commit());
    }

    /// The records that are read of these numbers.
    QStringList namesOf(const RecordIds &ids)
    {
        ChosenRecords records(*store, library, std::make_shared<RecordIds>(ids));
        QStringList names;
        while (records.next())
            names += records.value(0).toString();
        EXPECT_TRUE(records.outcome());
        EXPECT_FALSE(records.next());
        return names;
    }

    testing_support::FileTree tree;
    KTDatabaseBundle bundle;
    Library library;
    std::unique_ptr<LibraryStore> store;
};
} // namespace

TEST_F(ChosenRecordsTests, TheyComeInTheOrderInWhichTheyWereChosen)
{
    EXPECT_EQ(namesOf({3, 700, 1}), QStringList({u"no. 3"_s, u"no. 700"_s, u"no. 1"_s}));
    EXPECT_EQ(namesOf({}), QStringList());
}

TEST_F(ChosenRecordsTests, ManyAreReadInPieces)
{
    RecordIds ids;
    QStringList names;
    for (qint64 number = Count; number > 0; --number) {
        ids.push_back(number);
        names += u"no. %1"_s.arg(number);
    }
    EXPECT_EQ(namesOf(ids), names);
}

TEST_F(ChosenRecordsTests, ThoseThatAreGoneAreLeftOut)
{
    EXPECT_TRUE(store->beginChange() && store->removeRecord(library, 2) && store->commit());
    EXPECT_EQ(namesOf({1, 2, 900, 3}), QStringList({u"no. 1"_s, u"no. 3"_s}));
    EXPECT_EQ(namesOf({2}), QStringList());
    // Nor does a whole piece of them end the records.
    RecordIds ids(600, 2);
    ids.push_back(5);
    EXPECT_EQ(namesOf(ids), QStringList(u"no. 5"_s));
}

TEST_F(ChosenRecordsTests, WhatCannotBeReadIsSaid)
{
    Library missing = library;
    missing.tableName = u"kt_others"_s;
    ChosenRecords records(*store, missing, std::make_shared<RecordIds>(RecordIds{1}));
    EXPECT_FALSE(records.next());
    EXPECT_FALSE(records.outcome());
    EXPECT_FALSE(records.next());
}
