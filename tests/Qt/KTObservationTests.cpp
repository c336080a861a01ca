#include <KTUtility/KTObservation>

#include "support/Reading.h"
#include "support/TestSupport.h"

#include <QLabel>
#include <QStringList>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {
class KTObservationTests : public testing::Test
{
protected:
    /// Notes the values of which it is told.
    auto note()
    {
        return [this](const auto &old, const auto &now) { told += u"%1→%2"_s.arg(old).arg(now); };
    }

    std::unique_ptr<Reading> record = std::make_unique<Reading>();
    QStringList told;
};
} // namespace

TEST_F(KTObservationTests, TellsTheOldAndTheNewValue)
{
    const KTObservation observation = KT::observe(record.get(), &Reading::level, note());
    EXPECT_TRUE(observation.isActive());
    record->setLevel(2);
    record->setTitle(u"x"_s);
    record->setLevel(5);
    EXPECT_EQ(told, QStringList({u"1→2"_s, u"2→5"_s}));
}

TEST_F(KTObservationTests, FollowsBindablePropertiesWithoutSignal)
{
    const KTObservation observation = KT::observe(record.get(), &Reading::quiet, note());
    record->setQuiet(3);
    record->setQuiet(3);
    EXPECT_EQ(told, QStringList(u"1→3"_s));
    QProperty<int> source(8);
    record->bindableQuiet().setBinding([&] { return source.value() + 1; });
    source = 9;
    EXPECT_EQ(told, QStringList({u"1→3"_s, u"3→9"_s, u"9→10"_s}));
}

TEST_F(KTObservationTests, FollowsWhatALambdaMakesOfAnObject)
{
    const KTObservation observation = KT::observe(
        record.get(), [](const Reading &each) { return each.level() + each.quiet(); }, note());
    record->setLevel(2);
    record->setQuiet(4);
    EXPECT_EQ(told, QStringList({u"2→3"_s, u"3→6"_s}));
}

TEST_F(KTObservationTests, EndsWithItsOwner)
{
    KTObservation kept;
    EXPECT_FALSE(kept.isActive());
    {
        KTObservation observation = KT::observe(record.get(), &Reading::level, note());
        kept = std::move(observation);
    }
    record->setLevel(2);
    const KTObservation moved = std::move(kept);
    record->setLevel(3);
    EXPECT_EQ(told, QStringList({u"1→2"_s, u"2→3"_s}));
    kept = KT::observe(record.get(), &Reading::level, note());
    kept.invalidate();
    EXPECT_FALSE(kept.isActive());
    record.reset();
    EXPECT_FALSE(moved.isActive());
    EXPECT_EQ(told.size(), 2);
    EXPECT_FALSE(KT::observe(record.get(), &Reading::level, note()).isActive());
}

TEST_F(KTObservationTests, EndsWithAContext)
{
    auto context = std::make_unique<QObject>();
    KT::observe(record.get(), &Reading::level, context.get(), note());
    record->setLevel(2);
    context.reset();
    record->setLevel(3);
    EXPECT_EQ(told, QStringList(u"1→2"_s));
    QObject other;
    KT::observe(record.get(), &Reading::level, &other, note());
    record.reset();
    EXPECT_EQ(told.size(), 1);
}

TEST_F(KTObservationTests, MayBeEndedByWhatItCalls)
{
    KTObservation observation;
    observation = KT::observe(record.get(), &Reading::level, [&](int, int now) {
        told += QString::number(now);
        observation.invalidate();
        told += u"ended"_s;
    });
    record->setLevel(2);
    record->setLevel(3);
    EXPECT_EQ(told, QStringList({u"2"_s, u"ended"_s}));
    KTObservation quiet;
    quiet = KT::observe(record.get(), &Reading::quiet, [&](int, int) { quiet.invalidate(); });
    record->setQuiet(2);
    EXPECT_FALSE(quiet.isActive());
}

TEST_F(KTObservationTests, WhatIsRaisedGoesNoFurther)
{
    const KTObservation observation = KT::observe(
        record.get(), &Reading::level, [](int, int) { throw std::runtime_error("no way"); });
    const QString logged = testing_support::standardErrorOf([&] { record->setLevel(2); });
    EXPECT_TRUE(logged.contains(u"no way"_s)) << qPrintable(logged);
    EXPECT_EQ(record->level(), 2);
}

TEST_F(KTObservationTests, ValuesThatNeverSettleAreLeftAlone)
{
    Reading other;
    const KTObservation there =
        KT::observe(record.get(), &Reading::level, [&](int, int now) { other.setLevel(now + 1); });
    const KTObservation twice =
        KT::observe(record.get(), &Reading::level, [&](int, int now) { other.setLevel(now + 2); });
    KTObservation back =
        KT::observe(&other, &Reading::level, [&](int, int now) { record->setLevel(now + 1); });
    const QString logged = testing_support::standardErrorOf([&] { record->setLevel(5); });
    EXPECT_TRUE(logged.contains(u"change each other without end: <Reading 0x"_s))
        << qPrintable(logged);
    EXPECT_GT(logged.count(u" → "_s), 1);
    EXPECT_LT(record->level(), 2000);
    // Once nothing answers any more, it is as ever.
    back.invalidate();
    record->setLevel(10);
    EXPECT_EQ(other.level(), 12);
}

TEST_F(KTObservationTests, NothingIsObservedOfNoObjectForAContext)
{
    auto context = std::make_unique<QObject>();
    KT::observe(static_cast<Reading *>(nullptr), &Reading::level, context.get(), note());
    KT::observe(record.get(), &Reading::level, static_cast<QObject *>(nullptr), note());
    record->setLevel(2);
    context.reset();
    record->setLevel(3);
    EXPECT_EQ(told, QStringList());
}

TEST_F(KTObservationTests, WhatItCallsGoesWithTheObjectOrTheContext)
{
    const auto token = std::make_shared<int>(1);
    const auto keep = [token](int, int) {};
    QObject context;
    KT::observe(record.get(), &Reading::level, &context, keep);
    EXPECT_GT(token.use_count(), 2);
    record.reset();
    EXPECT_EQ(token.use_count(), 2);
    Reading other;
    {
        QObject shorter;
        KT::observe(&other, &Reading::level, &shorter, keep);
        KT::observe(&other, &Reading::level, &other, keep);
        EXPECT_GT(token.use_count(), 3);
    }
    EXPECT_EQ(token.use_count(), 3);
    KTObservation ended = KT::observe(&other, &Reading::level, keep);
    ended.invalidate();
    EXPECT_EQ(token.use_count(), 3);
}

TEST_F(KTObservationTests, WhatItCallsMayEndItAndStillUseWhatItHolds)
{
    KTObservation observation;
    const auto token = std::make_shared<int>(1);
    observation = KT::observe(record.get(), &Reading::level, [&, token](int, int now) {
        observation.invalidate();
        told += QString::number(now + *token);
    });
    record->setLevel(2);
    record->setLevel(3);
    EXPECT_EQ(told, QStringList(u"3"_s));
    EXPECT_EQ(token.use_count(), 1);
}
