// Finding and sorting records by reading them.

#include "Records/RecordArranger.h"

#include "RecordsSupport.h"

#include "Library/SQL.h"

using namespace Qt::StringLiterals;

namespace {
class RecordArrangerTests : public testing_support::RecordsTest
{
protected:
    RecordArrangerTests()
    {
        fill({{u"Ada"_s, 10, day(u"12/10/1815"_s)},
              {u"Bjørn"_s, 9, day(u"3/4/2008"_s)},
              {u"ada b"_s, QVariant(), QVariant()},
              {u"Céline 10"_s, -3, day(u"1/1/1990"_s)},
              {u"Céline 9"_s, u"many"_s, day(u"1/1/1990"_s)}});
        request.library = people;
        request.readers = readers();
        request.all = std::make_shared<const RecordIds>(ids());
        request.wish.locale = u"en_US"_s;
    }
    RecordIds arranged()
    {
        const auto result = RecordArranger(*store, request).arrange();
        EXPECT_TRUE(result) << result.reason().toStdString();
        return result ? *result->ids : RecordIds();
    }
    RecordIds found(const QString &typed)
    {
        request.wish.search = typed;
        return arranged();
    }
    RecordIds sorted(const QList<RecordSort> &sorts)
    {
        request.wish.sorts = sorts;
        return arranged();
    }

    ArrangementRequest request;
};
} // namespace

TEST_F(RecordArrangerTests, WithoutAWishEverythingStaysAsItIs)
{
    EXPECT_EQ(arranged(), between(1, 5));
}

TEST_F(RecordArrangerTests, WordsAreFoundInAnyField)
{
    EXPECT_EQ(found(u"ADA"_s), RecordIds({1, 3}));
    EXPECT_EQ(found(u"celine 10"_s), RecordIds({4}));
    EXPECT_EQ(found(u"bjørn 2008"_s), RecordIds({2}));
    EXPECT_EQ(found(u"nobody"_s), RecordIds());
    EXPECT_EQ(found(u"  "_s), between(1, 5));
}

TEST_F(RecordArrangerTests, ValuesAreFoundHoweverTheyAreTyped)
{
    EXPECT_EQ(found(u"March 4, 2008"_s), RecordIds({2}));
    EXPECT_EQ(found(u"9.0"_s), RecordIds({2}));
}

TEST_F(RecordArrangerTests, FewerRecordsAreLookedThroughForMoreLetters)
{
    request.among = std::make_shared<const RecordIds>(RecordIds{1, 3});
    EXPECT_EQ(found(u"b"_s), RecordIds({3}));
    // A value needs not be among what its first letters have found.
    EXPECT_EQ(found(u"March 4, 2008"_s), RecordIds({2}));
}

TEST_F(RecordArrangerTests, AFilterAsksForKeys)
{
    request.wish.filter = NSPredicate::predicateWithFormat(u"kt_visits = 9 OR kt_visits = 10"_s);
    EXPECT_EQ(arranged(), RecordIds({1, 2}));
    EXPECT_EQ(found(u"ada"_s), RecordIds({1}));
}

TEST_F(RecordArrangerTests, AFilterForWhatThereIsNotFails)
{
    request.wish.filter = NSPredicate::predicateWithFormat(u"kt_nothing > 0"_s);
    const auto result = RecordArranger(*store, request).arrange();
    ASSERT_FALSE(result);
    EXPECT_FALSE(result.isCancelled());
    EXPECT_TRUE(result.reason().contains(u"kt_nothing")) << result.reason().toStdString();
}

TEST_F(RecordArrangerTests, RecordsAreSortedByTheValuesOfAField)
{
    EXPECT_EQ(sorted({{0}}), RecordIds({1, 3, 2, 5, 4}));
    EXPECT_EQ(sorted({{1}}), RecordIds({3, 4, 2, 1, 5}));
    EXPECT_EQ(sorted({{2}}), RecordIds({3, 1, 4, 5, 2}));
}

TEST_F(RecordArrangerTests, EqualOnesStayInTheirOrder)
{
    EXPECT_EQ(sorted({{2, Qt::DescendingOrder}}), RecordIds({2, 4, 5, 1, 3}));
    EXPECT_EQ(sorted({{2, Qt::DescendingOrder}, {0}}), RecordIds({2, 5, 4, 1, 3}));
}

TEST_F(RecordArrangerTests, WhatIsFoundIsSorted)
{
    request.wish.search = u"e"_s;
    EXPECT_EQ(sorted({{0, Qt::DescendingOrder}}), RecordIds({4, 5}));
    const auto result = RecordArranger(*store, request).arrange();
    EXPECT_EQ(*result->found, RecordIds({4, 5}));
}

TEST_F(RecordArrangerTests, AKnownOrderIsNotSoughtAgain)
{
    request.known = std::make_shared<const RecordIds>(RecordIds{5, 4, 3, 2, 1});
    EXPECT_EQ(sorted({{0}}), RecordIds({5, 4, 3, 2, 1}));
    EXPECT_EQ(found(u"ada"_s), RecordIds({3, 1}));
}

TEST_F(RecordArrangerTests, WhatIsFoundIsToldNowAndThen)
{
    ASSERT_TRUE(SQL::run(store->database(),
                         u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i "
                         "< 20000) INSERT INTO kt_people (kt_name) SELECT 'ada' FROM n"_s));
    request.all = std::make_shared<const RecordIds>(ids());
    request.wish.search = u"ada"_s;
    RecordArranger arranger(*store, request);
    RecordIds told;
    int count = 0;
    arranger.setTold([&](const RecordIds &ids) {
        told.insert(told.end(), ids.begin(), ids.end());
        ++count;
    });
    const auto arranged = arranger.arrange();
    ASSERT_TRUE(arranged);
    EXPECT_LE(count, 20);
    ASSERT_LE(told.size(), arranged->ids->size());
    EXPECT_TRUE(std::equal(told.begin(), told.end(), arranged->ids->begin()));
}

TEST_F(RecordArrangerTests, EndsWhenItIsToldTo)
{
    RecordArranger arranger(*store, request);
    request.wish.sorts = {{0}};
    arranger.setGoesOn([] { return false; });
    EXPECT_TRUE(arranger.arrange().isCancelled());
}
