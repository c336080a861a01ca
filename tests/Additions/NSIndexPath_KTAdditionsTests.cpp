#include <KTUtility/NSIndexPath_KTAdditions>

#include "support/TestSupport.h"

#include <climits>

TEST(NSIndexPath_KTAdditions, PrependsAnIndexToACopy)
{
    const NSIndexPath inSection{4, 1};
    EXPECT_EQ(KTAdditions::indexPathByPrependingIndex(inSection, 2), (NSIndexPath{2, 4, 1}));
    EXPECT_EQ(inSection.length(), 2);
    EXPECT_EQ(KTAdditions::indexPathByPrependingIndex({}, 7), NSIndexPath{7});
    EXPECT_EQ(KTAdditions::indexPathByPrependingIndex({}, UINT_MAX).indexAtPosition(0), UINT_MAX);
}
