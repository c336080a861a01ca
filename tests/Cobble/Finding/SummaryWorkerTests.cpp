#include "Finding/SummaryWorker.h"

#include "../Records/RecordsSupport.h"

#include <QTest>

using namespace Qt::StringLiterals;

class SummaryWorkerTests : public testing_support::RecordsTest
{
protected:
    SummaryWorker::Request request(const RecordIds &ids) const
    {
        return {people, 1, std::make_shared<RecordIds>(ids)};
    }
};

TEST_F(SummaryWorkerTests, SumsUpTheFieldOfSomeRecords)
{
    fillWith(10);
    const auto always = [] { return true; };
    const auto all = SummaryWorker::summary(*store, request(ids()), always);
    ASSERT_TRUE(all);
    EXPECT_EQ(all->numberCount(), 10);
    EXPECT_EQ(all->sum(), NSDecimalNumber(45));
    const auto some = SummaryWorker::summary(*store, request({1, 10, 99}), always);
    ASSERT_TRUE(some);
    EXPECT_EQ(some->numberCount(), 2);
    EXPECT_EQ(some->sum(), NSDecimalNumber(9));
}

TEST_F(SummaryWorkerTests, TellsWhatItHasFoundInItsThread)
{
    fillWith(100);
    SummaryWorker worker;
    NSDecimalNumber sum;
    QObject::connect(&worker, &SummaryWorker::done, &worker,
                     [&sum](const FieldSummary &summary) { sum = summary.sum(); });
    worker.start(bundle, request(ids()));
    EXPECT_TRUE(QTest::qWaitFor([&sum] { return sum == NSDecimalNumber(4950); }, 60000));
}

TEST_F(SummaryWorkerTests, OnlyTheLastQuestionIsAnswered)
{
    fillWith(100);
    SummaryWorker worker;
    QList<qint64> counts;
    QObject::connect(&worker, &SummaryWorker::done, &worker,
                     [&counts](const FieldSummary &summary) { counts += summary.numberCount(); });
    worker.start(bundle, request(ids()));
    worker.start(bundle, request({1, 2, 3}));
    EXPECT_TRUE(QTest::qWaitFor([&counts] { return !counts.isEmpty(); }, 60000));
    QCoreApplication::processEvents();
    EXPECT_EQ(counts, QList<qint64>{3});
    worker.start(bundle, request(ids()));
    worker.cancel();
    EXPECT_EQ(counts.size(), 1);
}
