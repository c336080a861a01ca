// Arrangements that are made at once, and those that are made in a thread.

#include "Records/RecordArrangement.h"

#include "RecordsSupport.h"

#include "Library/SQL.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
class RecordArrangementTests : public testing_support::RecordsTest
{
protected:
    void show(int count)
    {
        fillWith(count);
        arrangement.setSource(ArrangementSource{bundle, people, readers(),
                                                std::make_shared<const RecordIds>(ids()),
                                                [this] { return store.get(); }});
    }
    bool wait()
    {
        return QTest::qWaitFor([this] { return !arrangement.isWorking(); }, 60000);
    }
    const RecordIds &shown() const { return *arrangement.ids(); }

    static constexpr int Many = RecordArrangement::MostAtOnce + 500;
    RecordArrangement arrangement;
};
} // namespace

TEST_F(RecordArrangementTests, WithoutASourceNothingIsShown)
{
    EXPECT_TRUE(shown().empty());
    arrangement.setSearch(u"ada"_s);
    arrangement.setSorts({{0}});
    EXPECT_TRUE(shown().empty());
}

TEST_F(RecordArrangementTests, FewAreArrangedAtOnce)
{
    show(30);
    EXPECT_EQ(shown(), between(1, 30));
    arrangement.setSorts({{1}});
    EXPECT_FALSE(arrangement.isWorking());
    EXPECT_EQ(shown().front(), 30);
    arrangement.setSearch(u"n2"_s);
    EXPECT_EQ(shown(), RecordIds({29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 2}));
    arrangement.setSorts({});
    EXPECT_EQ(shown().front(), 2);
    arrangement.setSearch(QString());
    EXPECT_EQ(shown(), between(1, 30));
}

TEST_F(RecordArrangementTests, ManyAreArrangedInAThread)
{
    show(Many);
    arrangement.setSorts({{1}});
    EXPECT_TRUE(arrangement.isWorking());
    EXPECT_EQ(shown(), between(1, Many));
    ASSERT_TRUE(wait());
    RecordIds expected = between(1, Many);
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(shown(), expected);
}

TEST_F(RecordArrangementTests, TheLastWishCounts)
{
    show(Many);
    QSignalSpy failed(&arrangement, &RecordArrangement::failed);
    arrangement.setSearch(u"person"_s);
    arrangement.setSearch(u"n77"_s);
    arrangement.setSearch(u"n777"_s);
    ASSERT_TRUE(wait());
    EXPECT_EQ(shown(), RecordIds({777}));
    arrangement.setSearch(u"n1"_s);
    arrangement.setSearch(QString());
    EXPECT_FALSE(arrangement.isWorking());
    EXPECT_EQ(shown(), between(1, Many));
    EXPECT_EQ(failed.count(), 0);
}

TEST_F(RecordArrangementTests, MoreLettersFindTheSameAsAllAtOnce)
{
    show(Many);
    for (const QString &typed : {u"p"_s, u"per"_s, u"n12"_s, u"n123"_s, u"n12"_s}) {
        arrangement.setSearch(typed);
        ASSERT_TRUE(wait());
        const RecordIds found = shown();
        arrangement.forgetValues();
        arrangement.setSearch(typed);
        ASSERT_TRUE(wait());
        EXPECT_EQ(shown(), found) << typed.toStdString();
    }
}

TEST_F(RecordArrangementTests, AKnownOrderComesBackAtOnce)
{
    show(Many);
    arrangement.setSorts({{1}});
    ASSERT_TRUE(wait());
    arrangement.setSearch(u"n10"_s);
    ASSERT_TRUE(wait());
    EXPECT_TRUE(std::is_sorted(shown().rbegin(), shown().rend()));
    arrangement.setSearch(QString());
    EXPECT_FALSE(arrangement.isWorking());
    EXPECT_EQ(shown().front(), Many);
}

TEST_F(RecordArrangementTests, ChangedValuesAreReadAgain)
{
    show(20);
    arrangement.setSearch(u"purple"_s);
    EXPECT_TRUE(shown().empty());
    ASSERT_TRUE(store->update(people, 7, 0, u"purple"_s));
    arrangement.setSearch(u"purple"_s);
    EXPECT_TRUE(shown().empty());
    arrangement.forgetValues();
    arrangement.setSearch(u"purple"_s);
    EXPECT_EQ(shown(), RecordIds({7}));
}

