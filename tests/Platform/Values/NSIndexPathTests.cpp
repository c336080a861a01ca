#include <KTUtility/NSIndexPath>

#include "support/TestSupport.h"

TEST(NSIndexPath, IsOrderedLevelByLevel)
{
    const NSIndexPath path{2, 0, 5};
    EXPECT_EQ(path.indexAtPosition(1), 0U);
    EXPECT_EQ(path.indexAtPosition(3), NSNotFound);
    EXPECT_EQ(path.indexAtPosition(-1), NSNotFound);
    EXPECT_EQ(path.indexPathByAddingIndex(1), (NSIndexPath{2, 0, 5, 1}));
    EXPECT_EQ(path.indexPathByRemovingLastIndex(), (NSIndexPath{2, 0}));
    EXPECT_EQ(NSIndexPath().indexPathByRemovingLastIndex(), NSIndexPath());
    EXPECT_LT((NSIndexPath{2, 0}), path);
    EXPECT_LT(path, (NSIndexPath{2, 1}));
    EXPECT_LT(NSIndexPath(), NSIndexPath{0});
}
