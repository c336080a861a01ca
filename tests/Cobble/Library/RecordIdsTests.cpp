#include "Library/RecordIds.h"

#include <gtest/gtest.h>

#include <limits>

namespace {
class RecordIdSets : public testing::TestWithParam<RecordIds>
{
};

TEST_P(RecordIdSets, HoldWhatTheyAreMadeOf)
{
    const RecordIdSet set(GetParam());
    EXPECT_EQ(set.isEmpty(), GetParam().empty());
    for (const qint64 id : GetParam())
        EXPECT_TRUE(set.contains(id)) << id;
}

TEST_P(RecordIdSets, HoldNothingElse)
{
    const RecordIdSet set(GetParam());
    for (const qint64 id : {qint64(-3), qint64(4), qint64(99), qint64(1) << 40,
                            std::numeric_limits<qint64>::max() - 1})
        EXPECT_FALSE(set.contains(id)) << id;
}

INSTANTIATE_TEST_SUITE_P(Some, RecordIdSets,
                         testing::Values(RecordIds{}, RecordIds{7}, RecordIds{3, 1, 2},
                                         RecordIds{5, 100, 6}, RecordIds{1, 1000000, 1000000000000},
                                         RecordIds{std::numeric_limits<qint64>::min(), 0,
                                                   std::numeric_limits<qint64>::max()}));
} // namespace