TEST_F(RecordArrangementTests, WhatWasFoundInOlderValuesIsNotUsedAgain)
{
    show(Many);
    arrangement.setSearch(u"n7"_s);
    ASSERT_TRUE(arrangement.isWorking());
    ASSERT_TRUE(store->update(people, 5, 0, u"n77 n7777"_s));
    arrangement.forgetValues();
    ASSERT_TRUE(wait());
    arrangement.setSearch(u"n7777"_s);
    ASSERT_TRUE(wait());
    EXPECT_EQ(shown(), RecordIds({5}));
}

TEST_F(RecordArrangementTests, RecordsThatGoLeaveTheOthersWhereTheyAre)
{
    show(Many);
    arrangement.setSorts({{1}});
    ASSERT_TRUE(wait());
    remove({3, Many});
    arrangement.setRecords(std::make_shared<const RecordIds>(ids()));
    EXPECT_FALSE(arrangement.isWorking());
    EXPECT_EQ(shown().size(), size_t(Many - 2));
    EXPECT_EQ(shown().front(), Many - 1);
}

TEST_F(RecordArrangementTests, RecordsThatComeGoToTheirPlaces)
{
    show(20);
    arrangement.setSorts({{1}});
    ASSERT_TRUE(store->begin());
    ASSERT_TRUE(store->removeRecord(people, 5));
    ASSERT_TRUE(store->commit());
    arrangement.setRecords(std::make_shared<const RecordIds>(ids()));
    EXPECT_EQ(shown().size(), 19u);
    ASSERT_TRUE(store->begin());
    ASSERT_TRUE(SQL::run(store->database(),
                         u"INSERT INTO kt_people (id, kt_visits) VALUES (5, 15), (21, 99)"_s));
    ASSERT_TRUE(store->commit());
    arrangement.setRecords(std::make_shared<const RecordIds>(ids()));
    EXPECT_EQ(shown().front(), 20);
    EXPECT_EQ(shown().at(15), 5);
    EXPECT_EQ(shown().back(), 21);
}

TEST_F(RecordArrangementTests, AFilterThatRaisesLeavesWhatIsShown)
{
    show(20);
    QSignalSpy failed(&arrangement, &RecordArrangement::failed);
    arrangement.setFilter(NSPredicate::predicateWithFormat(u"kt_nothing = 1"_s));
    ASSERT_EQ(failed.count(), 1);
    EXPECT_EQ(shown(), between(1, 20));
    // The same is tried again when it is wished for again.
    arrangement.setSorts({});
    EXPECT_EQ(failed.count(), 2);
    arrangement.setSearch({});
    EXPECT_EQ(failed.count(), 3);
    arrangement.setFilter(NSPredicate::predicateWithFormat(u"kt_visits < 3"_s));
    EXPECT_EQ(shown(), RecordIds({18, 19, 20}));
    arrangement.setFilter({});
    EXPECT_EQ(shown(), between(1, 20));
}

TEST_F(RecordArrangementTests, FewAreArrangedInAThreadIfEachMayTakeLong)
{
    show(20);
    const NSPredicate filter = NSPredicate::predicateWithFormat(u"kt_visits < 3"_s);
    arrangement.setFilter(filter, true);
    EXPECT_TRUE(arrangement.isWorking());
    ASSERT_TRUE(wait());
    EXPECT_EQ(shown(), RecordIds({18, 19, 20}));
    arrangement.setSearch(u"n2"_s);
    EXPECT_TRUE(arrangement.isWorking());
    ASSERT_TRUE(wait());
    EXPECT_EQ(shown(), RecordIds({20}));
    arrangement.setFilter(filter);
    EXPECT_FALSE(arrangement.isWorking());
    EXPECT_EQ(shown(), RecordIds({20}));
}

TEST_F(RecordArrangementTests, ItMayGoInTheMiddleOfTheWork)
{
    show(Many);
    {
        RecordArrangement other;
        other.setSource(ArrangementSource{bundle, people, readers(),
                                          std::make_shared<const RecordIds>(ids()),
                                          [this] { return store.get(); }});
        other.setSorts({{0}});
        EXPECT_TRUE(other.isWorking());
    }
    EXPECT_EQ(shown(), between(1, Many));
}
